#ifndef TESTS_SUPPORT_FINDWIDGET_H
#define TESTS_SUPPORT_FINDWIDGET_H

#include <QWidget>

/// The widget named \p name in \p window; ends the test program when there is none of that type.
template <class Widget>
Widget* find(const QWidget* window, const char* name)
{
    Widget* const widget = window->findChild<Widget*>(QLatin1String(name));
    if (!widget)
        qFatal("no widget %s", name);
    return widget;
}

#endif
