#include "host/app/archive/ArchiveFormat.h"

#include <QCoreApplication>

namespace {

/// The extension that \p path ends in, with its dot; empty for that of no format.
QString knownExtension(const QString& path)
{
    const std::optional<ArchiveFormat> format = ArchivePath::formatOf(path);
    return format ? path.right(1 + ArchiveFormats::extension(*format).size()) : QString();
}

} // namespace

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

std::optional<ArchiveFormat> ArchivePath::formatOf(const QString& path)
{
    for (const ArchiveFormat format : ArchiveFormats::all()) {
        if (path.endsWith('.' + ArchiveFormats::extension(format), Qt::CaseInsensitive))
            return format;
    }
    return {};
}

QString ArchivePath::withFormat(const QString& path, ArchiveFormat format)
{
    const int known = knownExtension(path).size();
    return known == 0 ? path
                      : path.left(path.size() - known) + '.' + ArchiveFormats::extension(format);
}

QString ArchivePath::withSuffix(const QString& path, const QString& suffix, bool present)
{
    if (path.isEmpty())
        return path;
    const QString extension = knownExtension(path);
    QString stem = path.left(path.size() - extension.size());
    if (stem.endsWith(suffix))
        stem.chop(suffix.size());
    return stem + (present ? suffix : QString()) + extension;
}
