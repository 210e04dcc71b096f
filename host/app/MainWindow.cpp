#include "host/app/MainWindow.h"

#include "host/app/Commands.h"
#include "host/app/common/WindowPlace.h"
#include "host/app/DesignCommands.h"
#include "host/app/DesignModel.h"
#include "host/app/DesignSession.h"
#include "host/app/DesignView.h"
#include "host/app/HelpMenu.h"
#include "host/app/image/FileState.h"
#include "host/app/image/RemakeCommands.h"
#include "host/app/ItemCommands.h"
#include "host/app/LogList.h"
#include "host/app/Panes.h"
#include "host/app/ViewExtensions.h"
#include "toolkit/QtDifferences.h"
#include "ui_MainWindow.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QStatusBar>
#include <QStyle>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::Logging::Logger;

namespace {

const QSize InitialSize(1160, 760);
/// The width is in characters, the height in lines.
constexpr int PropertyWidth = 50;
constexpr int LogHeight = 10;
constexpr int PageHeight = 16;

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), m_ui(new Ui::MainWindow), m_model(new DesignModel(this)),
      m_session(new DesignSession(this))
{
    // The resources of a static library have to be loaded.
    Q_INIT_RESOURCE(host);
    m_ui->setupUi(this);

    setWindowIcon(QIcon(":/icons/radar_128x128.png"));
    // Boxes that plug-ins show without a parent have the icon, too.
    QtilitiesApplication::setWindowIcon(windowIcon());

    resizeToScreen(this, InitialSize);
    buildCentre();
    buildMenus();
    buildViewMenu();
    buildErrorCount();
    resetLayout();
    connectDesigns();

    const QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    restoreGeometry(settings.value("MainWindow/geometry").toByteArray());
    restoreState(settings.value("MainWindow/state").toByteArray());
    // The stored size may be that of a larger screen.
    resizeToScreen(this, size());

    showCurrentDesign();
}

MainWindow::~MainWindow()
{
    // A window that is deleted while it is shown hides its docks last.
    for (const QDockWidget* dock : docks())
        disconnect(dock, nullptr, this, nullptr);
    // The model follows the designs, so that it is deleted before them.
    delete m_view;
    delete m_model;
}

void MainWindow::openDesign(const QString& path) { m_session->open(path); }

void MainWindow::inspect(const QString& path)
{
    m_ui->inspector->inspect(path);
    m_ui->page->inspect(path);
    m_ui->InspectorDock->show();
    m_ui->InspectorDock->raise();
}

void MainWindow::open(const QString& path)
{
    const QFileInfo file(path);
    if (file.isFile() && file.suffix().compare("fcf", Qt::CaseInsensitive) == 0)
        inspect(file.absoluteFilePath());
    else
        openDesign(path);
}

void MainWindow::restoreSession() { m_session->restoreLast(); }

void MainWindow::setPluginFolders(const QStringList& folders) { m_help->setPluginFolders(folders); }

void MainWindow::buildCentre()
{
    m_view = new DesignView(m_model);
    m_ui->pages->addWidget(m_view);
    connect(m_ui->startPage, &StartPage::chosen, this, [](const QString& command) {
        QtilitiesApplication::actionManager()->command(command)->action()->trigger();
    });
    connect(m_ui->CloseOthersButton, &QPushButton::clicked, this,
            [this] { m_session->closeOthers(m_view->currentDesign()); });
    connect(m_ui->startPage, &StartPage::recentChosen, this, &MainWindow::openDesign);

    m_path = new QLabel(this);
    m_path->setObjectName("DesignPath");
    m_path->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long path is cut off instead of making the window wider.
    m_path->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    statusBar()->addPermanentWidget(m_path, 1);
}

void MainWindow::buildMenus()
{
    auto* const actions = QtilitiesApplication::actionManager();
    const QList<QPair<QString, QString>> menus{{"File", tr("&File")},     {"Edit", tr("&Edit")},
                                               {"Design", tr("&Design")}, {"View", tr("&View")},
                                               {"Tools", tr("&Tools")},   {"Help", tr("&Help")}};
    for (const auto& [id, title] : menus) {
        bool existed = false;
        QMenu* const menu = actions->createMenu(id, existed)->menu();
        menu->setTitle(title);
        menu->setToolTipsVisible(true);
        menuBar()->addMenu(menu);
    }

    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_ui->ToolBar->setIconSize(QSize(iconSize, iconSize));
    auto* const items = new ItemCommands(m_session, m_model, m_view, m_ui->ToolBar);
    const auto* const remakes = new RemakeCommands(m_session, m_view);
    m_view->setFileActions(QList<QAction*>{remakes->makeAgain()} + items->ofFile());
    new DesignCommands(m_session, m_view, items, *remakes, m_ui->ToolBar, this);
    connect(items, &ItemCommands::inspectionWanted, this, &MainWindow::inspect);
    connect(m_ui->log->list(), &LogList::inspectionWanted, this, &MainWindow::inspect);
    m_help = new HelpMenu(this);

    Commands::menu("File")->addSeparator();
    Commands::add("File.Quit", tr("&Quit"), QKeySequence("Ctrl+Q"), this, [this] { close(); });
}

void MainWindow::buildViewMenu()
{
    QMenu* const view = Commands::menu("View");
    m_ui->PropertyDock->toggleViewAction()->setText(tr("Design &Properties"));
    m_ui->InspectorDock->toggleViewAction()->setText(tr("I&mage"));
    m_ui->PageDock->toggleViewAction()->setText(tr("&Header Page"));
    m_ui->LogDock->toggleViewAction()->setText(tr("&Log"));
    m_ui->ToolBar->toggleViewAction()->setText(tr("&Tool Bar"));
    for (const QDockWidget* dock : docks())
        view->addAction(dock->toggleViewAction());
    view->addAction(m_ui->ToolBar->toggleViewAction());

    view->addSeparator();
    m_panes = new Panes(this, docks());
    view->addMenu(m_panes->makeMenu());
    connect(m_ui->inspector, &ImageInspector::pageWanted, this,
            [this] { m_panes->goTo(m_ui->PageDock); });
    connect(m_panes, &Panes::opened, this, [this](const QDockWidget* dock) {
        if (dock == m_ui->PageDock)
            growTo(m_ui->PageDock, PageHeight);
    });
    view->addSeparator();
    auto* const reset = new QAction(tr("&Reset Layout"), this);
    reset->setObjectName("View.ResetLayout");
    connect(reset, &QAction::triggered, this, &MainWindow::resetLayout);
    view->addAction(reset);
}

void MainWindow::buildErrorCount()
{
    auto* const show = new QAction(tr("&Errors in the Log"), this);
    show->setObjectName("View.Errors");
    show->setShortcut(QKeySequence("Ctrl+E"));
    show->setEnabled(false);
    Commands::menu("View")->addAction(show);
    connect(show, &QAction::triggered, this, [this] {
        m_panes->goTo(m_ui->LogDock);
        m_ui->log->showErrors();
    });

    auto* const button = new QPushButton(this);
    button->setObjectName("ErrorCount");
    button->setFlat(true);
    button->setIcon(Commands::icon(QStyle::SP_MessageBoxCritical));
    button->setToolTip(tr("Show the errors in the log (Ctrl+E)"));
    button->hide();
    statusBar()->addPermanentWidget(button);
    connect(button, &QPushButton::clicked, show, &QAction::trigger);
    connect(m_ui->log, &LogPane::errorCountChanged, this, [show, button](int count) {
        show->setEnabled(count > 0);
        button->setVisible(count > 0);
        button->setText(count == 1 ? tr("1 error") : tr("%1 errors").arg(count));
    });
}

void MainWindow::connectDesigns()
{
    connect(m_session, &DesignSession::opened, this, [this](Design* design) {
        m_model->addDesign(design);
        connect(design, &Design::filesRefreshed, this, [this](const QList<DesignFile*>& files) {
            m_model->refreshFromDisk();
            m_view->showFiles(files);
            inspectCurrent();
            logStates(files);
        });
        connect(design, &Design::stateChanged, this, &MainWindow::showCurrentDesign);
        connect(design, &Design::modifiedChanged, this, &MainWindow::showCurrentDesign);
        showCurrentDesign();
    });

    connect(m_session, &DesignSession::aboutToClose, this, [this](Design* design) {
        m_model->removeDesign(design);
        showCurrentDesign();
    });

    connect(m_session, &DesignSession::chosen, this, [this](const Design* design) {
        m_view->setCurrentDesign(design);
        // Else the first key would go into the box of the version.
        m_view->setFocus();
    });
    connect(m_view, &DesignView::currentItemChanged, this, &MainWindow::showCurrentDesign);
    connect(m_view, &DesignView::currentItemChanged, this, &MainWindow::inspectCurrent);
    connect(m_model, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex& changed, const QModelIndex&, const QVector<int>& roles) {
                // What this tooltip says of a file has changed: its size, its date, what is wrong.
                const QModelIndex current = m_view->currentIndex();
                if (changed == current.siblingAtColumn(DesignModel::StateColumn) &&
                    roles.contains(Qt::ToolTipRole))
                    inspectCurrent();
            });
    for (const QDockWidget* dock : {m_ui->InspectorDock, m_ui->PageDock})
        connect(dock, &QDockWidget::visibilityChanged, this, &MainWindow::inspectCurrent);
}

void MainWindow::inspectCurrent()
{
    // A pane that is closed, or behind another tab, is disabled.
    const DesignFile* const file = m_model->fileAt(m_view->currentIndex());
    const bool isFcf = file && QStringList({"fcf", "txt"}).contains(file->suffix());
    if (!isFcf)
        return;

    if (m_ui->InspectorDock->isVisible() && m_ui->inspector->isEnabled())
        m_ui->inspector->inspect(file->filePath());
    if (m_ui->PageDock->isVisible() && m_ui->page->isEnabled())
        m_ui->page->inspect(file->filePath());
}

void MainWindow::showSeveralDesigns()
{
    const int count = m_model->rowCount();
    m_ui->SeveralDesigns->setVisible(count > 1);
    m_ui->SeveralDesignsText->setText(
        tr("%1 designs are open. The generator is filled in, and adds its files, only when one is.")
            .arg(count));
    m_ui->CloseOthersButton->setEnabled(m_view->currentDesign());
}

void MainWindow::logStates(const QList<DesignFile*>& files)
{
    for (const DesignFile* file : files) {
        const FileState state = FileState::of(*file);
        const QString name = file->fileName();
        if (!state.invalid.isEmpty())
            m_ui->log->list()->addLink(Logger::Error,
                                       tr("%1 is not valid: %2").arg(name, state.invalid),
                                       file->filePath());
        else if (state.isGenerated && !state.outdated.isEmpty())
            m_ui->log->list()->addLink(
                Logger::Warning, tr("%1 is outdated: %2").arg(name, state.outdated.join("; ")),
                file->filePath());
    }
}

void MainWindow::showCurrentDesign()
{
    Design* const design = m_view->currentDesign();
    const bool hasDesigns = m_model->rowCount() > 0;
    m_ui->pages->setCurrentWidget(hasDesigns ? static_cast<QWidget*>(m_view) : m_ui->startPage);
    m_ui->editor->setDesign(design);
    showSeveralDesigns();

    setWindowTitle(design ? tr("%1[*] - Pelk Design Host").arg(design->name())
                          : tr("Pelk Design Host"));
    setWindowModified(design && design->isModified());

    m_path->setText(design ? QDir::toNativeSeparators(design->workingFolderPath()) : tr("Ready"));
    m_path->setToolTip(m_path->text().toHtmlEscaped());

    if (design)
        ViewExtensions::refresh(*design);
}

void MainWindow::growTo(QDockWidget* dock, int lines)
{
    layout()->activate();
    const int room = centralWidget()->height() + dock->height();
    // The designs keep two fifths of it.
    const int height = qMin(lines * fontMetrics().lineSpacing(), room * 3 / 5);
    if (dock->height() < height)
        resizeDocks({dock}, {height}, Qt::Vertical);
}

QList<QDockWidget*> MainWindow::docks() const
{
    return {m_ui->PropertyDock, m_ui->InspectorDock, m_ui->LogDock, m_ui->PageDock};
}

void MainWindow::resetLayout()
{
    // Qt 5.15 crashes when a state is restored into docks that are tabs and float. So each dock is
    // put in its place by itself.
    for (QDockWidget* dock : docks())
        dock->setFloating(false);

    addDockWidget(Qt::RightDockWidgetArea, m_ui->PropertyDock);
    addDockWidget(Qt::RightDockWidgetArea, m_ui->InspectorDock);
    addDockWidget(Qt::BottomDockWidgetArea, m_ui->LogDock);
    addDockWidget(Qt::BottomDockWidgetArea, m_ui->PageDock);
    tabifyDockWidget(m_ui->PropertyDock, m_ui->InspectorDock);
    tabifyDockWidget(m_ui->LogDock, m_ui->PageDock);

    m_ui->InspectorDock->hide();
    m_ui->PageDock->hide();
    m_ui->PropertyDock->show();
    m_ui->LogDock->show();
    m_ui->ToolBar->show();

    resizeDocks({m_ui->PropertyDock}, {PropertyWidth * fontMetrics().averageCharWidth()},
                Qt::Horizontal);
    resizeDocks({m_ui->LogDock}, {LogHeight * fontMetrics().lineSpacing()}, Qt::Vertical);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_session->mayCloseAll()) {
        event->ignore();
        return;
    }

    QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    settings.setValue("MainWindow/geometry", saveGeometry());
    settings.setValue("MainWindow/state", saveState());
    m_session->rememberOpen();

    QMainWindow::closeEvent(event);
    // A host that was closed ends, even if a plug-in still shows a window.
    if (event->isAccepted())
        QtilitiesApplication::closeAllWindows();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls()) {
        if (url.isLocalFile())
            paths << url.toLocalFile();
    }

    const QModelIndex under = m_view->itemAt(m_view->mapFrom(this, Toolkit::positionOf(event)));
    Design* const design = under.isValid() ? m_model->designAt(under) : m_view->currentDesign();
    event->acceptProposedAction();
    m_session->addPaths(paths, design, m_model->nodeAt(under));
}
