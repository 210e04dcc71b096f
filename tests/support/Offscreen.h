#ifndef TESTS_SUPPORT_OFFSCREEN_H
#define TESTS_SUPPORT_OFFSCREEN_H

#include <QByteArray>

/// Whether windows are without a display and so without a window manager, which moves them and
/// changes their states in its own time. Qt 4 does not read the variable.
inline bool isOffscreen()
{
    return qgetenv("QT_QPA_PLATFORM") == "offscreen" && qVersion()[0] != '4';
}

#endif
