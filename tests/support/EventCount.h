#ifndef TESTS_SUPPORT_EVENTCOUNT_H
#define TESTS_SUPPORT_EVENTCOUNT_H

#include <QEvent>
#include <QObject>

/// Counts the events of one kind that an object gets, for example QEvent::ZOrderChange, which a
/// window gets when it is raised.
class EventCount : public QObject {
public:
    EventCount(QObject* watched, QEvent::Type type) : m_type(type)
    {
        watched->installEventFilter(this);
    }

    int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == m_type)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    QEvent::Type m_type;
    int m_count = 0;
};

#endif
