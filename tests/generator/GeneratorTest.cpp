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

void GeneratorTest::uploadThree()
{
    driver->upload("A", "a1", "a2", "a3");
    driver->upload("B", "b1", "b2", "b3");
    driver->upload("C", "c1", "c2", "c3");
}

QList<bool> GeneratorTest::editorEnabled() const
{
    QList<bool> enabled;
    for (const char* name :
         {"EditFunctionName", "AuthorFunctions", "DescriptionMemoFunctions",
          "CiNumberEditBoxFunctions", "AddNewFunction", "UploadFunctionButton", "btnItsMe"})
        enabled << driver->find<QWidget>(name)->isEnabled();
    return enabled;
}

QStringList GeneratorTest::shown(int index)
{
    driver->window()->displayFunctionInfo(index);
    return driver->editor();
}
