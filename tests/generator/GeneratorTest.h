#ifndef TESTS_GENERATOR_GENERATORTEST_H
#define TESTS_GENERATOR_GENERATORTEST_H

#include "generator/GeneratorDriver.h"
#include "support/PlainFcf.h"

#include <QScopedPointer>

/// A test with a fresh generator window for each of its functions. None of them may leave a
/// promised answer to a box ungiven, meet a box that it did not expect, or have entries in memory
/// that do not fit the functions listed.
class GeneratorTest : public QObject {
    Q_OBJECT

public:
    /// What the window shows after an image was made, or could not be.
    static const char* const Green;
    static const char* const Red;

protected:
    /// Presses Generate for top.bin, overwriting, and takes the image apart.
    PlainFcf generate();

    QScopedPointer<GeneratorDriver> driver;

private slots:
    void init();
    void cleanup();
};

#endif
