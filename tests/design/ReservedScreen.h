#ifndef TESTS_DESIGN_RESERVEDSCREEN_H
#define TESTS_DESIGN_RESERVEDSCREEN_H

#include <QRect>

/// A screen with edges that a desktop keeps from windows, in place of the toolkit's, for the
/// plug-in too. On Qt 4 it has a source file of its own.
namespace ReservedScreen {

/// The part that is left to windows.
QRect& available();

/// The hidden window for which that was asked first since this was set to nothing, as it was then.
QRect& askedFor();

} // namespace ReservedScreen

#endif
