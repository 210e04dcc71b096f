// Another project's use of the installed SDK: starts the plug-ins in a folder and names one of
// them. Usage: consumer PLUGIN-FOLDER

#include <OrvanticCore/DesignManager.h>
#include <QtCreatorUtilities/DetailsWidget.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>

#include <QTextStream>

using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::ExtensionSystemCore;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

int main(int argc, char** argv)
{
    QtilitiesApplication application(argc, argv);
    ExtensionSystemCore* const extensions = ExtensionSystemCore::instance();
    extensions->addPluginPath(application.arguments().value(1));
    extensions->initialize();
    const IPlugin* const plugin = extensions->findPlugin(QLatin1String("ZORV VKT Plugin"));
    if (!plugin || !QtilitiesApplication::actionManager()->command("Tools.FcfGenerator"))
        return 1;
    QTextStream(stdout) << plugin->pluginName() << '\n';
    QtCreatorUtilities::DetailsWidget panel;
    const bool collapsed = panel.state() == QtCreatorUtilities::DetailsWidget::Collapsed;
    const bool hasUser = !OrvanticCore::DesignManager::instance()->currentUserName().isEmpty();
    extensions->finalize();
    return collapsed && hasUser ? 0 : 1;
}
