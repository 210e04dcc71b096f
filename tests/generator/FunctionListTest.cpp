#include "generator/GeneratorTest.h"

#include <OrvanticCore/DesignManager.h>

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

namespace {

const char* const NameMissing =
    "Please enter a Function Name before uploading Function field is empty";
const char* const Override =
    "The Function already exists, click Yes to override it and No to cancel";
const char* const TooLong =
    "The Description can not be more 1000 characters long The description is too long";

const QStringList Nothing = {"", "", "", ""};

} // namespace

class FunctionListTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void showsTheFirstFunctionThatIsUploaded();
    void showsTheFunctionThatIsSelected();
    void clearsTheEditorWhenNothingIsSelected();
    void clearsTheEditorForAFunctionThatIsNotInMemory();
    void fillsEmptyFieldsWithFourZeros();
    void warnsOfAnEmptyNameAndAddsTheFunctionAllTheSame();
    void leavesEmptyFieldsOfANamelessFunctionEmpty();
    void keepsAListedFunctionOnNo_data();
    void keepsAListedFunctionOnNo();
    void overwritesAListedFunctionInPlaceOnYes();
    void takesNamesOfAnotherCaseForOthers();
    void offersTheFirstOfEqualNames();
    void clearsForANewBuild();
    void entersTheCurrentUserAsFunctionAuthor();
    void cutsADescriptionAfter1000Characters_data();
    void cutsADescriptionAfter1000Characters();
    void leavesTheCursorWhereALetterTooManyWasTyped();
    void cutsADescriptionThatIsSet();
    void leavesAFunctionDescriptionOfAnyLength();
    void uploadsAFunctionNamedByABlank();
    void clearsTheEditorOfAnEmptyList();

private:
    bool canRemove() const { return driver->find<QPushButton>("btnRemove")->isEnabled(); }
};

void FunctionListTest::showsTheFirstFunctionThatIsUploaded()
{
    driver->upload("A", "author", "line 1\nline 2", "42");
    QCOMPARE(driver->functionNames(), QStringList("A"));
    QCOMPARE(driver->find<QComboBox>("FunctionComboBox")->currentIndex(), 0);
    // Uploading ends with an empty editor, whatever the list shows.
    QCOMPARE(driver->editor(), Nothing);
    QVERIFY(canRemove());
    QCOMPARE(shown(0), QStringList({"A", "author", "line 1\nline 2", "42"}));
}

void FunctionListTest::showsTheFunctionThatIsSelected()
{
    uploadThree();
    driver->select("FunctionComboBox", 2);
    QCOMPARE(driver->editor(), QStringList({"C", "c1", "c2", "c3"}));
    driver->select("FunctionComboBox", 1);
    QCOMPARE(driver->editor(), QStringList({"B", "b1", "b2", "b3"}));
    QVERIFY(canRemove());
}

void FunctionListTest::clearsTheEditorWhenNothingIsSelected()
{
    uploadThree();
    driver->type("EditFunctionName", "being edited");
    driver->find<QPushButton>("btnRemove")->setEnabled(false);
    QCOMPARE(shown(-1), Nothing);
    QVERIFY(!canRemove());
}

void FunctionListTest::clearsTheEditorForAFunctionThatIsNotInMemory()
{
    driver->upload("A", "a1", "a2", "a3");
    QCOMPARE(shown(1), Nothing);
    QVERIFY(canRemove());
}

void FunctionListTest::fillsEmptyFieldsWithFourZeros()
{
    driver->upload("A", "", "", "");
    QCOMPARE(shown(0), QStringList({"A", "0000", "0000", "0000"}));
    driver->upload("B", "b", "", "");
    QCOMPARE(shown(1), QStringList({"B", "b", "0000", "0000"}));
}

void FunctionListTest::warnsOfAnEmptyNameAndAddsTheFunctionAllTheSame()
{
    driver->type("AuthorFunctions", "author");
    driver->type("CiNumberEditBoxFunctions", "42");
    driver->dialogs().click(QMessageBox::Ok);
    driver->dialogs().inspect([](QWidget* box) {
        QVERIFY(box->isModal());
        QVERIFY(!box->parent());
    });
    driver->click("UploadFunctionButton");
    QCOMPARE(driver->dialogs().texts(), QStringList(NameMissing));
    QCOMPARE(driver->functionNames(), QStringList(""));
    QCOMPARE(driver->window()->focusWidget(), driver->find<QWidget>("EditFunctionName"));
    QCOMPARE(shown(0), QStringList({"", "author", "", "42"}));
}

void FunctionListTest::leavesEmptyFieldsOfANamelessFunctionEmpty()
{
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("UploadFunctionButton");
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("UploadFunctionButton");
    QCOMPARE(driver->functionNames(), QStringList({"", ""}));
    QCOMPARE(shown(1), Nothing);
    QVERIFY(canRemove());
}

void FunctionListTest::keepsAListedFunctionOnNo_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("the button No") << 0;
    QTest::newRow("Enter, on the default button") << int(Qt::Key_Return);
    QTest::newRow("Escape") << int(Qt::Key_Escape);
}

void FunctionListTest::keepsAListedFunctionOnNo()
{
    QFETCH(int, key);
    uploadThree();
    driver->dialogs().inspect([](QWidget* box) {
        const auto* const question = qobject_cast<QMessageBox*>(box);
        QCOMPARE(question->standardButtons(), QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(question->defaultButton(), question->button(QMessageBox::No));
        QVERIFY(!question->parent());
    });
    if (key == 0)
        driver->dialogs().click(QMessageBox::No);
    else
        driver->dialogs().press(static_cast<Qt::Key>(key));
    driver->upload("B", "x", "y", "");
    QCOMPARE(driver->dialogs().texts(), QStringList(Override));
    QCOMPARE(driver->editor(), QStringList({"B", "x", "y", "0000"}));
    QCOMPARE(driver->functionNames(), QStringList({"A", "B", "C"}));
    QCOMPARE(shown(1), QStringList({"B", "b1", "b2", "b3"}));
}

void FunctionListTest::overwritesAListedFunctionInPlaceOnYes()
{
    uploadThree();
    driver->dialogs().click(QMessageBox::Yes);
    driver->upload("B", "x", "y", "z");
    QCOMPARE(driver->editor(), QStringList({"B", "x", "y", "z"}));
    QCOMPARE(driver->functionNames(), QStringList({"A", "B", "C"}));
    QCOMPARE(shown(0), QStringList({"A", "a1", "a2", "a3"}));
    QCOMPARE(shown(1), QStringList({"B", "x", "y", "z"}));
    QCOMPARE(shown(2), QStringList({"C", "c1", "c2", "c3"}));
}

void FunctionListTest::takesNamesOfAnotherCaseForOthers()
{
    driver->upload("Chirp", "1", "1", "1");
    driver->upload("chirp", "2", "2", "2");
    driver->upload("Chirp ", "3", "3", "3");
    QCOMPARE(driver->functionNames(), QStringList({"Chirp", "chirp", "Chirp "}));
}

void FunctionListTest::offersTheFirstOfEqualNames()
{
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("UploadFunctionButton");
    driver->upload("A", "first", "first", "first");
    // A file can list a name twice: this is what loading one leaves behind.
    driver->type("EditFunctionName", "A");
    driver->type("AuthorFunctions", "second");
    driver->window()->addFunction();
    driver->find<QComboBox>("FunctionComboBox")->addItem("A");

    driver->dialogs().click(QMessageBox::Yes);
    driver->upload("A", "new", "new", "new");
    QCOMPARE(shown(1), QStringList({"A", "new", "new", "new"}));
    QCOMPARE(shown(2), QStringList({"A", "second", "", ""}));
}

void FunctionListTest::clearsForANewBuild()
{
    uploadThree();
    driver->fillIn(driver->binary("top.bin", 100));
    driver->find<QLabel>("finalBlocks")->setText("1 blocks");
    auto* const modify = driver->find<QCheckBox>("ModifyFunctionCheckBox");
    modify->setEnabled(true);
    modify->setChecked(true);
    driver->click("ModifyFunctionCheckBox");

    // Each field that a text can be entered in, also one that will be new.
    const auto lines = driver->window()->findChildren<QLineEdit*>();
    const auto memos = driver->window()->findChildren<QTextEdit*>();
    for (auto* const field : lines)
        field->setText("1");
    for (auto* const field : memos)
        field->setPlainText("1");

    driver->chooseFromFileMenu("Clear");
    QVERIFY(!editorEnabled().contains(false));
    QVERIFY(!modify->isChecked());
    QCOMPARE(driver->functionNames(), QStringList());
    for (const char* label : {"txtInputFile", "BinFileSize", "BinFilePages", "BinFileBlocks",
                              "StatusBar", "finalPages", "finalBlocks", "finalSize"})
        QCOMPARE(driver->text(label), QString());
    for (const auto* field : lines)
        QVERIFY2(field->text().isEmpty(), qPrintable(field->objectName()));
    for (const auto* field : memos)
        QVERIFY2(field->toPlainText().isEmpty(), qPrintable(field->objectName()));

    driver->upload("D", "d1", "d2", "d3");
    QCOMPARE(shown(0), QStringList({"D", "d1", "d2", "d3"}));
}

void FunctionListTest::entersTheCurrentUserAsFunctionAuthor()
{
    driver->type("AuthoEditBox", "R. Vos");
    driver->click("btnItsMe");
    const QString user = OrvanticCore::DesignManager::instance()->currentUserName();
    QVERIFY(!user.isEmpty());
    QCOMPARE(driver->text("AuthorFunctions"), user);
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
}

void FunctionListTest::cutsADescriptionAfter1000Characters_data()
{
    QTest::addColumn<int>("pasted");
    QTest::addColumn<int>("left");
    QTest::newRow("999 characters") << 999 << 999;
    QTest::newRow("1000 characters") << 1000 << 1000;
    QTest::newRow("1001 characters") << 1001 << 1000;
    QTest::newRow("1500 characters") << 1500 << 1000;
}

void FunctionListTest::cutsADescriptionAfter1000Characters()
{
    QFETCH(int, pasted);
    QFETCH(int, left);
    QString text;
    for (int i = 0; i < pasted; ++i)
        text += i % 50 == 49 ? QChar('\n') : QChar('a' + i % 26);
    QApplication::clipboard()->setText(text);
    const bool cut = pasted > left;
    if (cut)
        driver->dialogs().click(QMessageBox::Ok);

    auto* const memo = driver->find<QTextEdit>("DescriptionMemo");
    driver->find<QWidget>("AuthoEditBox")->setFocus();
    QTest::keySequence(memo, QKeySequence::Paste);
    QCOMPARE(memo->toPlainText(), text.left(left));
    QCOMPARE(driver->dialogs().texts(), cut ? QStringList(TooLong) : QStringList());
    QCOMPARE(driver->window()->focusWidget() == memo, cut);
    QCOMPARE(memo->textCursor().position(), qMin(pasted, left));
}

void FunctionListTest::leavesTheCursorWhereALetterTooManyWasTyped()
{
    auto* const memo = driver->find<QTextEdit>("DescriptionMemo");
    memo->setPlainText(QString(1000, 'x'));
    QTextCursor cursor = memo->textCursor();
    cursor.setPosition(400);
    memo->setTextCursor(cursor);
    driver->dialogs().click(QMessageBox::Ok);
    QTest::keyClick(memo, 'y');
    QCOMPARE(memo->textCursor().position(), 401);
    QCOMPARE(memo->toPlainText(), QString(400, 'x') + 'y' + QString(599, 'x'));
}

void FunctionListTest::cutsADescriptionThatIsSet()
{
    driver->dialogs().click(QMessageBox::Ok);
    driver->window()->setDescription(QString(1234, 'x'));
    QCOMPARE(driver->text("DescriptionMemo"), QString(1000, 'x'));
    QCOMPARE(driver->dialogs().texts(), QStringList(TooLong));
}

void FunctionListTest::leavesAFunctionDescriptionOfAnyLength()
{
    QApplication::clipboard()->setText(QString(3000, 'x'));
    QTest::keySequence(driver->find<QTextEdit>("DescriptionMemoFunctions"), QKeySequence::Paste);
    QCOMPARE(driver->text("DescriptionMemoFunctions"), QString(3000, 'x'));
}

void FunctionListTest::uploadsAFunctionNamedByABlank()
{
    driver->upload(" ", "a", "d", "1");
    QCOMPARE(driver->functionNames(), QStringList(" "));
    QCOMPARE(shown(0), QStringList({" ", "a", "d", "1"}));
}

void FunctionListTest::clearsTheEditorOfAnEmptyList()
{
    driver->type("EditFunctionName", "A");
    driver->type("AuthorFunctions", "a");
    driver->type("DescriptionMemoFunctions", "d");
    driver->type("CiNumberEditBoxFunctions", "1");
    driver->chooseFromFileMenu("Clear");
    QCOMPARE(driver->editor(), Nothing);
}

QTEST_MAIN(FunctionListTest)
#include "FunctionListTest.moc"
