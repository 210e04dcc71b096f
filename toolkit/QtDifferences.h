#ifndef TOOLKIT_QTDIFFERENCES_H
#define TOOLKIT_QTDIFFERENCES_H

#include <QDropEvent>
#include <QLibraryInfo>
#include <QRect>
#include <QString>
#include <QtPlugin>
#include <QVariant>
#include <QWidget>

// What Qt 4.8, 5.15 and 6 have under different names. Nothing else asks for the version of Qt.

#if QT_VERSION < 0x050000
#include <QApplication>
#include <QDesktopWidget>
#else
#include <QScreen>
#endif

// The two ways of making a class the instance of its library: in Qt 4 a statement in the source
// file, since Qt 5 a declaration in the class. Each of these does nothing where the other is used.
#if QT_VERSION < 0x050000
#define ZORV_PLUGIN_METADATA
#define ZORV_EXPORT_PLUGIN(library, className) Q_EXPORT_PLUGIN2(library, className)
#else
#define ZORV_PLUGIN_METADATA Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")
#define ZORV_EXPORT_PLUGIN(library, className)
#endif

namespace Toolkit {

/// What names the type of a value, such as QMetaType::QString converted to it.
#if QT_VERSION < 0x060000
typedef QVariant::Type ValueType;
#else
typedef QMetaType::Type ValueType;
#endif

/// The part of the screen of \p window that no panel covers, in pixels of the desktop.
inline QRect availableGeometry(const QWidget* window)
{
#if QT_VERSION < 0x050000
    return QApplication::desktop()->availableGeometry(window);
#else
    return window->screen()->availableGeometry();
#endif
}

/// Makes of \p value one of another type. Returns false where it has none of that type.
inline bool convert(QVariant* value, ValueType type)
{
#if QT_VERSION < 0x050000
    return value->convert(type);
#elif QT_VERSION < 0x060000
    return value->convert(static_cast<int>(type));
#else
    return value->convert(QMetaType(type));
#endif
}

/// Where something was dropped, from the corner of the widget that gets \p event.
inline QPoint positionOf(const QDropEvent* event)
{
#if QT_VERSION < 0x060000
    return event->pos();
#else
    return event->position().toPoint();
#endif
}

/// The folder with the catalogues of the toolkit's own texts.
inline QString translationsFolder()
{
#if QT_VERSION < 0x060000
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

} // namespace Toolkit

#endif
