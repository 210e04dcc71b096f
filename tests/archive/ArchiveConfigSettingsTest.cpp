#include "archive/ArchiveHost.h"

#include <OrvanticCore/DesignManager.h>

#include <QFile>
#include <QSettings>
#include <QtTest>

class ArchiveConfigSettingsTest : public QObject {
    Q_OBJECT

private slots:
    void startsWithFirmware();
    void restoresThePackageType_data();
    void restoresThePackageType();
    void selectsNothingForAForeignValue_data();
    void selectsNothingForAForeignValue();
    void recoversFromAForeignValue();
    void remembersEachChoice();
    void keepsAChoiceOverARestart();
    void leavesOtherSettingsAlone();
    void savesAChoiceBeforeItEmitsItsName();
    void eachHostHasSettingsOfItsOwn();
};

void ArchiveConfigSettingsTest::startsWithFirmware()
{
    const ArchiveHost host;
    QCOMPARE(host.packageType()->currentText(), QString("7010 (Firmware)"));
    QCOMPARE(host.designTypes().constFirst(), QString("Electrical Test Firmware"));
    QCOMPARE(host.savedPackageType(), QVariant("7010 (Firmware)"));
}

void ArchiveConfigSettingsTest::restoresThePackageType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("firstDesignType");

    QTest::newRow("firmware") << "7010 (Firmware)"
                              << "Electrical Test Firmware";
    QTest::newRow("software") << "7030 (Software)"
                              << "Compiler";
}

void ArchiveConfigSettingsTest::restoresThePackageType()
{
    QFETCH(QString, type);
    const ArchiveHost host(type);
    QCOMPARE(host.packageType()->currentText(), type);
    QTEST(host.designTypes().value(0), "firstDesignType");
    QCOMPARE(host.savedPackageType(), QVariant(type));
}

void ArchiveConfigSettingsTest::selectsNothingForAForeignValue_data()
{
    QTest::addColumn<QString>("type");

    QTest::newRow("another type") << "7020 (Hardware)";
    QTest::newRow("another case") << "7010 (firmware)";
    QTest::newRow("the code alone") << "7010";
    QTest::newRow("a blank more") << "7030 (Software) ";
    QTest::newRow("empty") << "";
}

void ArchiveConfigSettingsTest::selectsNothingForAForeignValue()
{
    QFETCH(QString, type);
    ArchiveHost host(type);
    QCOMPARE(host.packageType()->currentIndex(), -1);
    QVERIFY(host.designTypes().isEmpty());
    QVERIFY(host.savedPackageType().isValid());
    QCOMPARE(host.savedPackageType().toString(), QString());
    host.attach();
    QCOMPARE(host.interface()->destinationPathOnActivation(),
             QString("/designs/radar/-GNRL---01-V-01_00.zip"));
}

void ArchiveConfigSettingsTest::recoversFromAForeignValue()
{
    ArchiveHost host("7020 (Hardware)");
    host.attach();
    host.packageType()->setCurrentIndex(0);
    QCOMPARE(host.interface()->destinationPathOnActivation(),
             QString("/designs/radar/7010-GNRL-ELEC-FW-01-V-01_00.zip"));
    QCOMPARE(host.savedPackageType(), QVariant("7010 (Firmware)"));
}

void ArchiveConfigSettingsTest::remembersEachChoice()
{
    const ArchiveHost host;
    host.packageType()->setCurrentIndex(1);
    QCOMPARE(host.savedPackageType(), QVariant("7030 (Software)"));
    host.packageType()->setCurrentIndex(0);
    QCOMPARE(host.savedPackageType(), QVariant("7010 (Firmware)"));
    host.packageType()->setCurrentIndex(-1);
    QVERIFY(host.savedPackageType().isValid());
    QCOMPARE(host.savedPackageType().toString(), QString());
}

void ArchiveConfigSettingsTest::keepsAChoiceOverARestart()
{
    ArchiveHost host;
    QTest::keyClick(host.packageType(), Qt::Key_Down);
    host.restart();
    QCOMPARE(host.packageType()->currentText(), QString("7030 (Software)"));
    QCOMPARE(host.designType()->currentText(), QString("Compiler"));
}

void ArchiveConfigSettingsTest::leavesOtherSettingsAlone()
{
    ArchiveHost host;
    QFile file(host.settingsPath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[MainWindow]\nwidth=960\n\n[Plugins]\nOther\\key=kept\n"
               "ZORV_Plugin\\active_package_type=7030 (Software)\n");
    file.close();
    host.restart();
    QCOMPARE(host.packageType()->currentText(), QString("7030 (Software)"));
    const QSettings settings(host.settingsPath(), QSettings::IniFormat);
    QCOMPARE(settings.allKeys(), QStringList({"MainWindow/width", "Plugins/Other/key",
                                              "Plugins/ZORV_Plugin/active_package_type"}));
    QCOMPARE(settings.value("MainWindow/width").toInt(), 960);
    QCOMPARE(settings.value("Plugins/Other/key").toString(), QString("kept"));
}

void ArchiveConfigSettingsTest::savesAChoiceBeforeItEmitsItsName()
{
    ArchiveHost host;
    host.attach();
    QVariant savedThen;
    connect(host.extension(), &ZORV_Plugin::ZORV_ArchiveConfigExtension::destinationPathChanged,
            this, [&] { savedThen = host.savedPackageType(); });
    host.packageType()->setCurrentIndex(1);
    QCOMPARE(savedThen, QVariant("7030 (Software)"));
}

void ArchiveConfigSettingsTest::eachHostHasSettingsOfItsOwn()
{
    ArchiveHost first;
    QString firstPath = first.settingsPath();
    {
        const ArchiveHost second;
        QCOMPARE(OrvanticCore::DesignManager::instance()->settingsFilePath(),
                 second.settingsPath());
    }
    QCOMPARE(OrvanticCore::DesignManager::instance()->settingsFilePath(), firstPath);
}

QTEST_MAIN(ArchiveConfigSettingsTest)
#include "ArchiveConfigSettingsTest.moc"
