#ifndef PLUGIN_PLUGINEXPORT_H
#define PLUGIN_PLUGINEXPORT_H

#include <QtPlugin>

// The two ways of making a class the instance of its library: in Qt 4 a statement in the source
// file, in Qt 5 a declaration in the class. Each of these does nothing in the other one's Qt.
#if QT_VERSION < 0x050000
#define ZORV_PLUGIN_METADATA
#define ZORV_EXPORT_PLUGIN(library, className) Q_EXPORT_PLUGIN2(library, className)
#else
#define ZORV_PLUGIN_METADATA Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")
#define ZORV_EXPORT_PLUGIN(library, className)
#endif

#endif
