#ifndef TESTS_E2E_ENDTOENDPLUGIN_H
#define TESTS_E2E_ENDTOENDPLUGIN_H

#include "support/DriverPlugin.h"

/// Runs the scenario, and ends the host with exit code 0 if every step succeeded, else with 1.
class EndToEndPlugin : public DriverPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")

public:
    EndToEndPlugin() : DriverPlugin("PELK_E2E_DESIGN") {}

protected:
    void run() override;
};

#endif
