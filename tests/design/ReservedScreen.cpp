#include "design/ReservedScreen.h"

#include <QGuiApplication>
#include <QScreen>
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

// The program's own definitions come before those of the toolkit's libraries.
QScreen* QWidget::screen() const
{
    if (ReservedScreen::askedFor().isNull() && !isVisible())
        ReservedScreen::askedFor() = rect();
    return QGuiApplication::primaryScreen();
}

QRect QScreen::availableGeometry() const { return ReservedScreen::available(); }
