#include "support/TestProgram.h"

#include <OrvanticCore/DesignStructure.h>

#include <QtTest>

using OrvanticCore::DesignStructure;
using Qtilities::CoreGui::TreeNode;

class DesignStructureTest : public QObject {
    Q_OBJECT

private slots:
    void mapsAPatternToItsOwnAssociationFirst();
    void mapsAPatternToTheFirstOfItsAssociations();
    void mapsAFileNameByWildcards();
    void mapsAnUnknownNameToNothing();
    void findsNodesAtEveryDepth();
    void findsTheOutermostOfTwoNodes();
    void findsNoNodeByAnEmptyName();
    void mapsToAWorkingFolder();
    void mapsToTheFolderOfThePatternItselfFirst();
    void passesOverAssociationsWithoutAFolder();
};

void DesignStructureTest::mapsAPatternToItsOwnAssociationFirst()
{
    DesignStructure structure;
    structure.addFileAssociation("*", "Everything");
    structure.addFileAssociation("*.bit", "Bit-streams");
    QCOMPARE(structure.mapFileNameToAssociation("*.bit")->designNode(), QString("Bit-streams"));
    QCOMPARE(structure.mapFileNameToAssociation("*.txt")->designNode(), QString("Everything"));
}

void DesignStructureTest::mapsAPatternToTheFirstOfItsAssociations()
{
    DesignStructure structure;
    structure.addFileAssociation("*.bit", "First");
    structure.addFileAssociation("*.bit", "Second");
    QCOMPARE(structure.mapFileNameToAssociation("*.bit")->designNode(), QString("First"));
}

void DesignStructureTest::mapsAFileNameByWildcards()
{
    DesignStructure structure;
    structure.addFileAssociation("*.bit", "Bit-streams");
    structure.addFileAssociation("*.bin", "Binaries");
    QCOMPARE(structure.mapFileNameToAssociation("top.bin")->designNode(), QString("Binaries"));
    QCOMPARE(structure.mapFileNameToAssociation("TOP.BIN")->designNode(), QString("Binaries"));
}

void DesignStructureTest::mapsAnUnknownNameToNothing()
{
    DesignStructure structure;
    QVERIFY(!structure.mapFileNameToAssociation("*.bit"));
    structure.addFileAssociation("*.bin", "Binaries");
    QVERIFY(!structure.mapFileNameToAssociation("*.bit"));
}

void DesignStructureTest::findsNodesAtEveryDepth()
{
    DesignStructure structure;
    TreeNode* const outer = structure.rootNode()->addNode("outer");
    TreeNode* const inner = outer->addNode("inner");
    QCOMPARE(structure.designNodeWithName("outer", false)->objectBase(), outer);
    QVERIFY(!structure.designNodeWithName("inner", false));
    QCOMPARE(structure.designNodeWithName("inner", true)->objectBase(), inner);
    QVERIFY(!structure.designNodeWithName("Inner", true));
    QVERIFY(!structure.designNodeWithName("", true));
}

void DesignStructureTest::findsTheOutermostOfTwoNodes()
{
    DesignStructure structure;
    structure.rootNode()->addNode("a")->addNode("same");
    TreeNode* const outermost = structure.rootNode()->addNode("same");
    QCOMPARE(structure.designNodeWithName("same", true)->objectBase(), outermost);
}

void DesignStructureTest::findsNoNodeByAnEmptyName()
{
    DesignStructure structure;
    structure.rootNode()->addNode(QString())->addNode("inner");
    QVERIFY(!structure.designNodeWithName(QString(), false));
    QVERIFY(!structure.designNodeWithName(QString(), true));
}

void DesignStructureTest::mapsToAWorkingFolder()
{
    DesignStructure structure;
    structure.addFileAssociation("*.bit", "Bit-streams");
    structure.addFileAssociation("*.zip", "Archives", "archives");
    structure.addFileAssociation("*.z*", "Packed", "packed");
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.zip", "", ""), QString("archives"));
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.zip", "Packed", ""), QString("packed"));
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.bit", "", ""), QString());
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.tar", "", "other"), QString("other"));
}

void DesignStructureTest::mapsToTheFolderOfThePatternItselfFirst()
{
    DesignStructure structure;
    structure.addFileAssociation("*.z*", "Packed", "packed");
    structure.addFileAssociation("*.zip", "Archives", "archives");
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.zip", "", ""), QString("archives"));
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("top.zip", "", ""), QString("packed"));
}

void DesignStructureTest::passesOverAssociationsWithoutAFolder()
{
    DesignStructure structure;
    structure.addFileAssociation("*.bit", "Bit-streams");
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.bit", "", "other"), QString("other"));
    structure.addFileAssociation("*.bi*", "Binaries", "binaries");
    QCOMPARE(structure.mapFileNameToWorkingFolderPath("*.bit", "", "other"), QString("binaries"));
}

ZORV_TEST(DesignStructureTest)
#include "DesignStructureTest.moc"
