#include "generator/GeneratorTest.h"

#include <OrvanticCore/DesignManager.h>

#include <QCheckBox>
#include <QClipboard>
#include <QPushButton>
#include <QtTest>

namespace {

const char* const Remove =
    "Are you sure you want to remove the function?, click Yes to remove it and No to cancel";

const QStringList Nothing = {"", "", "", ""};

} // namespace

/// Remove Function, and what locks and unlocks the editor.
class FunctionButtonsTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void removesAFunctionOnYes();
    void keepsTheFunctionButNotTheAuthorOnNo();
    void removesTheLastFunctionAndThenDoesNothing();
    void removesNothingFromAnEmptyList();
    void locksAndUnlocksTheEditor();
    void unlocksByClearFunctionParameters();
    void setsRemoveByTheListBeforeAnUpload();
    void setsRemoveByTheListWhenAFunctionIsShown();
    void enablesRemoveAfterEachUpload();
    void leavesRemoveAloneWhenCleared();

private:
    bool canRemove() const { return driver->find<QPushButton>("btnRemove")->isEnabled(); }
};

void FunctionButtonsTest::removesAFunctionOnYes()
{
    uploadThree();
    driver->select("FunctionComboBox", 1);
    driver->dialogs().click(QMessageBox::Yes);
    driver->dialogs().inspect([this](QWidget* box) {
        const auto* const question = qobject_cast<QMessageBox*>(box);
        QCOMPARE(question->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QVERIFY(!question->defaultButton());
        QVERIFY(!question->parent());
        // Before the answer already.
        QCOMPARE(driver->text("AuthoEditBox"), QString("1"));
    });
    driver->click("btnRemove");
    QCOMPARE(driver->dialogs().texts(), QStringList(Remove));
    QCOMPARE(driver->functionNames(), QStringList({"A", "C"}));
    QCOMPARE(driver->text("AuthoEditBox"), QString("1"));
    QCOMPARE(driver->editor(), Nothing);
    QCOMPARE(shown(0), QStringList({"A", "a1", "a2", "a3"}));
    QCOMPARE(shown(1), QStringList({"C", "c1", "c2", "c3"}));
}

void FunctionButtonsTest::keepsTheFunctionButNotTheAuthorOnNo()
{
    uploadThree();
    driver->type("AuthoEditBox", "R. Vos");
    driver->select("FunctionComboBox", 1);
    driver->dialogs().click(QMessageBox::No);
    driver->click("btnRemove");
    QCOMPARE(driver->text("AuthoEditBox"), QString("1"));
    QCOMPARE(driver->functionNames(), QStringList({"A", "B", "C"}));
    QCOMPARE(driver->editor(), QStringList({"B", "b1", "b2", "b3"}));
}

void FunctionButtonsTest::removesTheLastFunctionAndThenDoesNothing()
{
    driver->upload("A", "a1", "a2", "a3");
    driver->dialogs().click(QMessageBox::Yes);
    driver->click("btnRemove");
    QCOMPARE(driver->functionNames(), QStringList());
    QCOMPARE(driver->editor(), Nothing);
    QVERIFY(canRemove());
    driver->type("AuthoEditBox", "R. Vos");
    driver->click("btnRemove");
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->dialogs().texts().size(), 1);

    driver->upload("B", "b1", "b2", "b3");
    QCOMPARE(shown(0), QStringList({"B", "b1", "b2", "b3"}));
}

void FunctionButtonsTest::removesNothingFromAnEmptyList()
{
    driver->type("AuthoEditBox", "R. Vos");
    driver->window()->btnRemove_clicked();
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->dialogs().texts(), QStringList());
}

void FunctionButtonsTest::locksAndUnlocksTheEditor()
{
    const QList<bool> unlocked = {true, true, true, true, true, true, true};
    const QList<bool> locked = {false, false, false, false, false, false, false};
    QCOMPARE(editorEnabled(), unlocked);
    auto* const modify = driver->find<QCheckBox>("ModifyFunctionCheckBox");
    driver->click("ModifyFunctionCheckBox");
    QVERIFY(!modify->isChecked());

    modify->setEnabled(true);
    QTest::keyClick(modify, Qt::Key_Space);
    QCOMPARE(editorEnabled(), unlocked);
    QTest::keyClick(modify, Qt::Key_Space);
    QCOMPARE(editorEnabled(), locked);
    QTest::keyClick(modify, Qt::Key_Space);
    QCOMPARE(editorEnabled(), unlocked);
}

void FunctionButtonsTest::unlocksByClearFunctionParameters()
{
    driver->type("EditFunctionName", "A");
    driver->type("DescriptionMemoFunctions", "d");
    driver->click("AddNewFunction");
    QCOMPARE(driver->editor(), Nothing);

    auto* const modify = driver->find<QCheckBox>("ModifyFunctionCheckBox");
    modify->setEnabled(true);
    modify->setChecked(true);
    driver->click("ModifyFunctionCheckBox");
    QVERIFY(!editorEnabled().contains(true));
    driver->window()->addNewFuction();
    QVERIFY(!editorEnabled().contains(false));
    QVERIFY(!modify->isChecked());
}

void FunctionButtonsTest::setsRemoveByTheListBeforeAnUpload()
{
    auto* const remove = driver->find<QPushButton>("btnRemove");
    driver->type("EditFunctionName", "A");
    remove->setEnabled(true);
    QVERIFY(!driver->window()->checkFunction());
    QVERIFY(!canRemove());

    driver->click("UploadFunctionButton");
    driver->type("EditFunctionName", "B");
    remove->setEnabled(false);
    QVERIFY(!driver->window()->checkFunction());
    QVERIFY(canRemove());
}

void FunctionButtonsTest::setsRemoveByTheListWhenAFunctionIsShown()
{
    auto* const remove = driver->find<QPushButton>("btnRemove");
    driver->upload("A", "a", "d", "1");
    remove->setEnabled(false);
    shown(0);
    QVERIFY(canRemove());
    driver->chooseFromFileMenu("Clear");
    shown(0);
    QVERIFY(!canRemove());
}

void FunctionButtonsTest::enablesRemoveAfterEachUpload()
{
    driver->upload("A", "a", "d", "1");
    driver->find<QPushButton>("btnRemove")->setEnabled(false);
    // Without a name nothing else would enable it.
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("UploadFunctionButton");
    QVERIFY(canRemove());
}

void FunctionButtonsTest::leavesRemoveAloneWhenCleared()
{
    uploadThree();
    driver->chooseFromFileMenu("Clear");
    QVERIFY(canRemove());
}

QTEST_MAIN(FunctionButtonsTest)
#include "FunctionButtonsTest.moc"
