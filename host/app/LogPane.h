#ifndef HOST_APP_LOGPANE_H
#define HOST_APP_LOGPANE_H

#include <QtilitiesLogging/Logger.h>

#include <QWidget>

class LogList;
class QAction;
class QBoxLayout;

/// The log with what the user does to it: choose kinds, wrap, copy, save, clear.
///
/// For drivers: "logMessages", "ShowInformationButton", "ShowWarningsButton", "ShowErrorsButton",
/// "WrapLogButton", "SaveLogButton".
class LogPane : public QWidget {
    Q_OBJECT

public:
    explicit LogPane(QWidget* parent = nullptr);

    LogList* list() const { return m_list; }

    /// Hides all messages but the errors, and goes to the last one.
    void showErrors();

signals:
    /// How many errors are in the log, hidden or not.
    void errorCountChanged(int count);

private:
    QAction* addAction(const QString& text, const QString& toolTip);
    /// Adds a choice that is a button as well.
    QAction* addChoice(const char* button, const QString& text, const QString& toolTip);
    void addButton(const char* name, QAction* action);
    void addKind(const char* button, Qtilities::Logging::Logger::MessageType kind,
                 const QString& text, const QString& toolTip);
    void showChosenKinds();
    void save();

    LogList* m_list = nullptr;
    QBoxLayout* m_buttons;
    /// Each has its kind as data.
    QList<QAction*> m_kinds;
};

#endif
