#include "host/app/ItemCommands.h"

#include "host/app/Commands.h"
#include "host/app/common/HostLog.h"
#include "host/app/DesignHistory.h"
#include "host/app/DesignModel.h"
#include "host/app/DesignRows.h"
#include "host/app/DesignSession.h"
#include "host/app/DesignView.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QToolBar>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::DesignManager;
using Qtilities::Logging::Logger;

ItemCommands::ItemCommands(DesignSession* session, DesignModel* model, DesignView* view,
                           QToolBar* toolBar)
    : QObject(view), m_session(session), m_model(model), m_view(view), m_toolBar(toolBar),
      m_add(Commands::add("Design.AddFiles", tr("&Add Files..."), QKeySequence("Ctrl+Shift+A"),
                          this, [this] { chooseFiles(); })),
      m_moveMenu(new QMenu(tr("&Move to"), view))
{
    m_add->setIcon(Commands::icon(QStyle::SP_FileIcon));
    m_moveMenu->setObjectName("MoveToMenu");
    Commands::menu("Design")->addMenu(m_moveMenu);

    m_remove = Commands::add("Design.Remove", tr("&Remove from Design"), QKeySequence::Delete, this,
                             [this] { removeSelected(); });
    // Text fields and the property editor use the key Delete for themselves.
    m_remove->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(m_remove);

    m_inspect = Commands::add("Design.Inspect", tr("&Inspect Image"), QKeySequence("Ctrl+I"), this,
                              [this] { inspect(); });
    m_openFolder = Commands::add("Design.OpenFolder", tr("Open &Folder"), QKeySequence(), this,
                                 [this] { openCurrentFolder(); });

    connect(m_moveMenu, &QMenu::aboutToShow, this, &ItemCommands::fillMoveMenu);
    connect(view, &DesignView::currentItemChanged, this, &ItemCommands::refreshExtensions);
    // A context menu asks the extensions as well, and may be that of another item.
    connect(view, &DesignView::menuShown, this, &ItemCommands::refreshExtensions);
    connect(view, &QAbstractItemView::activated, this, &ItemCommands::activate);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ItemCommands::refresh);
}

QList<QAction*> ItemCommands::ofFile() const
{
    return {m_inspect, m_openFolder, m_moveMenu->menuAction(), m_remove};
}

void ItemCommands::refresh()
{
    const Design* const design = m_view->currentDesign();
    const bool editable = design && !design->isLocked() && !design->isReadOnly();
    const DesignFile* const file = m_model->fileAt(m_view->currentIndex());
    const bool hasFiles = !m_view->selectedFiles().isEmpty();

    // When no design is open, adding files makes one.
    m_add->setEnabled(!design || editable);
    m_moveMenu->menuAction()->setEnabled(editable && hasFiles);
    m_remove->setEnabled(editable && (hasFiles || !m_view->selectedFolders().isEmpty()));
    // An invisible action cannot be enabled, so that this comes first.
    const bool isFcf = file && QStringList({"fcf", "txt"}).contains(file->suffix());
    m_inspect->setVisible(isFcf);
    m_inspect->setEnabled(isFcf);
    m_openFolder->setEnabled(design);
}

void ItemCommands::refreshExtensions()
{
    const QModelIndex current = m_view->currentIndex();
    DesignFile* const file = m_model->fileAt(current);
    Design* const design = m_view->currentDesign();

    QMenu* const menu = Commands::menu("Design");
    for (const QPointer<QAction>& action : m_shown) {
        menu->removeAction(action);
        m_toolBar->removeAction(action);
    }
    m_shown.clear();
    m_ofFile.clear();

    QList<QAction*> inMenu;
    QList<QAction*> onToolBar;
    if (design && !m_model->folderAt(current)) {
        const QString view = m_view->objectName();
        inMenu = ViewExtensions::actions(ViewExtensions::Menu, file, design, view);
        onToolBar = ViewExtensions::actions(ViewExtensions::ToolBar, file, design, view);
    }

    if (!m_separator)
        m_separator = menu->addSeparator();
    m_separator->setVisible(!inMenu.isEmpty());
    menu->addActions(inMenu);
    m_toolBar->addActions(inMenu + onToolBar);
    for (QAction* action : inMenu + onToolBar)
        m_shown << action;

    for (QAction* action : inMenu) {
        if (file)
            m_ofFile << action;
        connect(action, &QAction::triggered, this, &ItemCommands::logWhyNothingIsFilledIn,
                Qt::UniqueConnection);
    }
}

void ItemCommands::fillMoveMenu()
{
    m_moveMenu->clear();
    const Design* const design = m_view->currentDesign();
    const bool hasNodes = design && design->structure();
    for (const QString& node :
         hasNodes ? DesignRows::nodeNames(design->structure()->rootNode()) : QStringList()) {
        QAction* const action = m_moveMenu->addAction(QString(node).replace("&", "&&"));
        connect(action, &QAction::triggered, this, [this, node] { moveSelected(node); });
    }
    if (m_moveMenu->isEmpty())
        m_moveMenu->addAction(tr("The design has no nodes"))->setEnabled(false);
}

void ItemCommands::chooseFiles()
{
    Design* const design = m_view->currentDesign();
    const QModelIndex current = m_view->currentIndex();
    const QString node = m_model->isNode(current) ? m_model->nodeAt(current) : QString();
    const QStringList paths = QFileDialog::getOpenFileNames(
        m_view->window(), tr("Add Files"), design ? design->workingFolderPath() : QString());
    m_session->addPaths(paths, design, node);
}

void ItemCommands::removeSelected()
{
    Design* const design = m_view->currentDesign();
    const QList<DesignFile*> files = m_view->selectedFiles();
    const QList<DesignFolder*> folders = m_view->selectedFolders();
    if (!design || (files.isEmpty() && folders.isEmpty()))
        return;

    const auto count = files.count() + folders.count();
    const QString text = count == 1 ? tr("Remove Item") : tr("Remove %1 Items").arg(count);
    DesignHistory::record(design, text, [&] {
        design->tree()->startProcessingCycle();
        for (DesignFile* file : files)
            design->removeFile(file);
        for (DesignFolder* folder : folders)
            design->removeFolder(folder);
        design->tree()->endProcessingCycle();
    });
    refresh();
}

void ItemCommands::moveSelected(const QString& node)
{
    Design* const design = m_view->currentDesign();
    const QList<DesignFile*> files = m_view->selectedFiles();
    DesignHistory::record(design, tr("Move to %1").arg(node), [&] {
        design->tree()->startProcessingCycle();
        for (DesignFile* file : files)
            file->setCustomNode(node);
        design->tree()->endProcessingCycle();
    });
    design->refreshFiles(files);
}

void ItemCommands::activate(const QModelIndex& index)
{
    if (!m_model->fileAt(index) && !m_model->folderAt(index))
        m_view->setExpanded(index, !m_view->isExpanded(index));
    // The action of an extension comes first, since extensions give the file its purpose.
    else if (QAction* const first = m_ofFile.value(0))
        first->trigger();
    else if (m_inspect->isEnabled())
        inspect();
    else
        openCurrentFolder();
}

void ItemCommands::inspect()
{
    const DesignFile* const file = m_model->fileAt(m_view->currentIndex());
    if (file && m_inspect->isVisible())
        emit inspectionWanted(file->filePath());
}

void ItemCommands::openCurrentFolder()
{
    const QModelIndex current = m_view->currentIndex();
    const Design* const design = m_view->currentDesign();
    QString path = design ? design->workingFolderPath() : QString();
    if (const DesignFile* const file = m_model->fileAt(current))
        path = QFileInfo(file->filePath()).absolutePath();
    else if (const DesignFolder* const folder = m_model->folderAt(current))
        path = folder->folderPath();

    if (!path.isEmpty() && !QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        m_session->showError("CannotOpenBox",
                             tr("Cannot open the folder %1.").arg(QDir::toNativeSeparators(path)));
}

void ItemCommands::logWhyNothingIsFilledIn()
{
    const auto designs = DesignManager::instance()->designs().count();
    if (designs == 1)
        return;

    const auto* const action = qobject_cast<QAction*>(sender());
    HostLog::add(
        Logger::Info,
        tr("\"%1\" fills in nothing from a design, and adds no files to one: %2 designs are open. "
           "Close all but one for that.")
            .arg(action->text().remove('&'), QString::number(designs)));
}
