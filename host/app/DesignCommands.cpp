#include "host/app/DesignCommands.h"

#include "host/app/archive/ArchiveDialog.h"
#include "host/app/Commands.h"
#include "host/app/DesignHistory.h"
#include "host/app/DesignSession.h"
#include "host/app/DesignStorage.h"
#include "host/app/DesignView.h"
#include "host/app/image/FileState.h"
#include "host/app/image/RemakeCommands.h"
#include "host/app/ItemCommands.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QToolBar>
#include <QUndoGroup>
#include <QUndoStack>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;

namespace {

/// Chooses a design: its description, or the folder that has one.
class OpenDesignDialog : public QFileDialog {
public:
    using QFileDialog::QFileDialog;

protected:
    void accept() override
    {
        // A file dialog does not accept a folder, so that it is closed without asking it.
        if (DesignStorage::hasDescription(selectedFiles().value(0)))
            done(QDialog::Accepted);
        else
            QFileDialog::accept();
    }
};

} // namespace

DesignCommands::DesignCommands(DesignSession* session, DesignView* view, ItemCommands* items,
                               const RemakeCommands& remakes, QToolBar* toolBar, QWidget* window)
    : QObject(window), m_session(session), m_view(view), m_items(items), m_window(window),
      m_history(new QUndoGroup(this))
{
    addFileCommands();
    addEditCommands();

    Commands::menu("Design")->addSeparator();
    m_lock = Commands::add("Design.Locked", tr("&Locked"), QKeySequence("Ctrl+L"), this,
                           [this] { m_view->currentDesign()->setLocked(m_lock->isChecked()); });
    m_lock->setCheckable(true);

    // On a small screen the words are for what is done more often.
    for (QAction* action : {m_new, m_open, m_save})
        action->setPriority(QAction::LowPriority);
    toolBar->addActions({m_new, m_open, m_save});
    toolBar->addSeparator();
    toolBar->addActions({m_items->addFiles(), m_archive});
    toolBar->addSeparator();
    toolBar->addAction(remakes.makeAgain());
    m_view->setDesignActions({m_items->addFiles(), remakes.makeAllAgain(), m_archive,
                              m_items->openFolder(), m_save, m_close});

    connect(view, &DesignView::currentItemChanged, this, &DesignCommands::refresh);
    // The view reports its current item while the last design is still in the model.
    connect(view->model(), &QAbstractItemModel::rowsRemoved, this, &DesignCommands::refresh);
    connect(session, &DesignSession::opened, this, [this](const Design* design) {
        m_history->addStack(DesignHistory::of(design));
        connect(design, &Design::stateChanged, this, &DesignCommands::refresh);
        connect(design, &Design::modifiedChanged, this, &DesignCommands::refresh);
    });
    refresh();
}

void DesignCommands::addFileCommands()
{
    m_new = Commands::add("File.NewDesign", tr("&New Design..."), QKeySequence::New, this,
                          [this] { m_session->make(QString()); });
    m_new->setIcon(Commands::icon(QStyle::SP_FileDialogNewFolder));

    m_open = Commands::add("File.OpenDesign", tr("&Open Design..."), QKeySequence::Open, this,
                           [this] { chooseDesign(); });
    m_open->setIcon(Commands::icon(QStyle::SP_DialogOpenButton));

    // The menu belongs to the window, since the menus of the action manager outlive the window.
    m_recentMenu = new QMenu(tr("Open &Recent"), m_window);
    m_recentMenu->setObjectName("RecentDesignsMenu");
    Commands::menu("File")->addMenu(m_recentMenu);
    connect(Commands::menu("File"), &QMenu::aboutToShow, this, &DesignCommands::fillRecentMenu);

    m_reload = Commands::add("File.ReloadDesign", QString(), QKeySequence::Refresh, this,
                             [this] { m_session->reload(m_view->currentDesign()); });
    Commands::menu("File")->addSeparator();
    m_save = Commands::add("File.SaveDesign", QString(), QKeySequence::Save, this,
                           [this] { m_session->save(m_view->currentDesign()); });
    m_save->setIcon(Commands::icon(QStyle::SP_DialogSaveButton));

    m_archive = Commands::add("File.ArchiveDesign", QString(), QKeySequence("Ctrl+R"), this,
                              [this] { archiveCurrent(); });
    m_archive->setIcon(QIcon(":/icons/config_output_16x16.png"));

    m_close = Commands::add("File.CloseDesign", QString(), QKeySequence("Ctrl+W"), this,
                            [this] { m_session->close(m_view->currentDesign()); });
}

void DesignCommands::addEditCommands()
{
    QAction* const undo = m_history->createUndoAction(this, tr("&Undo"));
    undo->setObjectName("Edit.Undo");
    undo->setShortcut(QKeySequence::Undo);
    undo->setIcon(Commands::icon(QStyle::SP_ArrowBack));

    QAction* const redo = m_history->createRedoAction(this, tr("&Redo"));
    redo->setObjectName("Edit.Redo");
    redo->setShortcuts(QKeySequence::Redo);
    redo->setIcon(Commands::icon(QStyle::SP_ArrowForward));

    Commands::menu("Edit")->addActions({undo, redo});
}

void DesignCommands::refresh()
{
    const Design* const design = m_view->currentDesign();
    const bool editable = design && !design->isLocked() && !design->isReadOnly();

    nameDesign(m_save, tr("&Save Design"), tr("&Save \"%1\""));
    nameDesign(m_reload, tr("Re&load Design"), tr("Re&load \"%1\""));
    nameDesign(m_archive, tr("&Archive Design..."), tr("&Archive \"%1\"..."));
    nameDesign(m_close, tr("&Close Design"), tr("&Close \"%1\""));
    nameDesign(m_lock, tr("&Locked"), tr("&Lock \"%1\""));

    m_save->setEnabled(design && !design->isReadOnly() && design->isModified());
    m_reload->setEnabled(design);
    m_archive->setEnabled(design);
    m_close->setEnabled(design);
    m_lock->setEnabled(design && !design->isReadOnly());
    m_lock->setChecked(design && design->isLocked());

    m_history->setActiveStack(editable ? DesignHistory::of(design) : nullptr);
    m_items->refresh();
}

void DesignCommands::nameDesign(QAction* action, const QString& plain, const QString& named)
{
    const Design* const design = m_view->currentDesign();
    const bool isOneOfMany = design && DesignManager::instance()->designs().count() > 1;
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

void DesignCommands::chooseDesign()
{
    const QStringList recent = DesignSession::recentFolders();
    OpenDesignDialog dialog(m_window, tr("Open Design"),
                            recent.isEmpty() ? QString() : QFileInfo(recent.first()).absolutePath(),
                            tr("Designs (design.json)"));
    dialog.setObjectName("OpenDesignDialog");
    // The dialog of the desktop takes either a file or a folder, not both.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted)
        m_session->open(dialog.selectedFiles().constFirst());
}

void DesignCommands::archiveCurrent()
{
    Design* const design = m_view->currentDesign();
    const QStringList lines = FileState::linesOf(*design);
    if (!lines.isEmpty() && !m_session->mayArchive(*design, lines))
        return;

    const QString name =
        QFileInfo(DesignStorage::descriptionPath(design->workingFolderPath())).fileName();
    archiveDesign(design, {name, [design] { return DesignStorage::text(*design); }}, m_window);
}
