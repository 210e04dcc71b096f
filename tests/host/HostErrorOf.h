#ifndef TESTS_HOST_HOSTERROROF_H
#define TESTS_HOST_HOSTERROROF_H

#include "host/app/common/HostError.h"

/// The text of the HostError that \p operation throws, or an empty one if it throws none.
template <class Operation>
QString hostErrorOf(const Operation& operation)
{
    try {
        operation();
    } catch (const HostError& error) {
        return error.text();
    }
    return QString();
}

#endif
