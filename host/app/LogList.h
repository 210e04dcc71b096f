#ifndef HOST_APP_LOGLIST_H
#define HOST_APP_LOGLIST_H

#include <QtilitiesLogging/Logger.h>

#include <QTreeWidget>

/// Lists the logger's priority messages, the newest last, each with its time and kind. Lists what
/// other kinds there are as information, and fatal messages as errors.
class LogList : public QTreeWidget {
    Q_OBJECT

public:
    explicit LogList(QWidget* parent = nullptr);

    /// Adds a message with a link to the image at \p path.
    void addLink(Qtilities::Logging::Logger::MessageType type, const QString& text,
                 const QString& path);

    void removeAll();

    /// Shows the messages whose kinds, as bits, are in \p kinds, and hides the others.
    void setShownKinds(int kinds);
    /// Continues long messages on further lines, or cuts them off.
    void setWrapped(bool wrapped);

    int errorCount() const;
    /// The messages that are shown, or those of them that are selected, a line each.
    enum Scope { Shown, Selected };
    QString text(Scope scope) const;

    /// Copies the selected messages, or all that are shown when none is selected.
    void copy() const;

signals:
    /// Messages were added or removed.
    void changed();
    /// The user has followed a link.
    void inspectionWanted(const QString& path);

private:
    QTreeWidgetItem* addMessage(Qtilities::Logging::Logger::MessageType type, const QString& text);
    void follow(const QTreeWidgetItem* item);
    void hideOrShow(QTreeWidgetItem* item) const;

    int m_shownKinds;
};

#endif
