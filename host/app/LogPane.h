#ifndef HOST_APP_LOGPANE_H
#define HOST_APP_LOGPANE_H

#include <QtilitiesLogging/Logger.h>

#include <QTreeView>

class QStandardItemModel;

/// Lists the logger's priority messages, the newest last, each with its time and kind.
class LogPane : public QTreeView {
    Q_OBJECT

public:
    explicit LogPane(QWidget* parent = nullptr);

public slots:
    void addMessage(Qtilities::Logging::Logger::MessageType type, const QString& text);

private:
    QStandardItemModel* m_messages;
};

#endif
