#ifndef HOST_APP_COMMON_WHEELGUARD_H
#define HOST_APP_COMMON_WHEELGUARD_H

class QWidget;

/// Has the boxes in \p form leave the wheel alone unless they have the focus: a user who scrolls
/// over a box does not mean to change its value. The form scrolls instead, if it can.
void guardWheel(QWidget* form);

#endif
