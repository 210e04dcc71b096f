#include "host/app/archive/ArchiveFormat.h"

#include <QCoreApplication>

namespace {

struct ArchiveFormatTexts {
    Q_DECLARE_TR_FUNCTIONS(ArchiveFormats)
};

} // namespace

QList<ArchiveFormat> ArchiveFormats::all() { return {ArchiveFormat::Zip, ArchiveFormat::TarGz}; }

QString ArchiveFormats::extension(ArchiveFormat format)
{
    return format == ArchiveFormat::Zip ? QString("zip") : QString("tar.gz");
}

QString ArchiveFormats::label(ArchiveFormat format)
{
    return format == ArchiveFormat::Zip
               ? ArchiveFormatTexts::tr("Zip archive (*.zip)")
               : ArchiveFormatTexts::tr("Compressed tar archive (*.tar.gz)");
}
