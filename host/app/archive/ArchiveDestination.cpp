#include "host/app/archive/ArchiveDestination.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignStructure.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <optional>

using OrvanticCore::DesignFile;
using OrvanticCore::DesignStructure;

namespace {

struct ArchiveDestinationTexts {
    Q_DECLARE_TR_FUNCTIONS(ArchiveDestination)
};

/// The format whose extension \p path has, in letters of either case.
std::optional<ArchiveFormat> formatOf(const QString& path)
{
    for (const ArchiveFormat format : ArchiveFormats::all()) {
        if (path.endsWith('.' + ArchiveFormats::extension(format), Qt::CaseInsensitive))
            return format;
    }
    return {};
}

/// The extension of a format at the end of \p path, with its dot; empty for that of no format.
QString knownExtension(const QString& path)
{
    const std::optional<ArchiveFormat> format = formatOf(path);
    return format ? path.right(1 + ArchiveFormats::extension(*format).size()) : QString();
}

} // namespace

QString ArchiveDestination::proposal(ArchiveFormat format) const
{
    if (!m_design)
        return {};
    const QString name = QDir(m_design->workingFolderPath()).dirName();
    return QDir::toNativeSeparators(folderFor(format) + '/' + name + '.' +
                                    ArchiveFormats::extension(format));
}

QString ArchiveDestination::withFormat(const QString& path, ArchiveFormat format) const
{
    const std::optional<ArchiveFormat> former = formatOf(path);
    if (!former)
        return path;
    QString renamed = path.left(path.size() - knownExtension(path).size()) + '.' +
                      ArchiveFormats::extension(format);
    if (!m_design || folderFor(*former) == folderFor(format))
        return renamed;
    const QFileInfo file(filePath(renamed));
    // A file elsewhere is in a folder that the user has chosen.
    if (file.path() != folderFor(*former))
        return renamed;
    return QDir::toNativeSeparators(folderFor(format) + '/' + file.fileName());
}

QString ArchiveDestination::withVersion(const QString& path, bool present) const
{
    if (!m_design || path.isEmpty())
        return path;
    const QString suffix = "-V-" + m_design->versionString("_");
    const QString extension = knownExtension(path);
    QString stem = path.left(path.size() - extension.size());
    if (stem.endsWith(suffix))
        stem.chop(suffix.size());
    return stem + (present ? suffix : QString()) + extension;
}

QString ArchiveDestination::filePath(const QString& path) const
{
    const QString file = QDir::fromNativeSeparators(path);
    return m_design ? QDir::cleanPath(QDir(m_design->workingFolderPath()).absoluteFilePath(file))
                    : file;
}

bool ArchiveDestination::leadsOut(const QString& path)
{
    return QDir::fromNativeSeparators(path).split('/').contains("..");
}

QStringList ArchiveDestination::oddities(const QString& path) const
{
    QStringList found;
    const QFileInfo file(filePath(path));
    const QString extension = knownExtension(file.fileName());
    const QString stem = file.fileName().left(file.fileName().size() - extension.size());
    if (stem.split('-').contains(QString()))
        found << ArchiveDestinationTexts::tr("A part of the name is empty.");

    for (const QChar character : stem) {
        const bool isUsual = character.isLetterOrNumber() || QString("-_.").contains(character);
        if (!isUsual) {
            found
                << ArchiveDestinationTexts::tr("The name has the character \"%1\".").arg(character);
            break;
        }
    }

    // The host makes the folder that the structure of the design has for archives.
    const std::optional<ArchiveFormat> format = formatOf(path);
    const bool isOfStructure = m_design && format && folderFor(*format) == file.path();
    if (!isOfStructure && !file.dir().exists())
        found << ArchiveDestinationTexts::tr("There is no folder %1 yet.")
                     .arg(QDir::toNativeSeparators(file.path()));
    return found;
}

bool ArchiveDestination::isOfDesign(const QString& file) const
{
    if (!m_design)
        return false;
    const QString description =
        m_descriptionName.isEmpty()
            ? QString()
            : QDir(m_design->workingFolderPath()).filePath(m_descriptionName);
    if (m_design->fileAt(file) || file == description)
        return true;

    // It may have another name through a link on either side, so that the ends of the paths count.
    const QString end = QFileInfo(file).canonicalFilePath();
    if (end.isEmpty())
        return false;
    if (end == QFileInfo(description).canonicalFilePath())
        return true;
    const QList<DesignFile*> files = m_design->files();
    return std::any_of(files.begin(), files.end(), [&end](const DesignFile* present) {
        return QFileInfo(present->filePath()).canonicalFilePath() == end;
    });
}

QString ArchiveDestination::folderFor(ArchiveFormat format) const
{
    const QDir folder(m_design->workingFolderPath());
    const DesignStructure* const structure = m_design->structure();
    const QString subFolder = structure ? structure->mapFileNameToWorkingFolderPath(
                                              "*." + ArchiveFormats::extension(format), {}, {})
                                        : QString();
    return QDir::cleanPath(subFolder.isEmpty() ? folder.path() : folder.filePath(subFolder));
}
