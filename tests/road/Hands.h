#ifndef TESTS_ROAD_HANDS_H
#define TESTS_ROAD_HANDS_H

#include <QString>
#include <QWidget>

#include <stdexcept>

class QMenu;
class QTreeView;

/// What was not as it should be.
class RoadBlock : public std::runtime_error {
public:
    explicit RoadBlock(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// What a person does to windows, with real mouse and key events. Each throws a RoadBlock where
/// that cannot be done.
namespace Hands {

constexpr int PatienceMs = 10000;

void require(bool condition, const QString& complaint);

/// The visible window named \p name; waits for it.
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

} // namespace Hands

#endif
