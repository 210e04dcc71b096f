#include "support/LoadedPlugin.h"

#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QtTest>

using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

IPlugin* LoadedPlugin::load()
{
    m_instance = m_loader.instance();
    IPlugin* const plugin = qobject_cast<IPlugin*>(m_instance);
    if (!plugin)
        qFatal("%s", qPrintable(m_loader.errorString()));
    return plugin;
}

void LoadedPlugin::start() { load()->initialize(QStringList(), nullptr); }

void LoadedPlugin::end()
{
    qDeleteAll(generatorWindows());
    qDeleteAll(registered("QObject"));
    delete m_instance;
    delete QtilitiesApplication::actionManager();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QList<QWidget*> LoadedPlugin::generatorWindows()
{
    QList<QWidget*> windows;
    foreach (QWidget* window, QApplication::topLevelWidgets()) {
        if (window->inherits("PelkFcfGenerator"))
            windows << window;
    }
    return windows;
}

void LoadedPlugin::waitUntilActive(const QWidget* window)
{
    QElapsedTimer timer;
    timer.start();
    while (QApplication::activeWindow() != window && timer.elapsed() < 2000)
        QTest::qWait(1);
}

QList<QObject*> LoadedPlugin::registered(const char* identifier)
{
    return QtilitiesCoreApplication::objectManager()->registeredInterfaces(
        QLatin1String(identifier));
}
