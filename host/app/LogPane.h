#ifndef HOST_APP_LOGPANE_H
#define HOST_APP_LOGPANE_H

#include <QtilitiesLogging/Logger.h>

#include <QTreeWidget>

/// Lists the logger's priority messages, the newest last, each with its time and kind.
class LogPane : public QTreeWidget {
    Q_OBJECT

public:
    explicit LogPane(QWidget* parent = nullptr);

    /// Adds a message with a link to the image at \p path.
    void addLink(Qtilities::Logging::Logger::MessageType type, const QString& text,
                 const QString& path);

signals:
    /// The user has followed a link.
    void inspectionWanted(const QString& path);

private:
    QAction* addMenuAction(const QString& text);
    /// The selected messages, or all when none is selected, a line each.
    void copy();
    QTreeWidgetItem* addMessage(Qtilities::Logging::Logger::MessageType type, const QString& text);
    void follow(const QTreeWidgetItem* item);
};

#endif
