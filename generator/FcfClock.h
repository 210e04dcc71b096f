#ifndef GENERATOR_FCFCLOCK_H
#define GENERATOR_FCFCLOCK_H

#include <QDateTime>

#include <functional>

/// The local time that a file is stamped with.
typedef std::function<QDateTime()> FcfClock;

#endif
