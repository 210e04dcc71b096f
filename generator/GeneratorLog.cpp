#include "generator/GeneratorLog.h"

#include <QCoreApplication>

using Qtilities::Logging::Logger;

void GeneratorLog::write(Logger::MessageType type, const QString& text)
{
    Logger::instance()->logPriorityMessage(
        QString(), type,
        QCoreApplication::translate("PelkFcfGenerator", "Pelk FCF Generator: %1").arg(text));
}
