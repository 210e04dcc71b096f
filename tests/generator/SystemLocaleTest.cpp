#include "fcf/FcfHeader.h"
#include "generator/GeneratorTest.h"
#include "support/PlainFcf.h"

#include <QApplication>
#include <QtTest>

/// What depends on the system's locale, in a process that has another one than the other tests.
class SystemLocaleTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void writesTheDateInTheShortFormatOfTheSystem();
    void writesTheTimeInPlainDigitsWhateverTheSystem();
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

int main(int argc, char** argv)
{
    // Made by scripts/setup.
    qputenv("LC_ALL", "de_DE.UTF-8");
    QApplication application(argc, argv);
    SystemLocaleTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "SystemLocaleTest.moc"
