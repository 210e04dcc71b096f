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

QPointer<ActionRegister>& actionsGuard()
{
    static QPointer<ActionRegister> actions;
    return actions;
}

} // namespace

QtilitiesApplication::QtilitiesApplication(int& argc, char** argv) : QApplication(argc, argv) {}

QtilitiesApplication::~QtilitiesApplication()
{
    // Its menus are widgets: Qt 4 lets none go once QApplication has closed the display.
    delete actionsGuard();
}

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
    if (!actionsGuard())
        actionsGuard() = new ActionRegister(qApp);
    return actionsGuard();
}

void QtilitiesApplication::setMainWindow(QWidget* window) { mainWindowGuard() = window; }

QWidget* QtilitiesApplication::mainWindow() { return mainWindowGuard(); }

} // namespace CoreGui
} // namespace Qtilities
