#include "tests/host/archive/NotingExtension.h"

#include "host/app/archive/ArchiveTypes.h"

#include <OrvanticCore/Design.h>

#include <QtTest>

using OrvanticCore::Design;

class ArchiveTypesTest : public QObject {
    Q_OBJECT

private slots:
    void offersThePlainArchiveFirst();
    void offersExtensionsInTheOrderOfTheirRegistration();
    void offersWhatIsMeantForTheDesign_data();
    void offersWhatIsMeantForTheDesign();
    void forgetsADeletedExtension();

private:
    static QStringList names(const std::vector<ArchiveType>& types)
    {
        QStringList names;
        for (const ArchiveType& type : types)
            names << type.name();
        return names;
    }

    Design m_design{"/designs/radar", "Firmware Design"};
};

void ArchiveTypesTest::offersThePlainArchiveFirst()
{
    const auto types = archiveTypesFor(&m_design);
    QCOMPARE(names(types), QStringList("Plain Archive"));
    QVERIFY(types.at(0).isPlain());
    QVERIFY(!types.at(0).extension());
}

void ArchiveTypesTest::offersExtensionsInTheOrderOfTheirRegistration()
{
    NotingExtension second("B");
    NotingExtension first("A");
    const auto types = archiveTypesFor(&m_design);
    QCOMPARE(names(types), QStringList({"Plain Archive", "B", "A"}));
    QVERIFY(!types.at(1).isPlain());
    QCOMPARE(types.at(1).object(), &second);
    QCOMPARE(types.at(2).extension(), static_cast<ArchiveType::Extension*>(&first));
}

void ArchiveTypesTest::offersWhatIsMeantForTheDesign_data()
{
    QTest::addColumn<QStringList>("typeNames");
    QTest::addColumn<bool>("inversed");
    QTest::addColumn<QStringList>("structureIds");
    QTest::addColumn<bool>("offered");

    const QStringList none;
    const QStringList ours{"Software Design", "Firmware Design"};
    const QStringList others{"Software Design"};
    QTest::newRow("all designs") << none << false << none << true;
    QTest::newRow("all designs, inversed") << none << true << none << true;
    QTest::newRow("its type") << ours << false << none << true;
    QTest::newRow("all but its type") << ours << true << none << false;
    QTest::newRow("another type") << others << false << none << false;
    QTest::newRow("all but another type") << others << true << none << true;
    QTest::newRow("a structure by its identifier") << none << false << QStringList("{1}") << false;
}

void ArchiveTypesTest::offersWhatIsMeantForTheDesign()
{
    QFETCH(bool, offered);
    NotingExtension extension;
    QFETCH(QStringList, typeNames);
    QFETCH(bool, inversed);
    QFETCH(QStringList, structureIds);
    extension.typeNames = typeNames;
    extension.typeNamesInversed = inversed;
    extension.structureIds = structureIds;
    QCOMPARE(archiveTypesFor(&m_design).size() == 2, offered);
}

void ArchiveTypesTest::forgetsADeletedExtension()
{
    auto extension = std::make_unique<NotingExtension>();
    const auto types = archiveTypesFor(&m_design);
    extension.reset();
    QVERIFY(!types.at(1).object());
    QVERIFY(!types.at(1).extension());
    QVERIFY(!types.at(1).isPlain());
}

QTEST_MAIN(ArchiveTypesTest)
#include "ArchiveTypesTest.moc"
