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

PlainFcf GeneratorTest::generate()
{
    if (driver->exists(driver->path("top.fcf")))
        driver->dialogs().click(QMessageBox::Yes);
    driver->click("GenerateButton");
    return PlainFcf::fromFile(driver->path("top.fcf").toStdString());
}

#include "moc_GeneratorTest.cpp"
