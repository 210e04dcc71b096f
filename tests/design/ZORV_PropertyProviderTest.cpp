#include "design/ZORV_PropertyProvider.h"
#include "fcf/FcfTarget.h"

#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include <QtTest>

using Qtilities::Core::PropertySpecification;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using ZORV_Plugin::ZORV_PropertyProvider;

Q_DECLARE_METATYPE(QVariant::Type)

class ZORV_PropertyProviderTest : public QObject {
    Q_OBJECT

private slots:
    void isFoundByAllItsNames();
    void announcesThreePropertiesInOrder();
    void describesAProperty_data();
    void describesAProperty();
    void describesTheTargetsOfTheGenerator();
    void announcesTheSameOnEveryCall();
    void barsNoClassFromCustomProperties();
};

void ZORV_PropertyProviderTest::isFoundByAllItsNames()
{
    ZORV_PropertyProvider provider;
    IAvailablePropertyProvider* const seenByHost = &provider;
    QCOMPARE(seenByHost->objectBase(), &provider);
    QCOMPARE(const_cast<const IAvailablePropertyProvider*>(seenByHost)->objectBase(), &provider);
    QCOMPARE(provider.objectName(), QString());
    QCOMPARE(provider.qt_metacast("ZORV_Plugin::ZORV_PropertyProvider"),
             static_cast<void*>(&provider));
    void* const asInterface = static_cast<IAvailablePropertyProvider*>(&provider);
    QCOMPARE(provider.qt_metacast("IAvailablePropertyProvider"), asInterface);
    QCOMPARE(provider.qt_metacast("com.Qtilities.Core.IAvailablePropertyProvider/1.0"),
             asInterface);
    QCOMPARE(provider.qt_metacast("QObject"), static_cast<void*>(&provider));
    QCOMPARE(provider.qt_metacast("IPlugin"), nullptr);

    QtilitiesCoreApplication::objectManager()->registerObject(&provider);
    QCOMPARE(QtilitiesCoreApplication::objectManager()->registeredInterfaces(
                 "com.Qtilities.Core.IAvailablePropertyProvider/1.0"),
             QList<QObject*>() << &provider);
}

void ZORV_PropertyProviderTest::announcesThreePropertiesInOrder()
{
    QStringList names;
    for (const PropertySpecification& property : ZORV_PropertyProvider().availableProperties())
        names << property.propertyName();
    QCOMPARE(names, QStringList() << "ZORV Pelk Device"
                                  << "ZORV Pelk Config Number"
                                  << "ZORV Pelk Module");
}

void ZORV_PropertyProviderTest::describesAProperty_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QVariant::Type>("type");
    QTest::addColumn<QString>("description");

    QTest::newRow("device")
        << 0 << QVariant::String
        << "Specifies the device to use when generating FCF files for this design.<br><br>Possible "
           "values:<br>For DFE1: Interface_FPGA, Processing_FPGA_1, Clock_Master_Device<br>For "
           "DFE2: Processing_FPGA<br>For GPM: Interface_FPGA, Processing_FPGA_1, "
           "Processing_FPGA_2, Processing_FPGA_3";
    QTest::newRow("config number")
        << 1 << QVariant::Int
        << "Specifies the flash location  to use when generating FCF files for this "
           "design.<br><br>Possible values: 1-10";
    QTest::newRow("module")
        << 2 << QVariant::String
        << "Specifies the module to use when generating FCF files for this design.<br><br>Possible "
           "values:<br>DFE1, DFE2, GPM";
}

void ZORV_PropertyProviderTest::describesAProperty()
{
    QFETCH(int, index);
    const PropertySpecification property =
        ZORV_PropertyProvider().availableProperties().value(index);
    QVERIFY(property.isValid());
    QTEST(property.d_data_type, "type");
    QTEST(property.d_description, "description");
    QCOMPARE(property.d_property_name, QString(""));
    QVERIFY(!property.d_property_name.isNull());
    QVERIFY(!property.d_default_value.isValid());
    QCOMPARE(property.d_class_name, QString("OrvanticCore::Design"));
    QVERIFY(property.d_removable);
    QVERIFY(!property.d_read_only);
    QVERIFY(!property.d_add_during_construction);
    QVERIFY(!property.d_internal);
    QVERIFY(property.d_is_exportable);
}

void ZORV_PropertyProviderTest::describesTheTargetsOfTheGenerator()
{
    QStringList modules;
    QString devices;
    for (const QString& module : FcfTarget::modules()) {
        // The properties have always called the first module DFE1.
        modules << (module == "DFE" ? QString("DFE1") : module);
        devices += "<br>For " + modules.last() + ": " + FcfTarget::devicesOf(module).join(", ");
    }
    const QList<PropertySpecification> properties = ZORV_PropertyProvider().availableProperties();
    QVERIFY(properties.at(0).d_description.endsWith("Possible values:" + devices));
    QVERIFY(properties.at(1).d_description.endsWith(
        QString("Possible values: %1-%2").arg(FcfTarget::FirstSlot).arg(FcfTarget::LastSlot)));
    QVERIFY(properties.at(2).d_description.endsWith("Possible values:<br>" + modules.join(", ")));
}

void ZORV_PropertyProviderTest::announcesTheSameOnEveryCall()
{
    const ZORV_PropertyProvider provider;
    QVERIFY(provider.availableProperties() == provider.availableProperties());
}

void ZORV_PropertyProviderTest::barsNoClassFromCustomProperties()
{
    QVERIFY(ZORV_PropertyProvider().prohibitedCustomPropertiesClasses().isEmpty());
}

QTEST_GUILESS_MAIN(ZORV_PropertyProviderTest)
#include "ZORV_PropertyProviderTest.moc"
