#include "generator/DeletionHold.h"

#include <QCoreApplication>
#include <QEvent>

#include <new>

namespace {

/// Deletes its window when it is deleted itself. Qt drops a second deleteLater() of one object, so
/// that this object waits for the event loop in place of the window.
class LateDeletion : public QObject {
public:
    explicit LateDeletion(QObject* window) : m_window(window) {}
    ~LateDeletion() override
    {
        // An event, since another hold may have come in between and must see it.
        QEvent deletion(QEvent::DeferredDelete);
        if (m_window)
            QCoreApplication::sendEvent(m_window, &deletion);
    }

private:
    Q_DISABLE_COPY(LateDeletion)

    QPointer<QObject> m_window;
};

} // namespace

DeletionHold::~DeletionHold()
{
    if (!m_window || !m_isDue)
        return;
    // A destructor must not throw: when memory is short, the window stays hidden.
    if (LateDeletion* const deletion = new (std::nothrow) LateDeletion(m_window))
        deletion->deleteLater();
}

bool DeletionHold::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::DeferredDelete)
        return QObject::eventFilter(watched, event);
    m_isDue = true;
    return true;
}
