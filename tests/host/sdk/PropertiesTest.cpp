#include "support/TestProgram.h"

#include <QtilitiesCore/IAvailablePropertyProvider.h>
#include <QtilitiesCore/ObjectManager.h>

#include <QtTest>

using Qtilities::Core::ObjectManager;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::SharedProperty;

class PropertiesTest : public QObject {
    Q_OBJECT

private slots:
    void sharesAProperty();
    void hasNoPropertyAtFirst();
    void takesAnotherKindOfPropertyForAnInvalidOne();
    void refusesAPropertyWithoutAName();
    void isInvalidWithoutAValue();
    void startsWithTheFrameworksFlags();
    void namesAnAnnouncedProperty();
    void comparesAnnouncedProperties();
};

void PropertiesTest::sharesAProperty()
{
    QObject object;
    QVERIFY(ObjectManager::setSharedProperty(&object, SharedProperty("Text", "one")));
    QVERIFY(ObjectManager::propertyExists(&object, "Text"));
    SharedProperty property = ObjectManager::getSharedProperty(&object, "Text");
    QVERIFY(property.isValid());
    QCOMPARE(property.value(), QVariant("one"));

    QVERIFY(property.setValue("two"));
    QCOMPARE(ObjectManager::getSharedProperty(&object, "Text").value(), QVariant("one"));
    QVERIFY(ObjectManager::setSharedProperty(&object, property));
    QCOMPARE(ObjectManager::getSharedProperty(&object, "Text").value(), QVariant("two"));
}

void PropertiesTest::hasNoPropertyAtFirst()
{
    const QObject object;
    QVERIFY(!ObjectManager::propertyExists(&object, "Text"));
    QVERIFY(!ObjectManager::getSharedProperty(&object, "Text").isValid());
}

void PropertiesTest::takesAnotherKindOfPropertyForAnInvalidOne()
{
    QObject object;
    object.setProperty("Text", "plain");
    QVERIFY(ObjectManager::propertyExists(&object, "Text"));
    QVERIFY(!ObjectManager::getSharedProperty(&object, "Text").isValid());
}

void PropertiesTest::refusesAPropertyWithoutAName()
{
    QObject object;
    SharedProperty nameless("", "one");
    QVERIFY(!nameless.isValid());
    QVERIFY(!nameless.setValue("two"));
    QCOMPARE(nameless.value(), QVariant("one"));
    QVERIFY(!ObjectManager::setSharedProperty(&object, nameless));
    QVERIFY(object.dynamicPropertyNames().isEmpty());
}

void PropertiesTest::isInvalidWithoutAValue()
{
    SharedProperty property("Text", QVariant());
    QVERIFY(!property.isValid());
    QVERIFY(property.setValue("one"));
    QVERIFY(property.isValid());
}

void PropertiesTest::startsWithTheFrameworksFlags()
{
    const PropertySpecification announced;
    QVERIFY(!announced.isValid());
    QVERIFY(!announced.d_default_value.isValid());
    QVERIFY(announced.d_removable);
    QVERIFY(!announced.d_read_only);
    QVERIFY(!announced.d_add_during_construction);
    QVERIFY(!announced.d_internal);
    QVERIFY(announced.d_is_exportable);
}

void PropertiesTest::namesAnAnnouncedProperty()
{
    PropertySpecification announced;
    announced.d_displayed_name = "Shown";
    QCOMPARE(announced.propertyName(), QString("Shown"));
    announced.d_property_name = "kept";
    QCOMPARE(announced.propertyName(), QString("kept"));
    QVERIFY(!announced.isValid());
    announced.d_data_type = QVariant::Int;
    QVERIFY(announced.isValid());
}

void PropertiesTest::comparesAnnouncedProperties()
{
    PropertySpecification one;
    one.d_displayed_name = "Shown";
    PropertySpecification other = one;
    QVERIFY(one == other);
    other.d_read_only = true;
    QVERIFY(!(one == other));
}

ZORV_TEST(PropertiesTest)
#include "PropertiesTest.moc"
