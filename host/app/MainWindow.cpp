#include "host/app/MainWindow.h"

#include "host/app/DesignCommands.h"
#include "host/app/DesignDetails.h"
#include "host/app/DesignModel.h"
#include "host/app/DesignView.h"
#include "host/app/LogPane.h"
#include "host/app/OpenDesigns.h"
#include "host/app/PropertyEditor.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QBoxLayout>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;

MainWindow::MainWindow(QWidget* parent)
    : QMainWindow(parent), m_designs(new OpenDesigns(this)), m_model(new DesignModel(this))
{
    // A static library's resources are not there by themselves.
    Q_INIT_RESOURCE(host);
    setObjectName("MainWindow");
    setWindowIcon(QIcon(":/icons/radar_128x128.png"));
    setAcceptDrops(true);
    resize(1080, 760);
    buildCentre();
    buildMenus();
    buildPropertyDock();
    buildLogDock();
    connectDesigns();
    restoreLayout();
    showCurrentDesign();
}

MainWindow::~MainWindow()
{
    // The model follows the designs, and goes before them.
    delete m_view;
    delete m_model;
}

void MainWindow::openDesign(const QString& path) { m_commands->openDesign(path); }

void MainWindow::buildCentre()
{
    auto* const hint = new QLabel(tr("<h3>No design is open</h3>"
                                     "<p>Open one or make a new one from the File menu,<br>"
                                     "or drop a design's folder, or files for a new design, "
                                     "here.</p>"));
    hint->setObjectName("NoDesignHint");
    hint->setAlignment(Qt::AlignCenter);
    m_view = new DesignView(m_model);
    m_pages = new QStackedWidget(this);
    m_pages->addWidget(hint);
    m_pages->addWidget(m_view);
    setCentralWidget(m_pages);
}

void MainWindow::buildMenus()
{
    auto* const actions = QtilitiesApplication::actionManager();
    for (const char* id : {"File", "Design", "Tools"}) {
        bool existed = false;
        QMenu* const menu = actions->createMenu(id, existed)->menu();
        menu->setTitle(QString("&%1").arg(id));
        menuBar()->addMenu(menu);
    }
    m_commands = new DesignCommands(m_designs, m_model, m_view, this);
    m_commands->addToMenus();

    ActionContainer* const file = actions->menu("File");
    file->addSeparator();
    Command* const quit =
        actions->registerActionPlaceHolder("File.Quit", tr("&Quit"), QKeySequence("Ctrl+Q"));
    connect(quit->action(), &QAction::triggered, this, &MainWindow::close);
    file->addAction(quit);
}

void MainWindow::buildPropertyDock()
{
    auto* const dock = new QDockWidget(tr("Design Properties"), this);
    dock->setObjectName("PropertyDock");
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    auto* const body = new QWidget(dock);
    m_details = new DesignDetails(body);
    m_properties = new PropertyEditor(body);
    auto* const layout = new QVBoxLayout(body);
    layout->addWidget(m_details);
    layout->addWidget(m_properties, 1);
    dock->setWidget(body);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    resizeDocks({dock}, {430}, Qt::Horizontal);
}

void MainWindow::buildLogDock()
{
    auto* const dock = new QDockWidget(tr("Log"), this);
    dock->setObjectName("LogDock");
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(new LogPane(dock));
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {160}, Qt::Vertical);
}

void MainWindow::connectDesigns()
{
    connect(m_designs, &OpenDesigns::opened, this, [this](Design* design) {
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
    connect(m_designs, &OpenDesigns::aboutToClose, this, [this](Design* design) {
        m_model->removeDesign(design);
        showCurrentDesign();
    });
    connect(m_view, &DesignView::currentItemChanged, this, &MainWindow::showCurrentDesign);
}

void MainWindow::showCurrentDesign()
{
    Design* const design = m_view->currentDesign();
    m_pages->setCurrentWidget(design ? m_view : m_pages->widget(0));
    m_details->setDesign(design);
    m_properties->setDesign(design);
    setWindowTitle(design ? tr("%1[*] - Pelk Design Host").arg(design->name())
                          : tr("Pelk Design Host"));
    setWindowModified(design && design->isModified());
    statusBar()->showMessage(design ? QDir::toNativeSeparators(design->workingFolderPath())
                                    : tr("Ready"));
    if (design)
        ViewExtensions::refresh(*design);
}

void MainWindow::restoreLayout()
{
    QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    restoreGeometry(settings.value("MainWindow/geometry").toByteArray());
    restoreState(settings.value("MainWindow/state").toByteArray());
}

void MainWindow::saveLayout() const
{
    QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    settings.setValue("MainWindow/geometry", saveGeometry());
    settings.setValue("MainWindow/state", saveState());
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (!m_commands->mayCloseAll()) {
        event->ignore();
        return;
    }
    saveLayout();
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
    Design* const under = m_view->designAt(m_view->mapFrom(this, event->pos()));
    event->acceptProposedAction();
    m_commands->takePaths(paths, under ? under : m_view->currentDesign());
}
