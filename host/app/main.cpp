#include "host/app/Catalogues.h"
#include "host/app/MainWindow.h"
#include "host/app/PluginList.h"
#include "toolkit/QtDifferences.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>

#include <QCommandLineParser>
#include <QDir>

using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::ExtensionSystemCore;

namespace {

struct HostTexts {
    Q_DECLARE_TR_FUNCTIONS(main)
};

/// Where the build and an installation both keep the plug-ins, seen from the program.
QString defaultPluginPath()
{
    return QDir(QCoreApplication::applicationDirPath()).absoluteFilePath("../lib/zorv/plugins");
}

} // namespace

int main(int argc, char** argv)
{
    QtilitiesApplication application(argc, argv);
    QCoreApplication::setApplicationName("pelk-host");
    QCoreApplication::setOrganizationName("ZORV");
    QCoreApplication::setApplicationVersion(PELK_HOST_VERSION);
    // Desktops find the window's icon and menu entry by it.
    QGuiApplication::setDesktopFileName("pelk-host");

    Catalogues::install("qtbase", Toolkit::translationsFolder());
    Catalogues::install("pelk-host", ":/translations");

    QCommandLineParser parser;
    parser.setApplicationDescription(HostTexts::tr("Reference host for design plug-ins."));
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption pluginPath(
        "plugin-path", HostTexts::tr("Load the plug-ins in <folder>; may be repeated."), "folder",
        defaultPluginPath());
    parser.addOption(pluginPath);
    parser.addPositionalArgument(
        "path", HostTexts::tr("Folder of a design, or an image to inspect."), "[path...]");
    parser.process(application);

    MainWindow window;
    QtilitiesApplication::setMainWindow(&window);

    const QStringList folders = parser.values(pluginPath);
    for (const QString& path : folders)
        ExtensionSystemCore::instance()->addPluginPath(path);
    Catalogues::installForPlugins(folders);
    ExtensionSystemCore::instance()->initialize();
    PluginList::logMissing(folders);
    window.setPluginFolders(folders);
    window.show();

    if (parser.positionalArguments().isEmpty())
        window.restoreSession();
    for (const QString& path : parser.positionalArguments())
        window.open(path);

    const int result = QtilitiesApplication::exec();
    ExtensionSystemCore::instance()->finalize();
    return result;
}
