#include "support/TestProgram.h"

#include <QtilitiesCoreGui/TreeFileItem.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using Qtilities::CoreGui::TreeFileItem;
using Qtilities::CoreGui::TreeItemBase;
using Qtilities::CoreGui::TreeNode;

namespace {

const char* const LayoutChanged = SIGNAL(layoutChanged());

} // namespace

class TreeTest : public QObject {
    Q_OBJECT

private slots:
    void keepsItsSubjectsInOrder();
    void takesAnItemOnlyOnce();
    void movesAnItemFromItsFormerNode();
    void losesADeletedItem();
    void deletesItsItemsWithoutBeingTheirParent();
    void announcesEachChangeOutsideACycle();
    void announcesOnceAtTheEndOfTheOutermostCycle();
    void announcesNothingAfterACycleWithoutChanges();
    void announcesNothingAfterASilentCycle();
    void ignoresAnEndWithoutACycle();
    void announcesChangesOfNodesBelow();
    void reportsNameAndCategory();
    void takesFileNamesApart_data();
    void takesFileNamesApart();
    void knowsWhetherAFileExists();
};

void TreeTest::keepsItsSubjectsInOrder()
{
    TreeNode root("root");
    TreeNode* const node = root.addNode("node");
    auto* const item = new TreeItemBase("item");
    QVERIFY(root.addItem(item));
    QCOMPARE(root.subjectCount(), 2);
    QCOMPARE(root.subjectAt(0), node);
    QCOMPARE(root.subjectAt(1), item);
    QCOMPARE(root.subjectAt(2), nullptr);
    QCOMPARE(root.subjectAt(-1), nullptr);
}

void TreeTest::takesAnItemOnlyOnce()
{
    TreeNode root;
    auto* const item = new TreeItemBase("item");
    QVERIFY(root.addItem(item));
    QVERIFY(!root.addItem(item));
    QVERIFY(!root.addItem(nullptr));
    QCOMPARE(root.subjectCount(), 1);
}

void TreeTest::movesAnItemFromItsFormerNode()
{
    TreeNode first;
    TreeNode second;
    auto* const item = new TreeItemBase("item");
    first.addItem(item);
    QSignalSpy firstChanged(&first, LayoutChanged);
    QVERIFY(second.addItem(item));
    QCOMPARE(first.subjectCount(), 0);
    QCOMPARE(second.subjectAt(0), item);
    QCOMPARE(firstChanged.count(), 1);
    delete item;
    QCOMPARE(firstChanged.count(), 1);
}

void TreeTest::deletesItsItemsWithoutBeingTheirParent()
{
    auto* const root = new TreeNode("root");
    TreeNode* const node = root->addNode("node");
    auto* const item = new TreeItemBase("item");
    QVERIFY(node->addItem(item));
    QVERIFY(!node->parent());
    QVERIFY(!item->parent());

    QSignalSpy changed(root, LayoutChanged);
    QSignalSpy nodeGone(node, SIGNAL(destroyed()));
    QSignalSpy itemGone(item, SIGNAL(destroyed()));
    delete root;
    QCOMPARE(changed.count(), 0);
    QCOMPARE(nodeGone.count(), 1);
    QCOMPARE(itemGone.count(), 1);
}

void TreeTest::losesADeletedItem()
{
    TreeNode root;
    auto* const item = new TreeItemBase("item");
    root.addItem(item);
    QSignalSpy changed(&root, LayoutChanged);
    delete item;
    QCOMPARE(root.subjectCount(), 0);
    QCOMPARE(changed.count(), 1);
}

void TreeTest::announcesEachChangeOutsideACycle()
{
    TreeNode root;
    QSignalSpy changed(&root, LayoutChanged);
    root.addNode("a");
    root.addNode("b");
    QCOMPARE(changed.count(), 2);
}

void TreeTest::announcesOnceAtTheEndOfTheOutermostCycle()
{
    TreeNode root;
    QSignalSpy changed(&root, LayoutChanged);
    QSignalSpy ended(&root, SIGNAL(processingCycleEnded(bool)));
    root.startProcessingCycle();
    root.addNode("a");
    root.startProcessingCycle();
    root.addNode("b");
    root.endProcessingCycle();
    QVERIFY(root.isProcessingCycleActive());
    QCOMPARE(changed.count(), 0);
    QCOMPARE(ended.count(), 0);
    root.endProcessingCycle();
    QVERIFY(!root.isProcessingCycleActive());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(ended.count(), 1);
}

void TreeTest::announcesNothingAfterACycleWithoutChanges()
{
    TreeNode root;
    QSignalSpy changed(&root, LayoutChanged);
    root.startProcessingCycle();
    root.endProcessingCycle();
    QCOMPARE(changed.count(), 0);
}

void TreeTest::announcesNothingAfterASilentCycle()
{
    TreeNode root;
    QSignalSpy changed(&root, LayoutChanged);
    QSignalSpy ended(&root, SIGNAL(processingCycleEnded(bool)));
    root.startProcessingCycle();
    root.addNode("a");
    root.endProcessingCycle(false);
    root.startProcessingCycle();
    root.endProcessingCycle();
    QCOMPARE(changed.count(), 0);
    QCOMPARE(ended.count(), 2);
    QCOMPARE(ended.at(0), QVariantList{false});
    QCOMPARE(ended.at(1), QVariantList{true});
}

void TreeTest::ignoresAnEndWithoutACycle()
{
    TreeNode root;
    QSignalSpy ended(&root, SIGNAL(processingCycleEnded(bool)));
    root.endProcessingCycle();
    QCOMPARE(ended.count(), 0);
    root.startProcessingCycle();
    QVERIFY(root.isProcessingCycleActive());
}

void TreeTest::announcesChangesOfNodesBelow()
{
    TreeNode root;
    TreeNode* const node = root.addNode("node");
    QSignalSpy changed(&root, LayoutChanged);
    node->addItem(new TreeItemBase("item"));
    QCOMPARE(changed.count(), 1);
}

void TreeTest::reportsNameAndCategory()
{
    TreeNode root("root");
    TreeNode* const outer = root.addNode("outer");
    TreeNode* const inner = outer->addNode("inner");
    auto* const item = new TreeItemBase("item");
    inner->addItem(item);
    QCOMPARE(item->getName(), QString("item"));
    QCOMPARE(item->getName(inner), QString("item"));
    QCOMPARE(item->getCategoryString(), QString("outer::inner"));
    QCOMPARE(item->getCategoryString("/"), QString("outer/inner"));
    QCOMPARE(outer->getCategoryString(), QString());
}

void TreeTest::takesFileNamesApart_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QString>("completeSuffix");

    QTest::newRow("one dot") << "/some/top.bin"
                             << "bin"
                             << "bin";
    QTest::newRow("two dots") << "/some/top.rev.bin"
                              << "bin"
                              << "rev.bin";
    QTest::newRow("capital letters") << "/some/TOP.BIN"
                                     << "BIN"
                                     << "BIN";
    QTest::newRow("a dot in the folder alone") << "/some.d/top"
                                               << ""
                                               << "";
}

void TreeTest::takesFileNamesApart()
{
    QFETCH(QString, path);
    const TreeFileItem item(path);
    QCOMPARE(item.filePath(), path);
    QCOMPARE(item.fileName(), path.section('/', -1));
    QCOMPARE(item.getName(), item.fileName());
    QTEST(item.suffix(), "suffix");
    QTEST(item.completeSuffix(), "completeSuffix");
}

void TreeTest::knowsWhetherAFileExists()
{
    const QTemporaryDir folder;
    const TreeFileItem item(folder.filePath("top.bin"));
    QVERIFY(!item.exists());
    QFile file(item.filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(item.exists());
}

ZORV_TEST(TreeTest)
#include "TreeTest.moc"
