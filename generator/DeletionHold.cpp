#include "generator/DeletionHold.h"

#include <QCoreApplication>
#include <QEvent>

#include <new>

namespace {

/// Takes its window with it. Qt drops a second deleteLater() of one object, so that another object
/// has to wait for the event loop in place of the window.
class LateDeletion : public QObject {
public:
    explicit LateDeletion(QObject* window) : m_window(window) {}
    ~LateDeletion() override
    {
        // Not by delete: another hold may have come in between.
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
    // Without memory for it the window stays hidden: a destructor must not throw.
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
