#include "host/app/MainWindow.h"

#include "host/app/Commands.h"
#include "host/app/common/WindowPlace.h"
#include "host/app/DesignCommands.h"
#include "host/app/DesignEditor.h"
#include "host/app/DesignModel.h"
#include "host/app/DesignSession.h"
#include "host/app/DesignView.h"
#include "host/app/HelpMenu.h"
#include "host/app/ImageInspector.h"
#include "host/app/ItemCommands.h"
#include "host/app/LogPane.h"
#include "host/app/StartPage.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QAction>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QScrollArea>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

const QSize InitialSize(1160, 760);
/// In characters and lines.
constexpr int PropertyWidth = 50;
constexpr int LogHeight = 8;

} // namespace

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), m_model(new DesignModel(this)), m_session(new DesignSession(this))
{
    // A static library's resources are not there by themselves.
    Q_INIT_RESOURCE(host);
    setObjectName("MainWindow");
    setWindowIcon(QIcon(":/icons/radar_128x128.png"));
    // Boxes that plug-ins show without a parent have the icon too.
    QtilitiesApplication::setWindowIcon(windowIcon());
    setAcceptDrops(true);
    resizeToScreen(this, InitialSize);
    buildCentre();
    buildMenus();
    buildDocks();
    buildViewMenu();
    connectDesigns();
    const QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    restoreGeometry(settings.value("MainWindow/geometry").toByteArray());
    restoreState(settings.value("MainWindow/state").toByteArray());
    // It may have been made on a larger screen.
    resizeToScreen(this, size());
    showCurrentDesign();
}

MainWindow::~MainWindow()
{
    // The model follows the designs, and goes before them.
    delete m_view;
    delete m_model;
}

void MainWindow::openDesign(const QString& path) { m_session->open(path); }

void MainWindow::inspect(const QString& path)
{
    findChild<ImageInspector*>()->inspect(path);
    m_inspectorDock->show();
    m_inspectorDock->raise();
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
    auto* const start = new StartPage;
    m_view = new DesignView(m_model);
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(start);
    m_pages->addWidget(m_view);
    setCentralWidget(m_pages);
    connect(start, &StartPage::chosen, this, [](const QString& command) {
        QtilitiesApplication::actionManager()->command(command)->action()->trigger();
    });
    connect(start, &StartPage::recentChosen, this, &MainWindow::openDesign);

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
    m_toolBar = addToolBar(tr("Tool Bar"));
    m_toolBar->setMovable(false);
    m_toolBar->setObjectName("ToolBar");
    const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
    m_toolBar->setIconSize(QSize(iconSize, iconSize));
    m_toolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    auto* const items = new ItemCommands(m_session, m_model, m_view, m_toolBar);
    new DesignCommands(m_session, m_view, items, m_toolBar, this);
    connect(items, &ItemCommands::inspectionWanted, this, &MainWindow::inspect);
    m_help = new HelpMenu(this);

    Commands::menu("File")->addSeparator();
    Commands::add("File.Quit", tr("&Quit"), QKeySequence("Ctrl+Q"), this, [this] { close(); });
}

void MainWindow::buildDocks()
{
    const auto makeDock = [this](const char* name, const QString& title, QWidget* body) {
        auto* const dock = new QDockWidget(title, this);
        dock->setObjectName(name);
        dock->setWidget(body);
        return dock;
    };
    m_editor = new DesignEditor;
    // A small screen, or a large font, has no room for all of it.
    auto* const scrolled = new QScrollArea;
    scrolled->setFocusPolicy(Qt::NoFocus);
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(m_editor);
    m_propertyDock = makeDock("PropertyDock", tr("Design Properties"), scrolled);
    m_inspectorDock = makeDock("InspectorDock", tr("Image"), new ImageInspector);
    m_logDock = makeDock("LogDock", tr("Log"), new LogPane);
    resetLayout();
}

void MainWindow::buildViewMenu()
{
    QMenu* const view = Commands::menu("View");
    for (const QDockWidget* dock : {m_propertyDock, m_inspectorDock, m_logDock})
        view->addAction(dock->toggleViewAction());
    view->addAction(m_toolBar->toggleViewAction());
    view->addSeparator();
    auto* const reset = new QAction(tr("&Reset Layout"), this);
    reset->setObjectName("View.ResetLayout");
    connect(reset, &QAction::triggered, this, &MainWindow::resetLayout);
    view->addAction(reset);
}

void MainWindow::connectDesigns()
{
    connect(m_session, &DesignSession::opened, this, [this](Design* design) {
        m_model->addDesign(design);
        connect(design, &Design::filesRefreshed, this,
                [this](const QList<OrvanticCore::DesignFile*>& files) {
                    m_model->refreshFromDisk();
                    m_view->showFiles(files);
                });
        connect(design, &Design::stateChanged, this, &MainWindow::showCurrentDesign);
        connect(design, &Design::modifiedChanged, this, &MainWindow::showCurrentDesign);
        showCurrentDesign();
    });
    connect(m_session, &DesignSession::aboutToClose, this, [this](Design* design) {
        m_model->removeDesign(design);
        showCurrentDesign();
    });
    connect(m_session, &DesignSession::chosen, m_view, &DesignView::setCurrentDesign);
    connect(m_view, &DesignView::currentItemChanged, this, &MainWindow::showCurrentDesign);
}

void MainWindow::showCurrentDesign()
{
    Design* const design = m_view->currentDesign();
    m_pages->setCurrentWidget(m_model->rowCount() > 0 ? m_view : m_pages->widget(0));
    m_editor->setDesign(design);
    setWindowTitle(design ? tr("%1[*] - Pelk Design Host").arg(design->name())
                          : tr("Pelk Design Host"));
    setWindowModified(design && design->isModified());
    m_path->setText(design ? QDir::toNativeSeparators(design->workingFolderPath()) : tr("Ready"));
    m_path->setToolTip(m_path->text().toHtmlEscaped());
    if (design)
        ViewExtensions::refresh(*design);
}

void MainWindow::resetLayout()
{
    // Step by step: restoring a state into docks that are tabs and float crashes in Qt 5.15.
    for (QDockWidget* dock : {m_propertyDock, m_inspectorDock, m_logDock})
        dock->setFloating(false);
    addDockWidget(Qt::RightDockWidgetArea, m_propertyDock);
    addDockWidget(Qt::RightDockWidgetArea, m_inspectorDock);
    addDockWidget(Qt::BottomDockWidgetArea, m_logDock);
    tabifyDockWidget(m_propertyDock, m_inspectorDock);
    m_inspectorDock->hide();
    m_propertyDock->show();
    m_logDock->show();
    m_toolBar->show();
    resizeDocks({m_propertyDock}, {PropertyWidth * fontMetrics().averageCharWidth()},
                Qt::Horizontal);
    resizeDocks({m_logDock}, {LogHeight * fontMetrics().lineSpacing()}, Qt::Vertical);
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
    // Windows of plug-ins do not keep a host alive that has been closed.
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
    const QModelIndex under = m_view->itemAt(m_view->mapFrom(this, event->pos()));
    Design* const design = under.isValid() ? m_model->designAt(under) : m_view->currentDesign();
    event->acceptProposedAction();
    m_session->addPaths(paths, design, m_model->nodeAt(under));
}
