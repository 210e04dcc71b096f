#include "host/app/DesignModel.h"

#include "host/app/DesignRows.h"
#include "host/app/DesignStorage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QDir>
#include <QFileInfo>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;

namespace {

DesignRows::Row rowOf(const QStandardItemModel& model, const QModelIndex& index)
{
    DesignRows::Row row;
    for (int column = 0; column < DesignModel::ColumnCount; ++column)
        row << model.itemFromIndex(index.siblingAtColumn(column));
    return row;
}

/// \p folder or, while it does not exist, the nearest existing one above it, which reports its
/// creation.
QString existingFolder(const QString& folder)
{
    QString existing = folder;
    while (!QFileInfo(existing).isDir() && !QDir(existing).isRoot())
        existing = QFileInfo(existing).absolutePath();
    return existing;
}

} // namespace

DesignModel::DesignModel(QObject* parent) : QStandardItemModel(0, ColumnCount, parent)
{
    setHorizontalHeaderLabels({tr("Name"), tr("State"), tr("Version")});
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &DesignModel::followFolder);
}

void DesignModel::addDesign(Design* design)
{
    const DesignRows::Row row = DesignRows::forDesign(design);
    appendRow(row);
    DesignRows::fill(row.first(), *design);
    watchFolders();

    connect(design, &Design::filesChanged, this, [this, design] { rebuild(design); });
    connect(design, &Design::modifiedChanged, this, [this, design] { refreshDesign(design); });
    connect(design, &Design::versionChanged, this, [this, design] { refreshDesign(design); });
    connect(design, &Design::stateChanged, this, [this, design] { refreshDesign(design); });
}

void DesignModel::removeDesign(Design* design)
{
    disconnect(design, nullptr, this, nullptr);
    removeRow(indexOf(design).row());
    watchFolders();
}

Design* DesignModel::designAt(const QModelIndex& index) const
{
    QModelIndex top = index;
    while (top.parent().isValid())
        top = top.parent();
    return DesignRows::designOf(top.siblingAtColumn(NameColumn).data(DesignRows::SubjectRole));
}

DesignFile* DesignModel::fileAt(const QModelIndex& index) const
{
    return DesignRows::fileOf(index.siblingAtColumn(NameColumn).data(DesignRows::SubjectRole));
}

DesignFolder* DesignModel::folderAt(const QModelIndex& index) const
{
    return DesignRows::folderOf(index.siblingAtColumn(NameColumn).data(DesignRows::SubjectRole));
}

QModelIndex DesignModel::indexOfKey(const QString& key) const
{
    return match(index(0, NameColumn), KeyRole, key, 1,
                 Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive)
        .value(0);
}

QModelIndex DesignModel::indexOf(const Design* design) const
{
    return indexOfKey(DesignRows::keyOf(*design));
}

QModelIndex DesignModel::indexOf(const DesignFile* file) const
{
    return indexOfKey(DesignRows::keyOf(*file));
}

void DesignModel::refreshFromDisk()
{
    // First, or changes in a folder that has just come back would be missed.
    watchFolders();
    for (int row = 0; row < rowCount(); ++row) {
        DesignStorage::refreshReadOnly(designAt(index(row, NameColumn)));
        refreshRows(index(row, NameColumn));
    }
}

void DesignModel::followFolder(const QString& folder)
{
    // A folder below may have been replaced, while the old one is still watched at its new place.
    for (const QString& below : m_watcher.directories()) {
        if (QFileInfo(below).absolutePath() == folder && below != folder)
            m_watcher.removePath(below);
    }
    refreshFromDisk();
}

void DesignModel::rebuild(Design* design)
{
    emit aboutToRebuild();
    QStandardItem* const top = itemFromIndex(indexOf(design));
    top->removeRows(0, top->rowCount());
    DesignRows::fill(top, *design);
    watchFolders();
    emit rebuilt();
}

void DesignModel::refreshDesign(Design* design)
{
    DesignRows::refresh(rowOf(*this, indexOf(design)), *design);
}

void DesignModel::refreshRows(const QModelIndex& parent)
{
    for (int row = 0; row < rowCount(parent); ++row) {
        const QModelIndex child = index(row, NameColumn, parent);
        if (const DesignFile* const file = fileAt(child))
            DesignRows::refresh(rowOf(*this, child), *file);
        else if (const DesignFolder* const folder = folderAt(child))
            DesignRows::refresh(rowOf(*this, child), *folder);
        refreshRows(child);
    }
}

void DesignModel::watchFolders()
{
    QStringList folders;
    // Again when one was made while the folder above it was not watched yet.
    do {
        folders = foldersToWatch();
        watch(folders);
    } while (folders != foldersToWatch());
}

QStringList DesignModel::foldersToWatch() const
{
    QStringList folders;
    for (int row = 0; row < rowCount(); ++row) {
        const Design* const design = designAt(index(row, NameColumn));
        folders << design->workingFolderPath();
        for (const DesignFile* file : design->files())
            folders << QFileInfo(file->filePath()).absolutePath();
        for (const DesignFolder* folder : design->folders())
            folders << QFileInfo(folder->folderPath()).absolutePath();
    }
    folders.removeDuplicates();
    QStringList existing;
    for (const QString& folder : folders) {
        // A folder does not report its own move; the one above it does.
        existing << existingFolder(folder) << existingFolder(QFileInfo(folder).absolutePath());
    }
    existing.removeDuplicates();
    return existing;
}

void DesignModel::watch(const QStringList& folders)
{
    // Only the difference: removing a folder drops its reports that are under way.
    const QStringList watched = m_watcher.directories();
    for (const QString& folder : watched) {
        if (!folders.contains(folder))
            m_watcher.removePath(folder);
    }
    for (const QString& folder : folders) {
        if (!watched.contains(folder))
            m_watcher.addPath(folder);
    }
}
