#include "host/app/common/WindowPlace.h"

#include <QScreen>
#include <QWidget>

void resizeToScreen(QWidget* window, const QSize& wanted)
{
    // The frame of a window is not known before it is shown. Desktops draw about this much.
    constexpr int Frame = 4;
    constexpr int TitleBar = 32;
    const QSize available = window->screen()->availableSize() - QSize(2 * Frame, TitleBar + Frame);
    window->resize(wanted.boundedTo(available));
}
