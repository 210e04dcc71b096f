#include "e2e/EndToEndPlugin.h"

#include "e2e/Scenario.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

bool EndToEndPlugin::initialize(const QStringList&, QStringList* error_strings)
{
    const bool configured = !qEnvironmentVariableIsEmpty("PELK_E2E_DESIGN");
    if (!configured)
        error_strings->append("PELK_E2E_DESIGN names no design");
    return configured;
}

bool EndToEndPlugin::initializeDependencies(QStringList*)
{
    QTimer::singleShot(0, this, &EndToEndPlugin::runScenario);
    return true;
}

void EndToEndPlugin::runScenario()
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
