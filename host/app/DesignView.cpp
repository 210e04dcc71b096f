#include "host/app/DesignView.h"

#include "host/app/DesignModel.h"
#include "host/app/DesignRows.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;

DesignView::DesignView(DesignModel* model, QWidget* parent) : QTreeView(parent), m_model(model)
{
    // Extensions know the view by this name.
    setObjectName("MainDesignWidget");
    setAccessibleName(tr("Designs"));
    setModel(model);
    setAlternatingRowColors(true);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setExpandsOnDoubleClick(false);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setDragDropMode(QAbstractItemView::DragOnly);
    setTextElideMode(Qt::ElideMiddle);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    connect(model, &DesignModel::aboutToRebuild, this, &DesignView::rememberRows);
    connect(model, &DesignModel::rebuilt, this, &DesignView::restoreRows);
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { m_collapsed.insert(keyOf(index)); });
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { m_collapsed.remove(keyOf(index)); });
}

Design* DesignView::currentDesign() const
{
    if (currentIndex().isValid() || m_model->rowCount() != 1)
        return m_model->designAt(currentIndex());
    return m_model->designAt(m_model->index(0, DesignModel::NameColumn));
}

void DesignView::setCurrentDesign(const Design* design)
{
    const QModelIndex index = m_model->indexOf(design);
    expandRecursively(index);
    setCurrentIndex(index);
}

template <class Subject>
QList<Subject*> DesignView::selected() const
{
    QList<Subject*> subjects;
    for (const QModelIndex& index : selectionModel()->selectedRows()) {
        auto* const subject = DesignRows::subjectOf<Subject>(index);
        if (subject && m_model->designAt(index) == currentDesign())
            subjects << subject;
    }
    return subjects;
}

QList<DesignFile*> DesignView::selectedFiles() const { return selected<DesignFile>(); }

QList<DesignFolder*> DesignView::selectedFolders() const { return selected<DesignFolder>(); }

QModelIndex DesignView::itemAt(const QPoint& place) const
{
    return indexAt(viewport()->mapFrom(this, place));
}

void DesignView::showFiles(const QList<DesignFile*>& files)
{
    // The first one comes last, so that it is visible even in a small view.
    for (auto index = files.count() - 1; index >= 0; --index)
        scrollTo(m_model->indexOf(files.at(index)));
    if (!files.isEmpty())
        setCurrentIndex(m_model->indexOf(files.first()));
}

void DesignView::updateGeometries()
{
    QTreeView::updateGeometries();

    // The last column takes the room that is left. In a narrow view it would be cut off.
    const int last = header()->logicalIndex(header()->count() - 1);
    const int needed = header()->sectionPosition(last) +
                       qMax(sizeHintForColumn(last), header()->sectionSizeHint(last));
    const bool hasRoom = needed <= viewport()->width();
    if (header()->stretchLastSection() != hasRoom)
        header()->setStretchLastSection(hasRoom);
}

void DesignView::contextMenuEvent(QContextMenuEvent* event)
{
    showMenu(event->reason() == QContextMenuEvent::Keyboard ? placeOfCurrent() : event->pos());
}

void DesignView::keyPressEvent(QKeyEvent* event)
{
    // The other key for context menus, which not every platform knows by itself.
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        showMenu(placeOfCurrent());
    else
        QTreeView::keyPressEvent(event);
}

void DesignView::showMenu(const QPoint& place)
{
    const QModelIndex index = indexAt(place);
    if (!index.isValid())
        return;
    selectionModel()->setCurrentIndex(index, selectionModel()->isSelected(index)
                                                 ? QItemSelectionModel::NoUpdate
                                                 : QItemSelectionModel::ClearAndSelect |
                                                       QItemSelectionModel::Rows);
    makeMenu(index)->popup(viewport()->mapToGlobal(place));
    emit menuShown();
}

QPoint DesignView::placeOfCurrent()
{
    scrollTo(currentIndex());
    return visualRect(currentIndex()).center();
}

void DesignView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    emit currentItemChanged();
}

QMenu* DesignView::makeMenu(const QModelIndex& index)
{
    auto* const menu = new QMenu(this);
    menu->setObjectName("DesignContextMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);

    Design* const design = m_model->designAt(index);
    DesignFile* const file = m_model->fileAt(index);
    const bool ofDesign = !file && !m_model->folderAt(index);
    if (file || ofDesign)
        menu->addActions(ViewExtensions::actions(ViewExtensions::Menu, file, design, objectName()));
    if (!menu->isEmpty())
        menu->addSeparator();
    menu->addActions(ofDesign ? m_designActions : m_fileActions);
    return menu;
}

void DesignView::rememberRows()
{
    const QModelIndex current = currentIndex().siblingAtColumn(DesignModel::NameColumn);
    m_currentKeys = QStringList{keyOf(current)};
    if (!current.isValid())
        return;

    for (int row = current.row() + 1; row < m_model->rowCount(current.parent()); ++row)
        m_currentKeys << keyOf(current.siblingAtRow(row));
    for (int row = current.row() - 1; row >= 0; --row)
        m_currentKeys << keyOf(current.siblingAtRow(row));
    m_currentKeys << keyOf(current.parent());
}

void DesignView::restoreRows()
{
    const QSet<QString> collapsed = m_collapsed;
    expandAll();
    for (const QString& key : collapsed)
        collapse(m_model->indexOfKey(key));
    for (const QString& key : m_currentKeys) {
        const QModelIndex index = m_model->indexOfKey(key);
        if (key.isEmpty() || !index.isValid())
            continue;
        setCurrentIndex(index);
        return;
    }
}

QString DesignView::keyOf(const QModelIndex& index) const
{
    return index.siblingAtColumn(DesignModel::NameColumn).data(DesignModel::KeyRole).toString();
}
