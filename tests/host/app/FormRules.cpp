#include "host/app/FormRules.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QMenuBar>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>

namespace {

/// Lists and boxes have parts of their own, which take the focus for them.
bool isPart(const QWidget* widget)
{
    const QWidget* const parent = widget->parentWidget();
    return widget->focusProxy() || qobject_cast<const QAbstractSpinBox*>(parent) ||
           qobject_cast<const QComboBox*>(parent) || qobject_cast<const QScrollBar*>(widget) ||
           widget->objectName().startsWith("qt_");
}

bool isControl(const QWidget* widget, const QWidget* window)
{
    // The bar of panes that are no tabs is there, but outside of the window.
    const auto* const bar = qobject_cast<const QTabBar*>(widget);
    return widget->window() == window && widget->isVisible() && !isPart(widget) &&
           (widget->focusPolicy() & Qt::TabFocus) && (!bar || bar->count() > 1);
}

QString described(const QWidget* widget)
{
    return QString("%1 \"%2\"").arg(widget->metaObject()->className(), widget->objectName());
}

QRect placeOf(const QWidget* widget)
{
    return QRect(widget->mapToGlobal(QPoint(0, 0)), widget->size());
}

QList<const QWidget*> controlsOf(const QWidget* window)
{
    QList<const QWidget*> controls;
    const QWidget* widget = window;
    do {
        if (isControl(widget, window))
            controls << widget;
        widget = widget->nextInFocusChain();
    } while (widget != window);
    return controls;
}

} // namespace

QStringList FormRules::nameless(const QWidget* window)
{
    QStringList problems;
    for (const QWidget* control : controlsOf(window)) {
        QAccessibleInterface* const interface =
            QAccessible::queryAccessibleInterface(const_cast<QWidget*>(control));
        if (!interface || interface->text(QAccessible::Name).isEmpty())
            problems << described(control) + " has no name";
    }
    return problems;
}

QStringList FormRules::ambiguous(const QWidget* window)
{
    QMap<QString, QStringList> users;
    const auto use = [&users](const QString& text) {
        const QString letter = QKeySequence::mnemonic(text).toString();
        if (!letter.isEmpty())
            users[letter] << text;
    };
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->window() != window || !widget->isVisible())
            continue;
        const auto* const label = qobject_cast<const QLabel*>(widget);
        if (label && label->buddy())
            use(label->text());
        if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
            use(button->text());
        if (const auto* const bar = qobject_cast<const QMenuBar*>(widget)) {
            for (const QAction* menu : bar->actions())
                use(menu->text());
        }
    }
    QStringList problems;
    for (const QString& letter : users.keys()) {
        if (users[letter].count() > 1)
            problems << letter + " is used by " + users[letter].join(", ");
    }
    return problems;
}

QStringList FormRules::outOfOrder(const QWidget* window)
{
    QStringList problems;
    QMap<const QWidget*, const QWidget*> last;
    for (const QWidget* control : controlsOf(window)) {
        const QWidget* const before = last.value(control->parentWidget());
        last[control->parentWidget()] = control;
        if (!before)
            continue;
        const QRect from = placeOf(before);
        const QRect to = placeOf(control);
        const bool sameRow = from.top() <= to.bottom() && to.top() <= from.bottom();
        if (sameRow ? to.right() < from.left() : to.bottom() < from.top())
            problems << described(control) + " comes after " + described(before);
    }
    return problems;
}

QStringList FormRules::unexplained(const QWidget* window)
{
    QStringList problems;
    for (const QWidget* control : controlsOf(window)) {
        const bool isField = qobject_cast<const QLineEdit*>(control) ||
                             qobject_cast<const QTextEdit*>(control) ||
                             qobject_cast<const QComboBox*>(control) ||
                             qobject_cast<const QAbstractSpinBox*>(control);
        if (isField && control->toolTip().isEmpty())
            problems << described(control) + " has no tooltip";
    }
    return problems;
}

QStringList FormRules::cutOff(const QWidget* window)
{
    QStringList problems;
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->window() != window || !widget->isVisible())
            continue;
        const auto* const label = qobject_cast<const QLabel*>(widget);
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        const bool isElastic = widget->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        if ((label && !label->wordWrap() && !isElastic) || (button && !button->text().isEmpty())) {
            if (widget->width() < widget->minimumSizeHint().width() ||
                widget->height() < widget->minimumSizeHint().height())
                problems << described(widget) + " is cut off";
        }
    }
    return problems;
}
