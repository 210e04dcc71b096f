#ifndef TESTS_E2E_USERACTIONS_H
#define TESTS_E2E_USERACTIONS_H

#include <QString>
#include <QWidget>

#include <stdexcept>

class QMenu;
class QTreeView;

/// A step whose result is not the expected one; the message says which.
class StepFailed : public std::runtime_error {
public:
    explicit StepFailed(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// What a user does in windows, with real mouse and key events. Each throws StepFailed if it cannot
/// be done.
namespace UserActions {

constexpr int TimeoutMs = 10000;

void require(bool condition, const QString& complaint);

/// Waits for the visible window named \p name and returns it.
QWidget* window(const QString& name);

template <class Widget>
Widget* find(const QWidget* window, const char* name)
{
    auto* const widget = window->findChild<Widget*>(name);
    require(widget, QString("%1 has no \"%2\".").arg(window->objectName(), name));
    return widget;
}

void click(const QWidget* window, const char* button);
/// Replaces the text of a line edit.
void type(const QWidget* window, const char* field, const QString& text);
/// Types into a text edit, line by line.
void write(const QWidget* window, const char* memo, const QString& text);
/// Selects the item \p text of a combo box by its keys.
void select(const QWidget* window, const char* comboBox, const QString& text);

void chooseFromMenuBar(QWidget* window, const QString& menu, const QString& entry);
/// Opens the context menu of the item whose text begins with \p item.
void chooseFromContextMenu(const QTreeView* view, const QString& item, const QString& entry);

/// The texts of the row whose first one begins with \p item.
QStringList row(const QTreeView* view, const QString& item);
/// The texts of a column of a view without levels.
QStringList column(const QTreeView* view, int column);

} // namespace UserActions

#endif
