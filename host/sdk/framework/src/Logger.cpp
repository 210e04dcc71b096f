#include <QtilitiesLogging/Logger.h>

#include <QStringList>

namespace Qtilities {
namespace Logging {

Logger::Logger() {}

Logger::~Logger() {}

Logger* Logger::instance()
{
    static Logger logger;
    return &logger;
}

void Logger::logPriorityMessage(const QString& engine_name, Logger::MessageType message_type,
                                const QVariant& message, const QVariant& msg1, const QVariant& msg2)
{
    // The stand-in has no engines: each message goes to all listeners.
    Q_UNUSED(engine_name)

    QStringList parts(message.toString());
    if (msg1.isValid())
        parts.append(msg1.toString());
    if (msg2.isValid())
        parts.append(msg2.toString());
    emit newPriorityMessage(message_type, parts.join(QLatin1String(" ")));
}

} // namespace Logging
} // namespace Qtilities
