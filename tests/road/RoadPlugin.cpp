#include "RoadPlugin.h"

#include "Road.h"

#include <QCoreApplication>
#include <QTextStream>
#include <QTimer>

bool RoadPlugin::initialize(const QStringList&, QStringList* error_strings)
{
    const bool configured = !qEnvironmentVariableIsEmpty("PELK_ROAD_DESIGN");
    if (!configured)
        error_strings->append("PELK_ROAD_DESIGN names no design");
    return configured;
}

bool RoadPlugin::initializeDependencies(QStringList*)
{
    QTimer::singleShot(0, this, &RoadPlugin::drive);
    return true;
}

void RoadPlugin::drive()
{
    Road road(qEnvironmentVariable("PELK_ROAD_DESIGN"),
              qEnvironmentVariable("PELK_ROAD_SCREENSHOT"));
    try {
        if (qEnvironmentVariableIsSet("PELK_ROAD_RESTARTED"))
            road.driveAfterRestart();
        else
            road.drive();
        QTextStream(stdout) << road.report() << Qt::flush;
        QCoreApplication::exit(0);
    } catch (const RoadBlock& block) {
        QTextStream(stdout) << road.report() << Qt::flush;
        QTextStream(stderr) << "The road ended early: " << block.what() << '\n' << Qt::flush;
        QCoreApplication::exit(1);
    }
}
