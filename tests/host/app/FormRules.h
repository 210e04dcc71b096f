#ifndef TESTS_HOST_APP_FORMRULES_H
#define TESTS_HOST_APP_FORMRULES_H

#include <QStringList>

class QWidget;

/// What someone who works with the keyboard or a screen reader needs of a window. Each function
/// returns what is wrong with the visible controls of \p window, one line each.
namespace FormRules {

/// Every control that takes the focus has a name for screen readers.
QStringList nameless(const QWidget* window);

/// No letter is the mnemonic of two controls, or of a control and a menu.
QStringList ambiguous(const QWidget* window);

/// Tab goes from left to right and from the top down among the controls of each part.
QStringList outOfOrder(const QWidget* window);

/// Every field explains itself in a tooltip.
QStringList unexplained(const QWidget* window);

/// All of the text of each label and button is in sight.
QStringList cutOff(const QWidget* window);

} // namespace FormRules

#endif
