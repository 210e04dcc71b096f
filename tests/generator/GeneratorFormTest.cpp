#include "generator/GeneratorTest.h"
#include "support/TestProgram.h"

#include <QtCreatorUtilities/DetailsWidget.h>

#include <QCheckBox>
#include <QClipboard>
#include <QGroupBox>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QRegularExpression>
#include <QTextCursor>
#include <QtTest>

using QtCreatorUtilities::DetailsWidget;

class GeneratorFormTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void declaresItsSignalAndSlotsInOrder();
    void hasTheFormsObjectsInOrder();
    void isCalledAndTitledAsUsersKnowIt();
    void showsTheTextsOfTheForm_data();
    void showsTheTextsOfTheForm();
    void limitsItsFields();
    void offersLoadAndClearInTheFileMenu();
    void leavesTheOtherActionsOutOfEveryMenu();
    void startsWithTheFirstTargetAndNoFunction();
    void foldsTargetAndFunctionsIntoPanels();
    void startsWithTheTargetUnfoldedAndTheFunctionsFolded();
    void visitsItsFieldsInReadingOrder();
    void labelsAreBuddiesOfTheirFields();
    void leavesTheDevicesEmptyForAnUnknownModule();
    void pastesMarkupAsPlainText();
    void showsBoxesAsWarnings();
    void keepsTheCursorWhereADescriptionIsCut();
    void removesTheFunctionThatWasSelectedWhenAsked();
    void showsTheTargetThatTheUserGuideNames_data();
    void showsTheTargetThatTheUserGuideNames();
};

void GeneratorFormTest::declaresItsSignalAndSlotsInOrder()
{
    const QMetaObject& meta = PelkFcfGenerator::staticMetaObject;
    QStringList methods;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        const QMetaMethod method = meta.method(i);
        const bool isSignal = method.methodType() == QMetaMethod::Signal;
        methods << QString("%1 %2 %3(%4)")
                       .arg(isSignal ? "signal" : "slot", method.typeName(), method.name(),
                            method.parameterNames().join(','));
    }
    const QStringList expected = {"signal void newFilesCreated(files)",
                                  "slot void updateComboBoxFPGA()",
                                  "slot void openFileDialog()",
                                  "slot void generateButtonClick()",
                                  "slot void btnRemove_clicked()",
                                  "slot void modifyFunctionsCheckBoxClick()",
                                  "slot void DescriptionMemoExit()",
                                  "slot void uploadFunctionButtonClick()",
                                  "slot bool checkFunction()",
                                  "slot void fileOpenAccept()",
                                  "slot void displayConfigFileInfo(file)",
                                  "slot bool readConfigFile(filename)",
                                  "slot void addFunction()",
                                  "slot void displayFunctionInfo(new_selection)",
                                  "slot void addNewFuction()",
                                  "slot void addNew()",
                                  "slot void on_btnCancel_clicked()",
                                  "slot void on_btnItsMe_clicked()"};
    QCOMPARE(methods, expected);
    QCOMPARE(meta.propertyCount(), QMainWindow::staticMetaObject.propertyCount());
}

void GeneratorFormTest::hasTheFormsObjectsInOrder()
{
    // In the order of the form's file, which is the order in which the objects are made.
    QFile form(QFINDTESTDATA("../../generator/PelkFcfGenerator.ui"));
    QVERIFY(form.open(QIODevice::ReadOnly));
    const QString source = form.readAll();
    const QList<QPair<QString, QString>> objects = {{"QMenu", "menuFile"},
                                                    {"QGroupBox", "groupBox_4"},
                                                    {"QLineEdit", "txtInputFile"},
                                                    {"QLabel", "BinFileSize"},
                                                    {"QLabel", "BinFilePages"},
                                                    {"QLabel", "BinFileBlocks"},
                                                    {"QPushButton", "btnLoad"},
                                                    {"QLabel", "StatusBar"},
                                                    {"QGroupBox", "groupBox_3"},
                                                    {"QLineEdit", "AuthoEditBox"},
                                                    {"QLineEdit", "MajorVerEditBox"},
                                                    {"QLineEdit", "MinorVerEditBox"},
                                                    {"QLineEdit", "CiNumEditBox"},
                                                    {"QTextEdit", "DescriptionMemo"},
                                                    {"QWidget", "widgetTargetSettings"},
                                                    {"QComboBox", "ModuleComboBox"},
                                                    {"QComboBox", "FpgaComboBox"},
                                                    {"QComboBox", "ConfigComboBox"},
                                                    {"QWidget", "widgetTargetDetailsHolder"},
                                                    {"QWidget", "widgetFunctionDetailsHolder"},
                                                    {"QWidget", "widgetFunctions"},
                                                    {"QComboBox", "FunctionComboBox"},
                                                    {"QCheckBox", "ModifyFunctionCheckBox"},
                                                    {"QPushButton", "btnRemove"},
                                                    {"QLineEdit", "EditFunctionName"},
                                                    {"QPushButton", "AddNewFunction"},
                                                    {"QPushButton", "UploadFunctionButton"},
                                                    {"QLineEdit", "AuthorFunctions"},
                                                    {"QPushButton", "btnItsMe"},
                                                    {"QTextEdit", "DescriptionMemoFunctions"},
                                                    {"QLineEdit", "CiNumberEditBoxFunctions"},
                                                    {"QLabel", "finalSize"},
                                                    {"QLabel", "finalPages"},
                                                    {"QLabel", "finalBlocks"},
                                                    {"QPushButton", "btnCancel"},
                                                    {"QPushButton", "GenerateButton"}};
    int position = 0;
    for (const auto& object : objects) {
        const QWidget* const widget = driver->find<QWidget>(qPrintable(object.second));
        QCOMPARE(QString(widget->metaObject()->className()), object.first);
        const int found = source.indexOf("name=\"" + object.second + '"', position);
        QVERIFY2(found > position, qPrintable(object.second));
        position = found;
    }
}

void GeneratorFormTest::isCalledAndTitledAsUsersKnowIt()
{
    QCOMPARE(driver->window()->objectName(), QString("PelkFcfGenerator"));
    QCOMPARE(driver->window()->windowTitle(), QString("Pelk FCF Generator"));
    // The icon is the host's to provide; without one the window has none.
    QFile form(QFINDTESTDATA("../../generator/PelkFcfGenerator.ui"));
    QVERIFY(form.open(QIODevice::ReadOnly));
    QVERIFY(form.readAll().contains("<normaloff>:/icons/radar_22x22.png</normaloff>"));
}

void GeneratorFormTest::showsTheTextsOfTheForm_data()
{
    QTest::addColumn<QString>("text");
    const QStringList labels = {"Input Binary File:",
                                "Size:",
                                "Author",
                                "Version:",
                                "CI Number",
                                "Description",
                                "Module:",
                                "Device:",
                                "Config NO:",
                                "Function List:",
                                "Function Name",
                                "Function Author",
                                "Function Description:",
                                "Function CI Number:",
                                "Generated File Size:",
                                "size",
                                "pages",
                                "file blocks"};
    for (const QString& label : labels)
        QTest::newRow(qPrintable("label " + label)) << label;
    for (const char* button : {"Load", "Modify", "Remove Function", "Clear Function Parameters",
                               "Upload Function", "It's Me", "Cancel", "Generate"})
        QTest::newRow(qPrintable(QString("button ") + button)) << button;
    for (const char* title : {"Xilinx Binary Programming File:", "Build Details:"})
        QTest::newRow(qPrintable(QString("box ") + title)) << title;
}

void GeneratorFormTest::showsTheTextsOfTheForm()
{
    QFETCH(QString, text);
    int shown = 0;
    for (const QWidget* widget : driver->window()->findChildren<QWidget*>()) {
        const bool is = widget->property("text").toString() == text ||
                        widget->property("title").toString() == text;
        shown += is && widget->isVisible();
    }
    QCOMPARE(shown, 1);
}

void GeneratorFormTest::limitsItsFields()
{
    QCOMPARE(driver->find<QLineEdit>("AuthoEditBox")->maxLength(), 20);
    for (const char* name : {"MajorVerEditBox", "MinorVerEditBox"}) {
        const auto* const field = driver->find<QLineEdit>(name);
        QCOMPARE(field->maxLength(), 3);
        QCOMPARE(field->maximumWidth(), 50);
        QVERIFY(!field->validator());
        driver->type(name, "a-bc");
        QCOMPARE(field->text(), QString("a-b"));
    }
    QCOMPARE(driver->find<QLineEdit>("MajorVerEditBox")->inputMethodHints(),
             Qt::InputMethodHints(Qt::ImhDialableCharactersOnly));
    QCOMPARE(driver->find<QLineEdit>("MinorVerEditBox")->inputMethodHints(),
             Qt::InputMethodHints(Qt::ImhDigitsOnly));
    const auto* const list = driver->find<QComboBox>("FunctionComboBox");
    QCOMPARE(list->minimumWidth(), 200);
    QCOMPARE(list->maximumWidth(), 200);
    QVERIFY(list->isEnabled() && !list->isEditable());
    QVERIFY(!driver->find<QCheckBox>("ModifyFunctionCheckBox")->isTristate());
}

void GeneratorFormTest::offersLoadAndClearInTheFileMenu()
{
    const QList<QAction*> menus = driver->window()->menuBar()->actions();
    QCOMPARE(menus.size(), 1);
    QCOMPARE(menus[0]->text(), QString("File"));
    QStringList entries;
    for (const QAction* action : menus[0]->menu()->actions())
        entries << action->objectName() + '=' + action->text();
    QCOMPARE(entries, QStringList({"actionLoad=Load", "actionNew=Clear"}));
}

void GeneratorFormTest::leavesTheOtherActionsOutOfEveryMenu()
{
    const QList<QPair<QString, QString>> actions = {{"actionExit", "exit"},
                                                    {"actionAbout", "about"},
                                                    {"actionSave", "new"},
                                                    {"actionExit_2", "Exit"}};
    for (const auto& expected : actions) {
        auto* const action = driver->window()->findChild<QAction*>(expected.first);
        QVERIFY2(action, qPrintable(expected.first));
        QCOMPARE(action->text(), expected.second);
        for (const auto* widget : driver->window()->findChildren<QWidget*>())
            QVERIFY2(!widget->actions().contains(action), qPrintable(widget->objectName()));
        action->trigger();
        QVERIFY(driver->window()->isVisible());
        QCOMPARE(driver->dialogs().texts(), QStringList());
    }
}

void GeneratorFormTest::startsWithTheFirstTargetAndNoFunction()
{
    QCOMPARE(driver->window()->getModule(), QString("DFE"));
    QCOMPARE(driver->window()->getDevice(), QString("Interface_FPGA"));
    QCOMPARE(driver->window()->getConfigNum(), 1);
    QCOMPARE(driver->functionNames(), QStringList());
    QVERIFY(!driver->find<QPushButton>("btnRemove")->isEnabled());
    QVERIFY(!driver->find<QCheckBox>("ModifyFunctionCheckBox")->isEnabled());
    QCOMPARE(driver->items("ModuleComboBox"), QStringList({"DFE", "DFE2", "GPM"}));
    QCOMPARE(driver->items("ConfigComboBox"),
             QStringList({"1", "2", "3", "4", "5", "6", "7", "8", "9", "10"}));
}

void GeneratorFormTest::foldsTargetAndFunctionsIntoPanels()
{
    for (const auto& [holder, body, summary] :
         {std::tuple("widgetFunctionDetailsHolder", "widgetFunctions",
                     "<b>Functions In Build:</b>"),
          std::tuple("widgetTargetDetailsHolder", "widgetTargetSettings",
                     "<b>Target Flash Location:</b>")}) {
        const auto* const panel = driver->find<QWidget>(holder)->findChild<DetailsWidget*>();
        QVERIFY(panel);
        QCOMPARE(panel->widget(), driver->find<QWidget>(body));
        QCOMPARE(panel->summaryText(), QString(summary));
        QCOMPARE(driver->find<QWidget>(holder)->layout()->contentsMargins(), QMargins());
    }
}

void GeneratorFormTest::startsWithTheTargetUnfoldedAndTheFunctionsFolded()
{
    PelkFcfGenerator fresh;
    fresh.show();
    QVERIFY(QTest::qWaitForWindowExposed(&fresh));
    QVERIFY(fresh.findChild<QWidget*>("widgetTargetSettings")->isVisible());
    QVERIFY(!fresh.findChild<QWidget*>("widgetFunctions")->isVisible());
}

void GeneratorFormTest::visitsItsFieldsInReadingOrder()
{
    QStringList visited;
    driver->find<QWidget>("txtInputFile")->setFocus();
    driver->find<QWidget>("btnRemove")->setEnabled(true);
    driver->find<QWidget>("ModifyFunctionCheckBox")->setEnabled(true);
    for (int i = 0; i < 24; ++i) {
        QWidget* const focus = QApplication::focusWidget();
        QVERIFY(focus);
        visited << focus->objectName();
        QTest::keyClick(focus, Qt::Key_Tab);
    }
    const QStringList expected = {"txtInputFile",
                                  "btnLoad",
                                  "AuthoEditBox",
                                  "MajorVerEditBox",
                                  "MinorVerEditBox",
                                  "CiNumEditBox",
                                  "DescriptionMemo",
                                  "arrow",
                                  "ModuleComboBox",
                                  "FpgaComboBox",
                                  "ConfigComboBox",
                                  "arrow",
                                  "FunctionComboBox",
                                  "ModifyFunctionCheckBox",
                                  "btnRemove",
                                  "EditFunctionName",
                                  "AddNewFunction",
                                  "UploadFunctionButton",
                                  "AuthorFunctions",
                                  "btnItsMe",
                                  "DescriptionMemoFunctions",
                                  "CiNumberEditBoxFunctions",
                                  "btnCancel",
                                  "GenerateButton"};
    QCOMPARE(visited, expected);
}

void GeneratorFormTest::labelsAreBuddiesOfTheirFields()
{
    QMap<QString, QString> buddies;
    for (const QLabel* label : driver->window()->findChildren<QLabel*>()) {
        if (label->buddy())
            buddies[label->text()] = label->buddy()->objectName();
    }
    const QMap<QString, QString> expected = {{"Input Binary File:", "txtInputFile"},
                                             {"Author", "AuthoEditBox"},
                                             {"Version:", "MajorVerEditBox"},
                                             {".", "MinorVerEditBox"},
                                             {"CI Number", "CiNumEditBox"},
                                             {"Description", "DescriptionMemo"},
                                             {"Module:", "ModuleComboBox"},
                                             {"Device:", "FpgaComboBox"},
                                             {"Config NO:", "ConfigComboBox"},
                                             {"Function List:", "FunctionComboBox"},
                                             {"Function Name", "EditFunctionName"},
                                             {"Function Author", "AuthorFunctions"},
                                             {"Function Description:", "DescriptionMemoFunctions"},
                                             {"Function CI Number:", "CiNumberEditBoxFunctions"}};
    QCOMPARE(buddies, expected);
}

void GeneratorFormTest::leavesTheDevicesEmptyForAnUnknownModule()
{
    auto* const modules = driver->find<QComboBox>("ModuleComboBox");
    modules->addItem("dfe");
    QTest::keyClick(modules, Qt::Key_End);
    QCOMPARE(driver->window()->getModule(), QString("dfe"));
    QCOMPARE(driver->find<QComboBox>("FpgaComboBox")->count(), 0);
    QCOMPARE(driver->window()->getDevice(), QString());
}

void GeneratorFormTest::pastesMarkupAsPlainText()
{
    auto* const data = new QMimeData;
    data->setHtml("<b>bold</b>");
    data->setText("bold");
    QApplication::clipboard()->setMimeData(data);
    for (const char* memo : {"DescriptionMemo", "DescriptionMemoFunctions"}) {
        auto* const edit = driver->find<QTextEdit>(memo);
        edit->setFocus();
        QTest::keySequence(edit, QKeySequence::Paste);
        QCOMPARE(edit->toPlainText(), QString("bold"));
        QVERIFY(!edit->toHtml().contains("font-weight:600"));
    }
}

void GeneratorFormTest::showsBoxesAsWarnings()
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    driver->dialogs().inspect([&](QWidget* box) {
        icon = qobject_cast<QMessageBox*>(box)->icon();
        title = box->windowTitle();
    });
    driver->dialogs().click(QMessageBox::Ok);
    driver->click("GenerateButton");
    QCOMPARE(driver->dialogs().texts(), QStringList("Please select a bin file first"));
    QCOMPARE(icon, QMessageBox::Warning);
    QCOMPARE(title, QString("Pelk FCF Generator"));
}

void GeneratorFormTest::keepsTheCursorWhereADescriptionIsCut()
{
    auto* const memo = driver->find<QTextEdit>("DescriptionMemo");
    driver->window()->setDescription(QString(1000, 'd'));
    QTextCursor cursor = memo->textCursor();
    cursor.setPosition(7);
    memo->setTextCursor(cursor);
    driver->dialogs().click(QMessageBox::Ok);
    QTest::keyClick(memo, 'x');
    QCOMPARE(memo->toPlainText(), QString(7, 'd') + 'x' + QString(992, 'd'));
    QCOMPARE(memo->textCursor().position(), 8);
}

void GeneratorFormTest::removesTheFunctionThatWasSelectedWhenAsked()
{
    for (const char* name : {"first", "second", "third"})
        driver->upload(name, "a", "d", "c");
    driver->select("FunctionComboBox", 1);
    driver->dialogs().inspect(
        [this](QWidget*) { driver->find<QComboBox>("FunctionComboBox")->setCurrentIndex(2); });
    driver->dialogs().click(QMessageBox::Yes);
    driver->click("btnRemove");
    QCOMPARE(driver->functionNames(), QStringList({"first", "third"}));
}

void GeneratorFormTest::showsTheTargetThatTheUserGuideNames_data()
{
    QTest::addColumn<QStringList>("made");
    QTest::addColumn<QStringList>("shown");
    QFile guide(QFINDTESTDATA("../../docs/guide/changing-a-build.md"));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    static const QRegularExpression row(
        "\\| (DFE|DFE2|GPM), (\\w+) \\| (DFE|DFE2|GPM), (no device|\\w+)");
    const QString text = guide.readAll();
    int rows = 0;
    for (auto match = row.globalMatch(text); match.hasNext();) {
        const QStringList cells = match.next().capturedTexts();
        QTest::newRow(qPrintable(cells[1] + ' ' + cells[2]))
            << QStringList{cells[1], cells[2]}
            << QStringList{cells[3], cells[4] == "no device" ? QString() : cells[4]};
        ++rows;
    }
    QCOMPARE(rows, 8);
}

void GeneratorFormTest::showsTheTargetThatTheUserGuideNames()
{
    QFETCH(QStringList, made);
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setModule(made[0]);
    driver->window()->setDevice(made[1]);
    driver->window()->setConfigNum(6);
    generate();
    driver->reopen();
    driver->window()->setTxtFile(driver->path("top.txt"));
    QTEST(QStringList({driver->window()->getModule(), driver->window()->getDevice()}), "shown");
    QCOMPARE(driver->window()->getConfigNum(), 6);
}

ZORV_WINDOW_TEST(GeneratorFormTest)
#include "GeneratorFormTest.moc"
