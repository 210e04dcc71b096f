#ifndef HOST_APP_COMMON_HOSTLOG_H
#define HOST_APP_COMMON_HOSTLOG_H

#include <QtilitiesLogging/Logger.h>

#include <QString>

/// What the host itself says in the log, where the plug-in's messages are, too.
namespace HostLog {

inline void add(Qtilities::Logging::Logger::MessageType type, const QString& text)
{
    Qtilities::Logging::Logger::instance()->logPriorityMessage(QString(), type, text);
}

} // namespace HostLog

#endif
