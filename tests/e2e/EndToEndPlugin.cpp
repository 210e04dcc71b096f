#include "e2e/EndToEndPlugin.h"

#include "e2e/Scenario.h"

#include <QCoreApplication>
#include <QTextStream>

void EndToEndPlugin::run()
{
    Scenario scenario(qEnvironmentVariable("PELK_E2E_DESIGN"),
                      qEnvironmentVariable("PELK_E2E_SCREENSHOT"));
    try {
        if (qEnvironmentVariableIsSet("PELK_E2E_RESTARTED"))
            scenario.runAfterRestart();
        else
            scenario.run();
        QTextStream(stdout) << scenario.report() << Qt::flush;
        QCoreApplication::exit(0);
    } catch (const StepFailed& failure) {
        QTextStream(stdout) << scenario.report() << Qt::flush;
        QTextStream(stderr) << "The scenario failed: " << failure.what() << '\n' << Qt::flush;
        QCoreApplication::exit(1);
    }
}

#include "moc_EndToEndPlugin.cpp"
