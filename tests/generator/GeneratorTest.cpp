#include "generator/GeneratorTest.h"

#include <QtTest>

const char* const GeneratorTest::Green =
    "<font color='green'>Successfully generated output files.</font>";
const char* const GeneratorTest::Red = "<font color='red'>Failed to generate output file.</font>";

void GeneratorTest::init() { driver.reset(new GeneratorDriver); }

void GeneratorTest::cleanup()
{
    QVERIFY2(driver->dialogs().allGiven(), qPrintable(driver->dialogs().unexpected().join('|')));
    QCOMPARE(driver->listFault(), QString());
    driver.reset();
}
