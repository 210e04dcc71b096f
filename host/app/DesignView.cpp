#include "host/app/DesignView.h"

#include "host/app/DesignModel.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::Interfaces::IDesignViewExtensions;

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
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(DesignModel::NameColumn, QHeaderView::Stretch);
    setColumnWidth(DesignModel::StateColumn, 150);
    setColumnWidth(DesignModel::VersionColumn, 80);

    connect(model, &DesignModel::aboutToRebuild, this, &DesignView::rememberRows);
    connect(model, &DesignModel::rebuilt, this, &DesignView::restoreRows);
    connect(this, &QTreeView::collapsed, this,
            [this](const QModelIndex& index) { m_collapsed.insert(keyOf(index)); });
    connect(this, &QTreeView::expanded, this,
            [this](const QModelIndex& index) { m_collapsed.remove(keyOf(index)); });
}

void DesignView::setMenuActions(const QList<QAction*>& forFiles, const QList<QAction*>& forDesigns)
{
    m_fileActions = forFiles;
    m_designActions = forDesigns;
}

Design* DesignView::currentDesign() const
{
    const QModelIndex index =
        currentIndex().isValid() ? currentIndex() : m_model->index(0, DesignModel::NameColumn);
    return m_model->designAt(index);
}

void DesignView::setCurrentDesign(const Design* design)
{
    const QModelIndex index = m_model->indexOf(design);
    expandRecursively(index);
    setCurrentIndex(index);
}

Design* DesignView::designAt(const QPoint& place) const
{
    return m_model->designAt(indexAt(viewport()->mapFrom(this, place)));
}

void DesignView::showFiles(const QList<DesignFile*>& files)
{
    // Backwards, so that in a small view the first one is sure to be seen.
    for (int index = files.count() - 1; index >= 0; --index)
        scrollTo(m_model->indexOf(files.at(index)));
    if (!files.isEmpty())
        setCurrentIndex(m_model->indexOf(files.first()));
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
    setCurrentIndex(index);
    makeMenu(index)->popup(viewport()->mapToGlobal(place));
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
    for (IDesignViewExtensions* extension : ViewExtensions::all()) {
        if (file) {
            menu->addActions(extension->contextMenuActions(file, objectName()));
            for (QMenu* added : extension->contextMenus(file, objectName()))
                menu->addMenu(added);
        } else if (ofDesign) {
            menu->addActions(extension->designContextMenuActions(design, objectName()));
            for (QMenu* added : extension->designContextMenus(design, objectName()))
                menu->addMenu(added);
        }
        // Actions made just now do not know the lock states yet.
        extension->refreshForDesignState(design->isLocked(), design->isReadOnly());
    }
    if (!menu->isEmpty())
        menu->addSeparator();
    menu->addActions(ofDesign ? m_designActions : m_fileActions);
    return menu;
}

void DesignView::rememberRows() { m_currentKey = keyOf(currentIndex()); }

void DesignView::restoreRows()
{
    const QSet<QString> collapsed = m_collapsed;
    expandAll();
    for (const QString& key : collapsed)
        collapse(m_model->indexOfKey(key));
    const QModelIndex current = m_model->indexOfKey(m_currentKey);
    if (current.isValid())
        setCurrentIndex(current);
}

QString DesignView::keyOf(const QModelIndex& index) const
{
    return index.siblingAtColumn(DesignModel::NameColumn).data(DesignModel::KeyRole).toString();
}
