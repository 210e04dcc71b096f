#ifndef GENERATOR_DELETIONHOLD_H
#define GENERATOR_DELETIONHOLD_H

#include <QObject>
#include <QPointer>

/// Puts off the deletion of a window that is closed while one of its functions lets events run, as
/// an open dialog does: the function goes on with the window afterwards. A deletion that became
/// due meanwhile is left to the event loop when the hold ends.
class DeletionHold : public QObject {
public:
    /// Until the hold ends, \p window may be deleted by nothing but deleteLater(), as closing does.
    /// Not owned.
    explicit DeletionHold(QObject* window) : m_window(window), m_isDue(false)
    {
        window->installEventFilter(this);
    }
    ~DeletionHold() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Q_DISABLE_COPY(DeletionHold)

    QPointer<QObject> m_window;
    bool m_isDue;
};

#endif
