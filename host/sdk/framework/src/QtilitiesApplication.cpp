#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include "host/sdk/framework/src/ActionRegister.h"

#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include <QPointer>
#include <QWidget>

namespace Qtilities {
namespace CoreGui {

namespace {

QPointer<QWidget>& mainWindowGuard()
{
    static QPointer<QWidget> window;
    return window;
}

} // namespace

QtilitiesApplication::QtilitiesApplication(int& argc, char** argv) : QApplication(argc, argv) {}

QtilitiesApplication::~QtilitiesApplication() {}

Core::Interfaces::IObjectManager* QtilitiesApplication::objectManager()
{
    return Core::QtilitiesCoreApplication::objectManager();
}

Core::Interfaces::IContextManager* QtilitiesApplication::contextManager()
{
    return Core::QtilitiesCoreApplication::contextManager();
}

Interfaces::IActionManager* QtilitiesApplication::actionManager()
{
    // A child of the application object: its menus are widgets and must go before that object does.
    static QPointer<ActionRegister> actions;
    if (!actions)
        actions = new ActionRegister(qApp);
    return actions;
}

void QtilitiesApplication::setMainWindow(QWidget* window) { mainWindowGuard() = window; }

QWidget* QtilitiesApplication::mainWindow() { return mainWindowGuard(); }

} // namespace CoreGui
} // namespace Qtilities
