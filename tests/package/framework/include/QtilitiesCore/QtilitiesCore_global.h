#ifndef FRAMEWORK_QTILITIESCORE_GLOBAL_H
#define FRAMEWORK_QTILITIESCORE_GLOBAL_H

#include <QtGlobal>

// As a framework does whose libraries are built in more than one way.
#ifndef QTILITIES_FLAVOUR
#error "QTILITIES_FLAVOUR must be defined"
#endif

#ifdef QTILITIES_CORE_LIBRARY
#define QTILITIES_CORE_EXPORT Q_DECL_EXPORT
#else
#define QTILITIES_CORE_EXPORT Q_DECL_IMPORT
#endif

#endif
