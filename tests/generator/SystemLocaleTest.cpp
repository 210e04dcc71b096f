#include "fcf/FcfHeader.h"
#include "generator/GeneratorTest.h"
#include "generator/PelkFcfGenerator.h"
#include "support/PlainFcf.h"
#include "support/TestProgram.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QPushButton>
#include <QTranslator>
#include <QtTest>

/// What depends on the system's locale and time zone, in a process that has others than the other
/// tests.
class SystemLocaleTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void writesTheDateInTheShortFormatOfTheSystem();
    void writesTheTimeInPlainDigitsWhateverTheSystem();
    void writesTheLocalTimeWithoutAClockOfItsOwn();
    void writesTheSameFilesWithTheWindowInGerman();

private:
    /// The image and the companion that the window makes.
    QList<QByteArray> generate();
};

void SystemLocaleTest::writesTheDateInTheShortFormatOfTheSystem()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->type("AuthoEditBox", QString::fromUtf8("Zoë"));
    driver->click("GenerateButton");
    const PlainFcf image = PlainFcf::fromFile(driver->path("top.fcf").toStdString());
    QCOMPARE(image.valueOf("Date: "), std::string("21.11.26"));
    QCOMPARE(image.valueOf("Time: "), std::string("09:05:07"));
    QCOMPARE(image.valueOf("Author: "), std::string("Zoë"));
}

void SystemLocaleTest::writesTheTimeInPlainDigitsWhateverTheSystem()
{
    FcfHeader header;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    header.stamp(QDateTime(QDate(2026, 3, 4), QTime(7, 8, 9, 999)));
    QCOMPARE(header.date, QString("04.03.26"));
    QCOMPARE(header.time, QString("07:08:09"));
}

void SystemLocaleTest::writesTheLocalTimeWithoutAClockOfItsOwn()
{
    const QString binary = driver->binary("top.bin", 10);
    PelkFcfGenerator window;
    window.setBinFile(binary);
    const QDateTime before = QDateTime::currentDateTime();
    window.saveTofile(binary);
    const QDateTime after = QDateTime::currentDateTime();
    QVERIFY(before.time() != before.toUTC().time());

    const PlainFcf image = PlainFcf::fromFile(driver->path("top.fcf").toStdString());
    const QTime time =
        QTime::fromString(QString::fromStdString(image.valueOf("Time: ")), "HH:mm:ss");
    QVERIFY(before.date() != after.date() ||
            (time >= before.time().addMSecs(-999) && time <= after.time()));
}

QList<QByteArray> SystemLocaleTest::generate()
{
    driver->fillIn(driver->binary("top.bin", 4000));
    driver->upload("FIR", QString(), QString(), QString());
    driver->click("GenerateButton");
    return {driver->content(driver->path("top.fcf")), driver->content(driver->path("top.txt"))};
}

void SystemLocaleTest::writesTheSameFilesWithTheWindowInGerman()
{
    QCOMPARE(driver->find<QPushButton>("GenerateButton")->text(), QString("Generate"));
    const QList<QByteArray> english = generate();
    QVERIFY(english.first().size() > 4000);

    QTranslator german;
    QVERIFY(german.load("ZORV_Plugin_de", ZORV_PLUGIN_FOLDER));
    QVERIFY(QCoreApplication::installTranslator(&german));
    driver.reset(new GeneratorDriver);
    QCOMPARE(driver->find<QPushButton>("GenerateButton")->text(), QString("Erzeugen"));
    QCOMPARE(generate(), english);
    QCOMPARE(driver->text("StatusBar"),
             QString("<font color='green'>Die Ausgabedateien wurden erzeugt.</font>"));
}

ZORV_TEST_MAIN(SystemLocaleTest)
{
    // Made by scripts/setup.
    qputenv("LC_ALL", "de_DE.UTF-8");
    qputenv("TZ", "Asia/Kathmandu");
    Qtilities::CoreGui::QtilitiesApplication application(argc, argv);
    SystemLocaleTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "SystemLocaleTest.moc"
