#include "generator/FormFit.h"

#include "toolkit/QtDifferences.h"

#include <QEvent>
#include <QLayout>
#include <QMainWindow>
#include <QScrollArea>

namespace {

/// The usual height of the frame that a desktop draws around a window. The real one is known only
/// once the window is shown.
const int FrameHeight = 36;

/// Updates the layouts from \p widget up to \p top, which otherwise wait for the event loop.
void updateLayouts(QWidget* widget, const QWidget* top)
{
    while (widget) {
        if (widget->layout()) {
            widget->layout()->invalidate();
            widget->layout()->activate();
        }
        if (widget == top)
            return;
        widget = widget->parentWidget();
    }
}

} // namespace

FormFit::FormFit(QMainWindow* window, QScrollArea* area, const QList<QWidget*>& bodies)
    : QObject(window), m_window(window), m_area(area), m_wasShown(false)
{
    // A form that is cut off at the right could only be used by scrolling to and fro.
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setMinimumWidth(m_area->widget()->minimumSizeHint().width());
    m_window->resize(qMin(m_window->width(), availableSize().width()),
                     qMin(m_window->height(), availableSize().height()));
    m_window->installEventFilter(this);
    for (QWidget* body : bodies)
        body->installEventFilter(this);
}

bool FormFit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_window)
        handleWindowEvent(event->type());
    else
        handleBodyEvent(static_cast<QWidget*>(watched), event->type());
    return QObject::eventFilter(watched, event);
}

void FormFit::handleWindowEvent(QEvent::Type type)
{
    if (type != QEvent::Show || m_wasShown)
        return;
    m_wasShown = true;

    // Before a window is shown, its widgets have no sizes yet.
    updateLayouts(m_area->widget(), m_area->widget());
    m_window->layout()->activate();
    m_window->centralWidget()->layout()->activate();

    growWide();
    grow();
}

void FormFit::handleBodyEvent(QWidget* body, QEvent::Type type)
{
    if (!m_window->isVisible() || m_window->isMaximized() || m_window->isFullScreen())
        return;

    if (type == QEvent::ShowToParent) {
        const int before = m_window->height();
        updateLayouts(body, m_area->widget());
        growWide();
        grow();
        m_grown[body] = m_window->height() - before;
    } else if (type == QEvent::HideToParent) {
        shrink(m_grown.contains(body) ? m_grown.take(body) : spareHeight(body));
        updateLayouts(body->parentWidget(), m_area->widget());
    }
}

void FormFit::growWide()
{
    // With a large font, the form needs more than the usual width.
    const int missing = m_area->widget()->sizeHint().width() - m_area->width();
    const int room = availableSize().width() - m_window->width();
    if (missing > 0 && room > 0)
        m_window->resize(m_window->width() + qMin(missing, room), m_window->height());
}

void FormFit::grow()
{
    m_area->setMinimumWidth(m_area->widget()->minimumSizeHint().width());

    const int missing = m_area->widget()->sizeHint().height() - m_area->height();
    const int room = availableSize().height() - m_window->height();
    if (missing > 0 && room > 0)
        m_window->resize(m_window->width(), m_window->height() + qMin(missing, room));

    moveUp();
}

/// A window that has grown beyond the lower edge of the screen moves up.
void FormFit::moveUp()
{
    const QRect available = Toolkit::availableGeometry(m_window);
    // A window whose frame is not known yet is moved without it: the frame needs room above.
    const bool isFramed = m_window->frameGeometry() != m_window->geometry();
    const int frame = isFramed ? 0 : FrameHeight;

    const int below = m_window->geometry().bottom() + frame - available.bottom();
    if (below > 0)
        m_window->move(m_window->x(), qMax(available.top() + frame, m_window->y() - below));
}

void FormFit::shrink(int height)
{
    if (height > 0)
        m_window->resize(m_window->width(), m_window->height() - height);
}

int FormFit::spareHeight(const QWidget* body) const
{
    const int hidden = m_area->widget()->height() - m_area->height();
    return body->height() - qMax(0, hidden);
}

QSize FormFit::availableSize() const
{
    return Toolkit::availableGeometry(m_window).size() - QSize(0, FrameHeight);
}
