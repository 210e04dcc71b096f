#include "generator/GeneratorTest.h"

#include "support/PlainFcf.h"

#include <QDir>
#include <QFile>
#include <QtTest>

/// Where image and companion go, and what lies there already.
class OutputPathsTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void replacesEveryBinInThePath_data();
    void replacesEveryBinInThePath();
    void asksAboutTheInputItselfForAPathWithoutBin_data();
    void asksAboutTheInputItselfForAPathWithoutBin();
    void endsInFailureWhenTheInputIsOverwritten();
    void endsInFailureWhenTheImageIsALinkToTheBinary();
    void asksAboutTheImageItselfAfterItWasLoaded();
    void overwritesACompanionWithoutImageUnasked();

private:
    /// Typed: the file dialog offers no other ending than ".bin".
    void fillIn(const QString& binary)
    {
        driver->window()->setBinFile(binary);
        driver->type("AuthoEditBox", "a");
        driver->type("CiNumEditBox", "1");
    }
};

void OutputPathsTest::replacesEveryBinInThePath_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("binary");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("companion");
    QTest::newRow("once") << ""
                          << "top.bin"
                          << "top.fcf"
                          << "top.txt";
    QTest::newRow("twice") << ""
                           << "top.bin.bin"
                           << "top.fcf.fcf"
                           << "top.txt.txt";
    QTest::newRow("inside the name") << ""
                                     << "top.binary.bin"
                                     << "top.fcfary.fcf"
                                     << "top.txtary.txt";
    QTest::newRow("in the folder") << "a.bin.d"
                                   << "a.bin.d/top.bin"
                                   << "a.fcf.d/top.fcf"
                                   << "a.txt.d/top.txt";
}

void OutputPathsTest::replacesEveryBinInThePath()
{
    QFETCH(QString, folder);
    QFETCH(QString, binary);
    QFETCH(QString, image);
    QFETCH(QString, companion);
    if (!folder.isEmpty()) {
        for (const char* extension : {".bin", ".fcf", ".txt"})
            QVERIFY(QDir().mkpath(driver->path(QString(folder).replace(".bin", extension))));
    }
    driver->fillIn(driver->binary(binary, 10));
    driver->click("GenerateButton");
    QCOMPARE(driver->text("StatusBar"), QString(Green));
    const PlainFcf made = PlainFcf::fromFile(driver->path(image).toStdString());
    QCOMPARE(made.payload, driver->content(driver->path(binary)).toStdString());
    QCOMPARE(QString::fromStdString(made.valueOf("Filename: ")), QFileInfo(image).fileName());
    QVERIFY(driver->exists(driver->path(companion)));
}

void OutputPathsTest::asksAboutTheInputItselfForAPathWithoutBin_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("no extension") << "top";
    QTest::newRow("another extension") << "top.bit";
    QTest::newRow("capital letters") << "top.BIN";
}

void OutputPathsTest::asksAboutTheInputItselfForAPathWithoutBin()
{
    QFETCH(QString, name);
    const QString binary = driver->binary(name, 5000);
    const QByteArray before = driver->content(binary);
    fillIn(binary);
    driver->dialogs().click(QMessageBox::No);
    driver->click("GenerateButton");
    QCOMPARE(driver->text("StatusBar"), QString(Red));
    QCOMPARE(driver->dialogs().texts(),
             QStringList("A fcf file already exists at path:<br><br>" + binary +
                         "<br><br>Do you want to overwrite it?"));
    QCOMPARE(driver->content(binary), before);
}

void OutputPathsTest::endsInFailureWhenTheInputIsOverwritten()
{
    const QString binary = driver->binary("top.BIN", 5000);
    fillIn(binary);
    driver->dialogs().click(QMessageBox::Yes);
    driver->click("GenerateButton");
    QCOMPARE(driver->text("StatusBar"), QString(Red));
    // Image and companion are one file, which has both their fillers.
    QVERIFY2(driver->log().last().contains("\"" + binary + "\" is not complete: it has "),
             qPrintable(driver->log().last()));
}

void OutputPathsTest::endsInFailureWhenTheImageIsALinkToTheBinary()
{
    const QString binary = driver->binary("top.bin", 5000);
    driver->fillIn(binary);
    QVERIFY(QFile::link(binary, driver->path("top.fcf")));
    driver->dialogs().click(QMessageBox::Yes);
    driver->click("GenerateButton");
    QCOMPARE(driver->text("StatusBar"), QString(Red));
    QVERIFY2(driver->log().last().contains("the payload is longer than its 0 bytes"),
             qPrintable(driver->log().last()));
}

void OutputPathsTest::asksAboutTheImageItselfAfterItWasLoaded()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->click("GenerateButton");
    const QString image = driver->path("top.fcf");
    const QByteArray before = driver->content(image);

    driver->reopen();
    driver->window()->setTxtFile(image);
    QCOMPARE(driver->text("txtInputFile"), image);
    driver->dialogs().clear();
    driver->dialogs().click(QMessageBox::No);
    driver->click("GenerateButton");
    QCOMPARE(driver->dialogs().texts(),
             QStringList("A fcf file already exists at path:<br><br>" + image +
                         "<br><br>Do you want to overwrite it?"));
    QCOMPARE(driver->text("StatusBar"), QString(Red));
    QCOMPARE(driver->content(image), before);
}

void OutputPathsTest::overwritesACompanionWithoutImageUnasked()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->binary("top.txt", 5000);
    driver->click("GenerateButton");
    QCOMPARE(driver->text("StatusBar"), QString(Green));
    const PlainFcf image = PlainFcf::fromFile(driver->path("top.fcf").toStdString());
    QCOMPARE(driver->content(driver->path("top.txt")).toStdString(),
             driver->content(driver->path("top.fcf")).toStdString().substr(0, image.headerBytes));
}

QTEST_MAIN(OutputPathsTest)
#include "OutputPathsTest.moc"
