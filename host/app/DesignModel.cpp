#include "host/app/DesignModel.h"

#include "host/app/DesignRows.h"
#include "host/app/DesignStorage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QElapsedTimer>
#include <QMimeData>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;

namespace {

/// How often the model looks at the disk. Notifications do not come from network drives, nor for
/// folders that are moved, replaced or made later.
constexpr int LookIntervalMs = 500;

DesignRows::Row rowOf(const QStandardItemModel& model, const QModelIndex& index)
{
    DesignRows::Row row;
    for (int column = 0; column < DesignModel::ColumnCount; ++column)
        row << model.itemFromIndex(index.siblingAtColumn(column));
    return row;
}

} // namespace

DesignModel::DesignModel(QObject* parent) : QStandardItemModel(0, ColumnCount, parent)
{
    setHorizontalHeaderLabels({tr("Name"), tr("State"), tr("Version"), tr("Size"), tr("Changed")});
    horizontalHeaderItem(SizeColumn)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(&m_lookAtDisk, &QTimer::timeout, this, [this] {
        QElapsedTimer timer;
        timer.start();
        refreshFromDisk();
        // With thousands of files or a slow network drive most of the time is still the user's.
        m_lookAtDisk.start(qMax(LookIntervalMs, 20 * static_cast<int>(timer.elapsed())));
    });
    m_lookAtDisk.start(LookIntervalMs);
}

void DesignModel::addDesign(Design* design)
{
    const DesignRows::Row row = DesignRows::forDesign(design);
    appendRow(row);
    DesignRows::fill(row.first(), *design);

    connect(design, &Design::filesChanged, this, [this, design] { rebuild(design); });
    connect(design, &Design::modifiedChanged, this, [this, design] { refreshDesign(design); });
    connect(design, &Design::versionChanged, this, [this, design] {
        refreshDesign(design);
        refreshRows(indexOf(design));
    });
    connect(design, &Design::stateChanged, this, [this, design] { refreshDesign(design); });
    // The target properties decide which images are outdated.
    connect(design, &Design::propertiesChanged, this,
            [this, design] { refreshRows(indexOf(design)); });
}

void DesignModel::removeDesign(Design* design)
{
    disconnect(design, nullptr, this, nullptr);
    removeRow(indexOf(design).row());
}

Design* DesignModel::designAt(const QModelIndex& index) const
{
    QModelIndex top = index;
    while (top.parent().isValid())
        top = top.parent();
    return DesignRows::subjectOf<Design>(top);
}

DesignFile* DesignModel::fileAt(const QModelIndex& index) const
{
    return DesignRows::subjectOf<DesignFile>(index);
}

DesignFolder* DesignModel::folderAt(const QModelIndex& index) const
{
    return DesignRows::subjectOf<DesignFolder>(index);
}

bool DesignModel::isNode(const QModelIndex& index) const
{
    const QModelIndex name = index.siblingAtColumn(NameColumn);
    return name.parent().isValid() && !name.data(SubjectRole).isValid();
}

QString DesignModel::nodeAt(const QModelIndex& index) const
{
    QModelIndex node = index.siblingAtColumn(NameColumn);
    while (node.isValid() && !isNode(node))
        node = node.parent();
    return node.data(NodeRole).toString();
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
    for (int row = 0; row < rowCount(); ++row) {
        DesignStorage::refreshReadOnly(designAt(index(row, NameColumn)));
        refreshDesign(designAt(index(row, NameColumn)));
        refreshRows(index(row, NameColumn));
    }
}

void DesignModel::rebuild(Design* design)
{
    emit aboutToRebuild();
    QStandardItem* const top = itemFromIndex(indexOf(design));
    top->removeRows(0, top->rowCount());
    DesignRows::fill(top, *design);
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
