#include "host/app/archive/ArchiveFormat.h"

#include <QCoreApplication>

QList<ArchiveFormat> ArchiveFormats::all() { return {ArchiveFormat::Zip, ArchiveFormat::TarGz}; }

QString ArchiveFormats::extension(ArchiveFormat format)
{
    return format == ArchiveFormat::Zip ? QString("zip") : QString("tar.gz");
}

QString ArchiveFormats::label(ArchiveFormat format)
{
    return format == ArchiveFormat::Zip
               ? QCoreApplication::translate("ArchiveFormats", "Zip archive (*.zip)")
               : QCoreApplication::translate("ArchiveFormats", "Compressed tar archive (*.tar.gz)");
}
