#include "MainWindow.h"

#include "LogPane.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QFileDialog>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QStatusBar>
#include <QTreeView>

#include <QMenuBar>

using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;

MainWindow::MainWindow(QWidget* parent) : QMainWindow(parent)
{
    setObjectName("MainWindow");
    setWindowTitle(tr("Pelk Design Host"));
    setWindowIcon(QIcon(":/icons/radar_128x128.png"));
    resize(960, 640);
    buildMenus();
    buildDesignView();
    buildLogDock();
    statusBar()->showMessage(tr("Ready"));
}

void MainWindow::buildMenus()
{
    auto* const actions = QtilitiesApplication::actionManager();
    const auto addMenu = [this, actions](const QString& id) {
        bool existed = false;
        ActionContainer* const container = actions->createMenu(id, existed);
        menuBar()->addMenu(container->menu());
        return container;
    };

    ActionContainer* const file = addMenu("File");
    Command* const open = actions->registerActionPlaceHolder(
        "File.OpenDesign", tr("&Open Design..."), QKeySequence::Open);
    connect(open->action(), &QAction::triggered, this, &MainWindow::chooseDesign);
    file->addAction(open);
    file->addSeparator();
    Command* const quit =
        actions->registerActionPlaceHolder("File.Quit", tr("&Quit"), QKeySequence::Quit);
    connect(quit->action(), &QAction::triggered, this, &MainWindow::close);
    file->addAction(quit);

    addMenu("Tools");
}

void MainWindow::buildDesignView()
{
    m_files = new QFileSystemModel(this);
    m_designView = new QTreeView(this);
    m_designView->setObjectName("MainDesignWidget");
    m_designView->setModel(m_files);
    m_designView->setAlternatingRowColors(true);
    m_designView->setSortingEnabled(true);
    m_designView->sortByColumn(0, Qt::AscendingOrder);
    m_designView->setColumnWidth(0, 380);
    m_designView->setVisible(false);
    setCentralWidget(m_designView);
}

void MainWindow::buildLogDock()
{
    auto* const dock = new QDockWidget(tr("Log"), this);
    dock->setObjectName("LogDock");
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(new LogPane(dock));
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {180}, Qt::Vertical);
}

void MainWindow::chooseDesign()
{
    const QString path = QFileDialog::getExistingDirectory(this, tr("Open Design"));
    if (!path.isEmpty())
        openDesign(path);
}

void MainWindow::openDesign(const QString& path)
{
    const QDir folder(path);
    if (!folder.exists()) {
        statusBar()->showMessage(tr("No such folder: %1").arg(QDir::toNativeSeparators(path)));
        return;
    }
    m_designView->setRootIndex(m_files->setRootPath(folder.absolutePath()));
    m_designView->setVisible(true);
    setWindowTitle(tr("%1 - Pelk Design Host").arg(folder.dirName()));
    statusBar()->showMessage(QDir::toNativeSeparators(folder.absolutePath()));
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    QMainWindow::closeEvent(event);
    // Windows of plug-ins do not keep a host alive that has been closed.
    if (event->isAccepted())
        QtilitiesApplication::closeAllWindows();
}
