#include "host/archive/NotingExtension.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchiveExtensions.h"

#include <OrvanticCore/Design.h>

#include <QtTest>

using OrvanticCore::Design;

class ArchiveExtensionsTest : public QObject {
    Q_OBJECT

private slots:
    void listsExtensionsInTheOrderOfTheirRegistration();
    void listsWhatIsMeantForTheDesign_data();
    void listsWhatIsMeantForTheDesign();

private:
    Design m_design{"/designs/radar", "Firmware Design"};
};

void ArchiveExtensionsTest::listsExtensionsInTheOrderOfTheirRegistration()
{
    QVERIFY(archiveExtensionsFor(&m_design).isEmpty());
    NotingExtension second("B");
    NotingExtension first("A");
    QCOMPARE(archiveExtensionsFor(&m_design), QList<QObject*>({&second, &first}));
}

void ArchiveExtensionsTest::listsWhatIsMeantForTheDesign_data()
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

void ArchiveExtensionsTest::listsWhatIsMeantForTheDesign()
{
    QFETCH(bool, offered);
    NotingExtension extension;
    QFETCH(QStringList, typeNames);
    QFETCH(bool, inversed);
    QFETCH(QStringList, structureIds);
    extension.typeNames = typeNames;
    extension.typeNamesInversed = inversed;
    extension.structureIds = structureIds;
    QCOMPARE(archiveExtensionsFor(&m_design).contains(&extension), offered);
}

ZORV_WINDOW_TEST(ArchiveExtensionsTest)
#include "ArchiveExtensionsTest.moc"
