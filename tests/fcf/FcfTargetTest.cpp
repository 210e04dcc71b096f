#include "fcf/FcfTarget.h"
#include "support/TestProgram.h"

#include <QtTest>

/// The codes of the targets, and back.
class FcfTargetTest : public QObject {
    Q_OBJECT

private slots:
    void offersModulesAndTheirDevices();
    void givesCodes_data();
    void givesCodes();
    void findsATargetByItsCodes();
    void findsNothingForOtherCodes();
};

void FcfTargetTest::offersModulesAndTheirDevices()
{
    QCOMPARE(FcfTarget::modules(), QStringList({"DFE", "DFE2", "GPM"}));
    QCOMPARE(FcfTarget::devicesOf("DFE"),
             QStringList({"Interface_FPGA", "Processing_FPGA_1", "Clock_Master_Device"}));
    QCOMPARE(FcfTarget::devicesOf("DFE2"), QStringList("Processing_FPGA"));
    QCOMPARE(FcfTarget::devicesOf("GPM"), QStringList({"Interface_FPGA", "Processing_FPGA_1",
                                                       "Processing_FPGA_2", "Processing_FPGA_3"}));
    QCOMPARE(FcfTarget::devicesOf("dfe"), QStringList());
}

void FcfTargetTest::givesCodes_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QString>("device");
    QTest::addColumn<int>("moduleCode");
    QTest::addColumn<int>("deviceCode");
    const int kept = 77;
    const auto row = [](const char* module, const char* device, int moduleCode, int deviceCode) {
        QTest::addRow("%s %s", module, device)
            << QString(module) << QString(device) << moduleCode << deviceCode;
    };
    row("DFE", "Interface_FPGA", 1, 1);
    row("DFE", "Processing_FPGA_1", 1, 2);
    row("DFE", "Clock_Master_Device", 1, 4);
    row("DFE2", "Processing_FPGA", 2, kept);
    row("GPM", "Interface_FPGA", 2, 1);
    row("GPM", "Processing_FPGA_1", 2, 2);
    row("GPM", "Processing_FPGA_2", 2, 4);
    row("GPM", "Processing_FPGA_3", 2, 8);
    row("DFE", "Processing_FPGA_2", 1, kept);
    row("GPM", "Clock_Master_Device", 2, kept);
    row("DFE", "interface_fpga", 1, kept);
    row("DFE", "", 1, kept);
    // Devices that the module does not list keep their code, but for the two that share one.
    row("DFE", "Processing_FPGA_3", 1, 8);
    row("DFE2", "Interface_FPGA", 2, 1);
    row("DFE2", "Processing_FPGA_1", 2, 2);
    row("DFE2", "Clock_Master_Device", 2, 4);
    row("DFE2", "Processing_FPGA_2", 2, kept);
    row("dfe", "Clock_Master_Device", 2, 4);
    row("", "", 2, kept);
}

void FcfTargetTest::givesCodes()
{
    QFETCH(QString, module);
    QFETCH(QString, device);
    QTEST(FcfTarget::moduleCode(module), "moduleCode");
    QTEST(FcfTarget::deviceCode(module, device, 77), "deviceCode");
}

void FcfTargetTest::findsATargetByItsCodes()
{
    for (const QString& module : FcfTarget::modules()) {
        for (const QString& device : FcfTarget::devicesOf(module)) {
            const FcfTarget::Target* const target = FcfTarget::find(
                FcfTarget::moduleCode(module), FcfTarget::deviceCode(module, device, 0));
            QVERIFY(target);
            QCOMPARE(QString(target->module), module);
            QCOMPARE(QString(target->device), device);
        }
    }
}

void FcfTargetTest::findsNothingForOtherCodes()
{
    for (const qint32 device : {-1, 0, 3, 8, 16})
        QVERIFY(!FcfTarget::find(1, device));
    for (const qint32 device : {-1, 3, 5, 16})
        QVERIFY(!FcfTarget::find(2, device));
    for (const qint32 module : {-1, 0, 3})
        QVERIFY(!FcfTarget::find(module, 1));
}

ZORV_TEST(FcfTargetTest)
#include "FcfTargetTest.moc"
