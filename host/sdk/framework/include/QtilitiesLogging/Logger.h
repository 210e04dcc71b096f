#ifndef QTILITIESLOGGING_LOGGER_H
#define QTILITIESLOGGING_LOGGER_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QObject>
#include <QVariant>

namespace Qtilities {
namespace Logging {

/// Takes messages from everywhere in the application. Made on first use, lives until the process
/// ends; callers never delete it. GUI thread only.
class QTILITIES_SHARED_EXPORT Logger : public QObject {
    Q_OBJECT
    Q_ENUMS(MessageType)

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
    /// Shows a message to the user at once, besides logging it. An empty \p engine_name means every
    /// logger engine. The further messages, as far as they are valid, follow the first one, each
    /// after a blank.
    void logPriorityMessage(const QString& engine_name, Logger::MessageType message_type,
                            const QVariant& message, const QVariant& msg1 = QVariant(),
                            const QVariant& msg2 = QVariant());

Q_SIGNALS:
    void newPriorityMessage(Logger::MessageType message_type, const QString& formatted_message);

private:
    Logger();
    ~Logger() override;
    Q_DISABLE_COPY(Logger)
};

} // namespace Logging
} // namespace Qtilities

#endif
