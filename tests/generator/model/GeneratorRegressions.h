#ifndef TESTS_GENERATOR_MODEL_GENERATORREGRESSIONS_H
#define TESTS_GENERATOR_MODEL_GENERATORREGRESSIONS_H

#include "generator/model/GeneratorStep.h"

#include <QVector>

/// A sequence of steps that once showed a difference, or that shows one rule to a reader.
struct Regression {
    const char* name;
    QVector<Step> steps;
};

QVector<Regression> generatorRegressions();

#endif
