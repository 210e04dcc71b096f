#include "host/app/DesignCommands.h"

#include "host/app/archive/ArchiveDialog.h"
#include "host/app/DesignHistory.h"
#include "host/app/DesignModel.h"
#include "host/app/DesignSession.h"
#include "host/app/DesignStorage.h"
#include "host/app/DesignView.h"
#include "host/app/ItemActions.h"
#include "host/app/OpenDesignDialog.h"
#include "host/app/OpenDesigns.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QToolBar>
#include <QUndoGroup>
#include <QUndoStack>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

QMenu* menuNamed(const char* id) { return QtilitiesApplication::actionManager()->menu(id)->menu(); }

} // namespace

DesignCommands::DesignCommands(OpenDesigns* designs, DesignSession* session, DesignModel* model,
                               DesignView* view, QWidget* window)
    : QObject(window), m_designs(designs), m_session(session), m_model(model), m_view(view),
      m_window(window), m_history(new QUndoGroup(this))
{
    connect(view, &DesignView::currentItemChanged, this, &DesignCommands::refresh);
    // The view reports the current item before the last design has left the model.
    connect(model, &QAbstractItemModel::rowsRemoved, this, &DesignCommands::refresh);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DesignCommands::refresh);
    connect(view, &QAbstractItemView::activated, this, &DesignCommands::activate);
    connect(designs, &OpenDesigns::opened, this, [this](const Design* design) {
        m_history->addStack(DesignHistory::of(design));
        connect(design, &Design::stateChanged, this, &DesignCommands::refresh);
        connect(design, &Design::modifiedChanged, this, &DesignCommands::refresh);
    });
}

void DesignCommands::addTo(QToolBar* toolBar)
{
    addFileCommands();
    addEditCommands();
    addDesignCommands();
    toolBar->addActions({m_new, m_open, m_save});
    toolBar->addSeparator();
    toolBar->addActions({m_add, m_archive});
    toolBar->addSeparator();
    m_itemActions = new ItemActions(m_model, m_view, menuNamed("Design"), toolBar);
    m_view->setMenuActions({m_inspect, m_openFolder, m_moveMenu->menuAction(), m_remove},
                           {m_add, m_archive, m_openFolder, m_save, m_close});
    refresh();
}

void DesignCommands::addFileCommands()
{
    m_new = addCommand("File", "File.NewDesign", tr("&New Design..."), QKeySequence::New,
                       &DesignCommands::newDesign);
    setIcon(m_new, QStyle::SP_FileDialogNewFolder);
    m_open = addCommand("File", "File.OpenDesign", tr("&Open Design..."), QKeySequence::Open,
                        &DesignCommands::chooseDesign);
    setIcon(m_open, QStyle::SP_DialogOpenButton);
    m_recentMenu = addMenu("File", tr("Open &Recent"));
    m_recentMenu->setObjectName("RecentDesignsMenu");
    connect(menuNamed("File"), &QMenu::aboutToShow, this, &DesignCommands::fillRecentMenu);
    m_reload = addCommand("File", "File.ReloadDesign", QString(), QKeySequence::Refresh,
                          &DesignCommands::reloadCurrent);
    menuNamed("File")->addSeparator();
    m_save = addCommand("File", "File.SaveDesign", QString(), QKeySequence::Save,
                        &DesignCommands::saveCurrent);
    setIcon(m_save, QStyle::SP_DialogSaveButton);
    m_archive = addCommand("File", "File.ArchiveDesign", QString(), QKeySequence("Ctrl+R"),
                           &DesignCommands::archiveCurrent);
    m_archive->setIcon(QIcon(":/icons/config_output_16x16.png"));
    m_close = addCommand("File", "File.CloseDesign", QString(), QKeySequence("Ctrl+W"),
                         &DesignCommands::closeCurrent);
}

void DesignCommands::addEditCommands()
{
    QAction* const undo = m_history->createUndoAction(this, tr("&Undo"));
    undo->setObjectName("Edit.Undo");
    undo->setShortcut(QKeySequence::Undo);
    setIcon(undo, QStyle::SP_ArrowBack);
    QAction* const redo = m_history->createRedoAction(this, tr("&Redo"));
    redo->setObjectName("Edit.Redo");
    redo->setShortcuts(QKeySequence::Redo);
    setIcon(redo, QStyle::SP_ArrowForward);
    menuNamed("Edit")->addActions({undo, redo});
}

void DesignCommands::addDesignCommands()
{
    m_add = addCommand("Design", "Design.AddFiles", tr("&Add Files..."),
                       QKeySequence("Ctrl+Shift+A"), &DesignCommands::addFiles);
    setIcon(m_add, QStyle::SP_FileIcon);
    m_moveMenu = addMenu("Design", tr("&Move to"));
    m_moveMenu->setObjectName("MoveToMenu");
    connect(m_moveMenu, &QMenu::aboutToShow, this, &DesignCommands::fillMoveMenu);
    m_remove = addCommand("Design", "Design.Remove", tr("&Remove from Design"),
                          QKeySequence::Delete, &DesignCommands::removeSelected);
    // Delete means something else to text fields and to the property editor.
    m_remove->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(m_remove);
    m_inspect = addCommand("Design", "Design.Inspect", tr("&Inspect Image"), QKeySequence("Ctrl+I"),
                           &DesignCommands::inspect);
    m_openFolder = addCommand("Design", "Design.OpenFolder", tr("Open &Folder"), QKeySequence(),
                              &DesignCommands::openFolder);
    menuNamed("Design")->addSeparator();
    m_lock = addCommand("Design", "Design.Locked", tr("&Locked"), QKeySequence("Ctrl+L"), nullptr);
    m_lock->setCheckable(true);
    connect(m_lock, &QAction::triggered, this, &DesignCommands::setLocked);
}

QAction* DesignCommands::addCommand(const QString& menu, const QString& id, const QString& text,
                                    const QKeySequence& shortcut, Slot slot)
{
    Command* const command =
        QtilitiesApplication::actionManager()->registerActionPlaceHolder(id, text, shortcut);
    QtilitiesApplication::actionManager()->menu(menu)->addAction(command);
    if (slot)
        connect(command->action(), &QAction::triggered, this, slot);
    return command->action();
}

QMenu* DesignCommands::addMenu(const QString& menu, const QString& text)
{
    // Of the window: the menus of the action manager outlive it.
    auto* const added = new QMenu(text, m_window);
    QtilitiesApplication::actionManager()->menu(menu)->menu()->addMenu(added);
    return added;
}

void DesignCommands::setIcon(QAction* action, QStyle::StandardPixmap pixmap)
{
    action->setIcon(QApplication::style()->standardIcon(pixmap));
}

void DesignCommands::refresh()
{
    const Design* const design = m_view->currentDesign();
    const bool editable = design && !design->isLocked() && !design->isReadOnly();
    const DesignFile* const file = m_model->fileAt(m_view->currentIndex());
    const bool hasFiles = !m_view->selectedFiles().isEmpty();
    nameDesign(m_save, tr("&Save Design"), tr("&Save \"%1\""));
    nameDesign(m_reload, tr("Re&load Design"), tr("Re&load \"%1\""));
    nameDesign(m_archive, tr("&Archive Design..."), tr("&Archive \"%1\"..."));
    nameDesign(m_close, tr("&Close Design"), tr("&Close \"%1\""));
    nameDesign(m_lock, tr("&Locked"), tr("&Lock \"%1\""));
    m_save->setEnabled(design && !design->isReadOnly() && design->isModified());
    m_reload->setEnabled(design);
    m_archive->setEnabled(design);
    m_close->setEnabled(design);
    // Without a design it makes a new one.
    m_add->setEnabled(!design || editable);
    m_moveMenu->menuAction()->setEnabled(editable && hasFiles);
    m_remove->setEnabled(editable && (hasFiles || !m_view->selectedFolders().isEmpty()));
    // Visible first: an invisible action cannot be enabled.
    const bool isFcf = file && QStringList({"fcf", "txt"}).contains(file->suffix());
    m_inspect->setVisible(isFcf);
    m_inspect->setEnabled(isFcf);
    m_openFolder->setEnabled(design);
    m_lock->setEnabled(design && !design->isReadOnly());
    m_lock->setChecked(design && design->isLocked());
    m_history->setActiveStack(editable ? DesignHistory::of(design) : nullptr);
}

void DesignCommands::nameDesign(QAction* action, const QString& plain, const QString& named)
{
    const Design* const design = m_view->currentDesign();
    const bool isOneOfMany = design && m_designs->designs().count() > 1;
    action->setText(isOneOfMany ? named.arg(design->name().replace("&", "&&")) : plain);
}

void DesignCommands::fillRecentMenu()
{
    m_recentMenu->clear();
    for (const QString& folder : DesignSession::recentFolders()) {
        QAction* const action =
            m_recentMenu->addAction(QDir::toNativeSeparators(folder).replace("&", "&&"));
        connect(action, &QAction::triggered, this, [this, folder] { m_session->open(folder); });
    }
    m_recentMenu->setEnabled(!m_recentMenu->isEmpty());
}

void DesignCommands::fillMoveMenu()
{
    m_moveMenu->clear();
    const Design* const design = m_view->currentDesign();
    for (const QString& node : design ? DesignModel::nodesOf(design) : QStringList()) {
        QAction* const action = m_moveMenu->addAction(QString(node).replace("&", "&&"));
        connect(action, &QAction::triggered, this, [this, node] { moveSelected(node); });
    }
    if (m_moveMenu->isEmpty())
        m_moveMenu->addAction(tr("The design has no nodes"))->setEnabled(false);
}

void DesignCommands::newDesign() { m_session->make(QString()); }

void DesignCommands::chooseDesign()
{
    const QString path = OpenDesignDialog::choose(m_window);
    if (!path.isEmpty())
        m_session->open(path);
}

void DesignCommands::saveCurrent() { m_session->save(m_view->currentDesign()); }

void DesignCommands::reloadCurrent() { m_session->reload(m_view->currentDesign()); }

void DesignCommands::archiveCurrent()
{
    Design* const design = m_view->currentDesign();
    const QString name =
        QFileInfo(DesignStorage::descriptionPath(design->workingFolderPath())).fileName();
    archiveDesign(design, {name, [design] { return DesignStorage::text(*design); }}, m_window);
}

void DesignCommands::closeCurrent() { m_session->close(m_view->currentDesign()); }

void DesignCommands::addFiles()
{
    Design* const design = m_view->currentDesign();
    const QModelIndex current = m_view->currentIndex();
    const QString node = m_model->isNode(current) ? m_model->nodeAt(current) : QString();
    const QStringList paths = QFileDialog::getOpenFileNames(
        m_window, tr("Add Files"), design ? design->workingFolderPath() : QString());
    m_session->addPaths(paths, design, node);
}

void DesignCommands::removeSelected()
{
    Design* const design = m_view->currentDesign();
    const QList<DesignFile*> files = m_view->selectedFiles();
    const QList<DesignFolder*> folders = m_view->selectedFolders();
    if (!design || (files.isEmpty() && folders.isEmpty()))
        return;
    const int count = files.count() + folders.count();
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

void DesignCommands::moveSelected(const QString& node)
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

void DesignCommands::activate(const QModelIndex& index)
{
    if (!m_model->fileAt(index) && !m_model->folderAt(index)) {
        m_view->setExpanded(index, !m_view->isExpanded(index));
        return;
    }
    // What an extension does with the file comes first: it is what the file is there for.
    if (m_itemActions->triggerFirst())
        return;
    if (m_inspect->isEnabled())
        inspect();
    else
        openFolder();
}

void DesignCommands::inspect()
{
    const DesignFile* const file = m_model->fileAt(m_view->currentIndex());
    if (file && m_inspect->isVisible())
        emit inspectionWanted(file->filePath());
}

void DesignCommands::openFolder()
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

void DesignCommands::setLocked(bool locked) { m_view->currentDesign()->setLocked(locked); }
