#include "host/app/common/WindowPlace.h"

#include <QScreen>
#include <QWidget>

void resizeToScreen(QWidget* window, const QSize& wanted)
{
    // Before a window is shown its frame is not known; this is about what desktops draw.
    constexpr int Frame = 4;
    constexpr int TitleBar = 32;
    const QSize available = window->screen()->availableSize() - QSize(2 * Frame, TitleBar + Frame);
    window->resize(wanted.boundedTo(available));
}
