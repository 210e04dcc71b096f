#ifndef FRAMEWORK_LOGGER_H
#define FRAMEWORK_LOGGER_H

#include "QtilitiesCore_global.h"

#include <QObject>
#include <QVariant>

namespace Qtilities {
namespace Logging {

class QTILITIES_CORE_EXPORT Logger : public QObject {
    Q_OBJECT

public:
    enum MessageType {
        None = 1,
        Info = 2,
        Warning = 4,
        Error = 8,
        Fatal = 16,
        Debug = 32,
        Trace = 64
    };
    static Logger* instance();

public Q_SLOTS:
    void logPriorityMessage(const QString& engine_name, Logger::MessageType message_type,
                            const QVariant& message, const QVariant& msg1 = QVariant(),
                            const QVariant& msg2 = QVariant(), const QVariant& msg3 = QVariant());

Q_SIGNALS:
    void newPriorityMessage(Logger::MessageType message_type, const QString& formatted_message);

private:
    bool m_initialized;
};

} // namespace Logging
} // namespace Qtilities

#define Log Qtilities::Logging::Logger::instance()
#define LOG_INFO(message)                                                                          \
    Log->logPriorityMessage(QString(), Qtilities::Logging::Logger::Info, message)

#endif
