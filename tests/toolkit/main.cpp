#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <OrvanticCore/DesignManager.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QScopedPointer>
#include <QtTest>

namespace {

int run(QObject* test, int argc, char** argv)
{
    const QScopedPointer<QObject> owner(test);
    return QTest::qExec(test, argc, argv);
}

} // namespace

/// PELK_PLUGINS names another folder with the plug-in than that of the build; SCREENSHOTS a folder
/// that takes pictures of the window.
int main(int argc, char** argv)
{
    Qtilities::CoreGui::QtilitiesApplication application(argc, argv);
    const WorkFolder settings;
    OrvanticCore::DesignManager::instance()->setSettingsFilePath(
        settings.path(QLatin1String("host.ini")));
    const QByteArray folder = qgetenv("PELK_PLUGINS");
    Host host(folder.isEmpty() ? QString::fromUtf8(ZORV_PLUGIN_FOLDER) : QFile::decodeName(folder));
    if (!host.plugin())
        qFatal("%s", qPrintable(host.takeMessages().join(QLatin1String("\n"))));

    int failures = run(newIdentityTest(), argc, argv);
    failures += run(newFormTest(), argc, argv);
    failures += run(newSizesTest(), argc, argv);
    failures += run(newFunctionsTest(), argc, argv);
    failures += run(newFilesTest(), argc, argv);
    failures += run(newDesignActionsTest(), argc, argv);
    failures += run(newPackageNameTest(), argc, argv);
    return failures == 0 ? 0 : 1;
}
