#include "host/app/DesignModel.h"

#include "host/app/DesignRows.h"
#include "host/app/DesignStorage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignStructure.h>

#include <QDir>
#include <QFileInfo>
#include <QMimeData>
#include <QUrl>

#include <algorithm>

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
    setHorizontalHeaderLabels({tr("Name"), tr("State"), tr("Version"), tr("Size"), tr("Changed")});
    horizontalHeaderItem(SizeColumn)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &DesignModel::followFolder);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &DesignModel::followFile);
}

void DesignModel::addDesign(Design* design)
{
    const DesignRows::Row row = DesignRows::forDesign(design);
    appendRow(row);
    DesignRows::fill(row.first(), *design);
    watchFolders();

    connect(design, &Design::filesChanged, this, [this, design] { rebuild(design); });
    connect(design, &Design::modifiedChanged, this, [this, design] { refreshDesign(design); });
    connect(design, &Design::versionChanged, this, [this, design] {
        refreshDesign(design);
        refreshRows(indexOf(design));
    });
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

bool DesignModel::isNode(const QModelIndex& index) const
{
    const QModelIndex name = index.siblingAtColumn(NameColumn);
    return name.parent().isValid() && !name.data(DesignRows::SubjectRole).isValid();
}

QString DesignModel::nodeAt(const QModelIndex& index) const
{
    QModelIndex node = index.siblingAtColumn(NameColumn);
    while (node.isValid() && !isNode(node))
        node = node.parent();
    return node.data(NodeRole).toString();
}

QStringList DesignModel::nodesOf(const Design* design)
{
    return design->structure() ? DesignRows::nodeNames(design->structure()->rootNode())
                               : QStringList();
}

QMimeData* DesignModel::mimeData(const QModelIndexList& indexes) const
{
    QList<QUrl> urls;
    for (const QModelIndex& index : indexes) {
        if (index.column() != NameColumn)
            continue;
        if (const DesignFile* const file = fileAt(index))
            urls << QUrl::fromLocalFile(file->filePath());
    }
    if (urls.isEmpty())
        return nullptr;
    auto* const data = new QMimeData;
    data->setUrls(urls);
    return data;
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
        refreshDesign(designAt(index(row, NameColumn)));
        refreshRows(index(row, NameColumn));
    }
}

void DesignModel::followFile(const QString& path)
{
    // It may have gone with its folder, which another one may have replaced.
    if (!QFileInfo::exists(path)) {
        const QString folder = QFileInfo(path).absolutePath();
        forgetFoldersBelow(folder);
        m_watcher.removePath(folder);
    }
    refreshFromDisk();
}

void DesignModel::followFolder(const QString& folder)
{
    forgetFoldersBelow(folder);
    refreshFromDisk();
}

void DesignModel::forgetFoldersBelow(const QString& folder)
{
    // At any depth: the reports of a folder that is no longer watched are dropped, and one of them
    // may have been that a folder in it was replaced.
    for (const QString& watched : m_watcher.directories()) {
        if (watched.startsWith(folder + '/'))
            m_watcher.removePath(watched);
    }
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
        watch(folders, m_watcher.directories());
    } while (folders != foldersToWatch());
    watch(filesToWatch(), m_watcher.files());
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

QStringList DesignModel::filesToWatch() const
{
    // A file that is written in place is no change of its folder.
    QStringList files;
    for (int row = 0; row < rowCount(); ++row) {
        const Design* const design = designAt(index(row, NameColumn));
        files << DesignStorage::descriptionPath(design->workingFolderPath());
        for (const DesignFile* file : design->files())
            files << file->filePath();
    }
    files.removeDuplicates();
    files.erase(std::remove_if(files.begin(), files.end(),
                               [](const QString& file) { return !QFileInfo(file).isFile(); }),
                files.end());
    return files;
}

void DesignModel::watch(const QStringList& paths, const QStringList& watched)
{
    // Only the difference: removing a folder drops its reports that are under way.
    for (const QString& path : watched) {
        if (!paths.contains(path))
            m_watcher.removePath(path);
    }
    for (const QString& path : paths) {
        if (!watched.contains(path))
            m_watcher.addPath(path);
    }
}
