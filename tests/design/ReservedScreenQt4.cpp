#include "design/ReservedScreen.h"

#include <QDesktopWidget>
#include <QWidget>

QRect& ReservedScreen::available()
{
    static QRect available(0, 0, 1280, 960);
    return available;
}

QRect& ReservedScreen::askedFor()
{
    static QRect askedFor;
    return askedFor;
}

// The program's own definition comes before that of the toolkit's library.
const QRect QDesktopWidget::availableGeometry(const QWidget* window) const
{
    if (ReservedScreen::askedFor().isNull() && !window->isVisible())
        ReservedScreen::askedFor() = window->rect();
    return ReservedScreen::available();
}
