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

    /// The selected messages, or all when none is selected, a line each.
    QString text() const;

public slots:
    void copy();
    void clear();
    void addMessage(Qtilities::Logging::Logger::MessageType type, const QString& text);

private:
    void addAction(const QString& text, const QKeySequence& shortcut, void (LogPane::*slot)());

    QStandardItemModel* m_messages;
};

#endif
