#include "host/app/HostFixture.h"

#include "host/app/DesignModel.h"
#include "support/TestFile.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>

#include <QDir>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QtTest>
#include <QWindow>

#include <algorithm>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::ExtensionSystemCore;

namespace {

const char Description[] = R"({
    "format": 1,
    "type": "Firmware Design",
    "version": { "major": 1, "minor": 4, "changes": "Clock corrected" },
    "files": [ { "path": "top.bin", "node": "Bit-stream Files" } ],
    "properties": [
        { "name": "ZORV Pelk Module", "value": "GPM", "category": ["Target"] },
        { "name": "ZORV Pelk Device", "value": "Processing_FPGA_2", "category": ["Target"] },
        { "name": "ZORV Pelk Config Number", "value": 3, "category": ["Target"] }
    ],
    "structure": {
        "nodes": [ { "name": "Firmware", "nodes": [ { "name": "Bit-stream Files" } ] },
                   { "name": "Other Files" } ],
        "associations": [ { "pattern": "*.bit", "node": "Bit-stream Files" } ],
        "unassignedNode": "Other Files"
    }
}
)";

QMenu* openMenu()
{
    const bool open =
        QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }, 2000);
    return open ? qobject_cast<QMenu*>(QApplication::activePopupWidget()) : nullptr;
}

} // namespace

HostFixture::HostFixture()
{
    DesignManager::instance()->setSettingsFilePath(path("settings/host.ini"));
    show();
    ExtensionSystemCore::instance()->addPluginPath(ZORV_PLUGIN_FOLDER);
    ExtensionSystemCore::instance()->initialize();
}

HostFixture::~HostFixture()
{
    for (OrvanticCore::IDesign* design : DesignManager::instance()->designs())
        dynamic_cast<Design*>(design)->setModified(false);
    QApplication::closeAllWindows();
    // The generator deletes itself only once events run.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_window.reset();
    DesignManager::instance()->setSettingsFilePath(QString());
}

void HostFixture::restart()
{
    m_window.reset();
    show();
}

void HostFixture::show()
{
    m_window.reset(new MainWindow);
    QtilitiesApplication::setMainWindow(m_window.data());
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.data()))
        qFatal("the host shows no window");
}

QString HostFixture::writeFile(const QString& name, const QByteArray& bytes) const
{
    QDir().mkpath(QFileInfo(path(name)).absolutePath());
    return TestFile::write(path(name), bytes);
}

QByteArray HostFixture::bytesOf(const QString& name) const
{
    return TestFile::readIfPossible(path(name));
}

QString HostFixture::makeDesign(const QString& name) const
{
    writeFile(name + "/top.bin", QByteArray(5000, 'b'));
    writeFile(name + "/design.json", Description);
    return path(name);
}

Design* HostFixture::openDesign(const QString& name)
{
    m_window->openDesign(makeDesign(name));
    const auto designs = DesignManager::instance()->designs();
    return designs.isEmpty() ? nullptr : dynamic_cast<Design*>(designs.last());
}

QAction* HostFixture::action(const char* id) const
{
    return QtilitiesApplication::actionManager()->command(id)->action();
}

QModelIndex HostFixture::item(const QString& name) const
{
    const QAbstractItemModel* const model = view()->model();
    return model
        ->match(model->index(0, 0), Qt::DisplayRole, name, 1,
                Qt::MatchStartsWith | Qt::MatchCaseSensitive | Qt::MatchRecursive)
        .value(0);
}

QStringList HostFixture::row(const QString& name) const
{
    QStringList texts;
    const QModelIndex index = item(name);
    for (int column = 0; index.isValid() && column <= DesignModel::VersionColumn; ++column)
        texts << index.siblingAtColumn(column).data().toString();
    return texts;
}

QStringList HostFixture::log() const
{
    QStringList messages;
    const QAbstractItemModel* const model = child<QTreeView>("logMessages")->model();
    for (int row = 0; row < model->rowCount(); ++row)
        messages << model->index(row, 2).data().toString();
    return messages;
}

void HostFixture::activate() const
{
    m_window->activateWindow();
    if (!QTest::qWaitForWindowActive(m_window.data()))
        qFatal("the host's window does not come to the front");
}

void HostFixture::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    activate();
    QTest::keyClick(m_window.data(), key, modifiers);
}

QMenu* HostFixture::menuByMouse(const QString& name) const
{
    const QModelIndex index = item(name);
    view()->scrollTo(index);
    const QPoint place = view()->visualRect(index).center();
    // Through the window, which makes a context menu event of the click.
    QTest::mouseClick(m_window->windowHandle(), Qt::RightButton, {},
                      view()->viewport()->mapTo(m_window.data(), place));
    return openMenu();
}

QMenu* HostFixture::menuByKey(const QString& name) const
{
    view()->setFocus();
    QTest::keyClick(view(), Qt::Key_Home);
    for (int steps = 0; steps < 100 && view()->currentIndex() != item(name); ++steps)
        QTest::keyClick(view(), Qt::Key_Down);
    QTest::keyClick(view(), Qt::Key_F10, Qt::ShiftModifier);
    return openMenu();
}

void HostFixture::drop(const QString& name, const QString& path) const
{
    const QPoint place =
        view()->viewport()->mapTo(m_window.data(), view()->visualRect(item(name)).center());
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});

    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.data(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.data(), &event);
}

QMenu* HostFixture::menu(const QString& title) const
{
    activate();
    QMenuBar* const bar = m_window->menuBar();
    for (QAction* action : bar->actions()) {
        if (action->text().remove('&') != title)
            continue;
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(action).center());
        return openMenu();
    }
    return nullptr;
}

QStringList HostFixture::entriesOf(const QMenu* menu)
{
    QStringList entries;
    for (const QAction* action : menu->actions()) {
        if (!action->isSeparator() && action->isVisible())
            entries << action->text().remove('&');
    }
    return entries;
}

bool HostFixture::choose(QMenu* menu, const QString& entry)
{
    for (QAction* action : menu->actions()) {
        if (action->text().remove('&') != entry)
            continue;
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        return true;
    }
    return false;
}

QWidget* HostFixture::generator()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == "PelkFcfGenerator" && widget->isVisible())
            return widget;
    }
    return nullptr;
}

int openDesigns() { return DesignManager::instance()->designs().count(); }

int runHostTest(QObject* test, int argc, char** argv)
{
    QtilitiesApplication application(argc, argv);
    // Windows come and go between tests.
    QApplication::setQuitOnLastWindowClosed(false);
    const int result = QTest::qExec(test, argc, argv);
    // The plug-in leaves the window of the Tools menu to the end of the process, which is here.
    QWidgetList left = QApplication::topLevelWidgets();
    left.erase(std::remove_if(left.begin(), left.end(),
                              [](const QWidget* window) {
                                  return window->objectName() != "PelkFcfGenerator";
                              }),
               left.end());
    qDeleteAll(left);
    return result;
}
