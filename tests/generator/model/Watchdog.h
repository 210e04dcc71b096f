#ifndef TESTS_GENERATOR_MODEL_WATCHDOG_H
#define TESTS_GENERATOR_MODEL_WATCHDOG_H

#include "generator/model/GeneratorStep.h"

/// While it lives, a crash or a step that takes too long ends the program with the steps taken so
/// far on the standard error.
class Watchdog {
public:
    /// \p current is the number of the step that is about to be taken.
    Watchdog(const QVector<Step>& steps, int current);
    ~Watchdog();

private:
    Q_DISABLE_COPY(Watchdog)
};

#endif
