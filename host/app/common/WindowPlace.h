#ifndef HOST_APP_COMMON_WINDOWPLACE_H
#define HOST_APP_COMMON_WINDOWPLACE_H

#include <QSize>

class QWidget;

/// Gives \p window the size \p wanted, or less where the available area of its screen is smaller.
/// Both are in device-independent pixels, without the frame.
void resizeToScreen(QWidget* window, const QSize& wanted);

#endif
