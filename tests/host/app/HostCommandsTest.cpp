#include "host/app/HostFixture.h"

#include "host/app/PluginList.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTextBlock>
#include <QTextBrowser>
#include <QToolBar>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;

namespace {

Design* designAt(int index)
{
    return dynamic_cast<Design*>(DesignManager::instance()->designs().value(index));
}

QStringList toolBarTexts(const HostFixture& host)
{
    QStringList texts;
    for (const QAction* action : host.child<QToolBar>("ToolBar")->actions()) {
        if (!action->isSeparator())
            texts << action->text().remove('&');
    }
    return texts;
}

} // namespace

/// The commands around the designs: which one they act on, where they are offered, and help.
class HostCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void actOnTheDesignOfTheCurrentItem();
    void keepsANeighbourCurrentWhenAFileIsRemoved();
    void keepsTheParentCurrentWhenTheLastFileIsRemoved();
    void keepsThePathInTheStatusBar();
    void offersTheActionsOfTheCurrentFileInToolBarAndMenu();
    void opensTheGeneratorWithAKeyOrADoubleClick_data();
    void opensTheGeneratorWithAKeyOrADoubleClick();
    void logsWhyTheFormStaysEmptyWithSeveralDesigns();
    void makesNoFolderOfAPathThatIsNotWhole();
    void listsRecentDesignsOnTheStartPageAndInTheMenu();
    void opensTheDesignsOfTheLastSession();
    void readsADescriptionThatChangedOnTheDisk();
    void opensADesignByItsFolderOrItsDescription_data();
    void opensADesignByItsFolderOrItsDescription();
    void copiesAndClearsTheLog();
    void reportsAMissingPluginFolder();
    void showsTheGuideAndWhatPluginsSay();
    void showsThePicturesOfTheGuide();
    void saysWhatItIs();
    void putsItsDocksBackWhereTheyWere();
    void fitsTheScreen();
};

void HostCommandsTest::actOnTheDesignOfTheCurrentItem()
{
    HostFixture host;
    host.openDesign("radar");
    QCOMPARE(host.action("File.SaveDesign")->text(), QString("&Save Design"));
    host.openDesign("sonar");
    for (int index = 0; index < 2; ++index) {
        Design* const design = designAt(index);
        const QString name = design->name();
        host.view()->setFocus();
        QModelIndex item = host.item(name);
        for (int level = 0; level < 3; ++level)
            item = host.view()->model()->index(0, 0, item);
        host.view()->setCurrentIndex(item);
        QTest::keyClick(host.view(), Qt::Key_Delete);
        QCOMPARE(design->files().count(), 0);
        QCOMPARE(host.window()->windowTitle(), name + "[*] - Pelk Design Host");
        QCOMPARE(host.action("File.SaveDesign")->text(), "&Save \"" + name + '"');
        QCOMPARE(host.action("File.ArchiveDesign")->text(), "&Archive \"" + name + "\"...");
        QCOMPARE(host.action("File.CloseDesign")->text(), "&Close \"" + name + '"');
        host.press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(!design->isModified());
        QVERIFY(!host.bytesOf(name + "/design.json").contains("top.bin"));
        host.press(Qt::Key_L, Qt::ControlModifier);
        QVERIFY(design->isLocked());
        QVERIFY(!designAt(1 - index)->isLocked());
        design->setLocked(false);
        design->setModified(false);
    }
    host.press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(DesignManager::instance()->designs().count(), 1);
    QCOMPARE(designAt(0)->name(), QString("radar"));
}

void HostCommandsTest::keepsANeighbourCurrentWhenAFileIsRemoved()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    for (const char* name : {"a.bit", "m.bit", "z.bit"})
        design->restoreFile(name);
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("m.bit"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    QCOMPARE(host.view()->currentIndex(), host.item("top.bin"));
    host.view()->setCurrentIndex(host.item("z.bit"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    QCOMPARE(host.view()->currentIndex(), host.item("top.bin"));
    QCOMPARE(design->files().count(), 2);
}

void HostCommandsTest::keepsTheParentCurrentWhenTheLastFileIsRemoved()
{
    HostFixture host;
    host.openDesign("radar");
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    QCOMPARE(host.view()->currentIndex(), host.item("Bit-stream Files"));
}

void HostCommandsTest::keepsThePathInTheStatusBar()
{
    HostFixture host;
    host.openDesign("radar");
    QMenu* const menu = host.menu("File");
    QVERIFY(menu);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Escape);
    const auto* const path = host.child<QLabel>("DesignPath");
    QVERIFY(path->isVisible());
    QCOMPARE(path->text(), host.path("radar"));
}

void HostCommandsTest::offersTheActionsOfTheCurrentFileInToolBarAndMenu()
{
    HostFixture host;
    host.openDesign("radar")->restoreFile(host.writeFile("radar/notes.txt", "notes"));
    QVERIFY(!toolBarTexts(host).contains("Create FCF"));
    host.view()->setCurrentIndex(host.item("top.bin"));
    QCOMPARE(toolBarTexts(host).last(), QString("Create FCF"));
    QMenu* const menu = host.menu("Design");
    QCOMPARE(HostFixture::entriesOf(menu).last(), QString("Create FCF"));
    menu->close();
    host.view()->setCurrentIndex(host.item("notes.txt"));
    QCOMPARE(toolBarTexts(host).last(), QString("Open FCF"));
    QVERIFY(!toolBarTexts(host).contains("Create FCF"));
    designAt(0)->setLocked(true);
    QVERIFY(!host.child<QToolBar>("ToolBar")->actions().last()->isEnabled());
}

void HostCommandsTest::opensTheGeneratorWithAKeyOrADoubleClick_data()
{
    QTest::addColumn<bool>("byKey");

    QTest::newRow("Enter") << true;
    QTest::newRow("a double click") << false;
}

void HostCommandsTest::opensTheGeneratorWithAKeyOrADoubleClick()
{
    QFETCH(bool, byKey);
    HostFixture host;
    host.openDesign("radar");
    if (byKey) {
        host.view()->setFocus();
        host.view()->setCurrentIndex(host.item("top.bin"));
        QTest::keyClick(host.view(), Qt::Key_Return);
    } else {
        const QPoint place = host.view()->visualRect(host.item("top.bin")).center();
        QTest::mouseClick(host.view()->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(host.view()->viewport(), Qt::LeftButton, {}, place);
    }
    QTRY_VERIFY(HostFixture::generator());
    QCOMPARE(HostFixture::generator()->findChild<QLineEdit*>("txtInputFile")->text(),
             host.path("radar/top.bin"));
}

void HostCommandsTest::logsWhyTheFormStaysEmptyWithSeveralDesigns()
{
    HostFixture host;
    host.openDesign("radar");
    host.openDesign("sonar");
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Return);
    QTRY_VERIFY(HostFixture::generator());
    QCOMPARE(HostFixture::generator()->findChild<QLineEdit*>("txtInputFile")->text(), QString());
    QVERIFY(host.log().last().startsWith("\"Create FCF\" fills in nothing from a design"));
    QVERIFY(host.log().last().contains("2 designs are open"));
}

void HostCommandsTest::makesNoFolderOfAPathThatIsNotWhole()
{
    HostFixture host;
    const QString home = QDir::homePath();
    qputenv("HOME", host.path("home").toUtf8());
    bool refused = false;
    host.dialogs().inspect([&](QWidget* dialog) {
        auto* const folder = dialog->findChild<QLineEdit*>("NewDesignFolder");
        const auto* const ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        folder->setText("radar");
        refused = !ok->isEnabled() &&
                  dialog->findChild<QLabel*>("NewDesignHint")->text().contains("whole path");
        folder->clear();
        QTest::keyClicks(folder, "~/radar");
    });
    host.dialogs().press(Qt::Key_Return);
    host.press(Qt::Key_N, Qt::ControlModifier);
    qputenv("HOME", home.toUtf8());
    QVERIFY(refused);
    QVERIFY(designAt(0));
    QCOMPARE(designAt(0)->workingFolderPath(), host.path("home/radar"));
}

void HostCommandsTest::listsRecentDesignsOnTheStartPageAndInTheMenu()
{
    HostFixture host;
    host.openDesign("radar");
    host.press(Qt::Key_W, Qt::ControlModifier);
    QMenu* const menu = host.menu("File");
    QMenu* const recent = host.child<QMenu>("RecentDesignsMenu");
    QCOMPARE(HostFixture::entriesOf(recent), QStringList(host.path("radar")));
    menu->close();
    QTest::mouseClick(host.child<QPushButton>("StartRecentButton"), Qt::LeftButton);
    QTRY_VERIFY(designAt(0));
    QCOMPARE(designAt(0)->name(), QString("radar"));
    QVERIFY(host.view()->isVisible());
}

void HostCommandsTest::opensTheDesignsOfTheLastSession()
{
    HostFixture host;
    host.openDesign("radar");
    host.openDesign("gone");
    QVERIFY(host.closeWindow());
    host.restart();
    QVERIFY(QFile::remove(host.path("gone/design.json")));
    host.window()->restoreSession();
    QCOMPARE(DesignManager::instance()->designs().count(), 1);
    QCOMPARE(designAt(0)->name(), QString("radar"));
    QVERIFY(host.log().last().contains(host.path("gone/design.json")));
}

void HostCommandsTest::readsADescriptionThatChangedOnTheDisk()
{
    HostFixture host;
    host.openDesign("radar");
    QByteArray description = host.bytesOf("radar/design.json");
    host.writeFile("radar/design.json", description.replace("\"major\": 1", "\"major\": 6"));
    QTRY_COMPARE(host.row("radar").at(1), QString("Changed on disk"));
    designAt(0)->setVersion(9, 9);
    host.dialogs().click(QMessageBox::No);
    host.press(Qt::Key_F5, Qt::NoModifier);
    QCOMPARE(designAt(0)->versionMajor(), 9);
    host.dialogs().click(QMessageBox::Yes);
    host.press(Qt::Key_F5, Qt::NoModifier);
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(designAt(0)->versionMajor(), 6);
    QCOMPARE(host.row("radar").at(1), QString());
    QVERIFY(!designAt(0)->isModified());
}

void HostCommandsTest::opensADesignByItsFolderOrItsDescription_data()
{
    QTest::addColumn<QString>("chosen");

    QTest::newRow("folder") << "radar";
    QTest::newRow("description") << "radar/design.json";
}

void HostCommandsTest::opensADesignByItsFolderOrItsDescription()
{
    QFETCH(QString, chosen);
    HostFixture host;
    host.makeDesign("radar");
    host.dialogs().choose(host.path(chosen));
    host.press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(designAt(0));
    QCOMPARE(designAt(0)->workingFolderPath(), host.path("radar"));
}

void HostCommandsTest::copiesAndClearsTheLog()
{
    HostFixture host;
    host.openDesign("radar");
    PluginList::logMissing({host.path("no plug-ins")});
    auto* const log = host.child<QTreeView>("logMessages");
    host.activate();
    log->setFocus();
    log->setCurrentIndex(log->model()->index(log->model()->rowCount() - 1, 0));
    QTest::keyClick(log, Qt::Key_C, Qt::ControlModifier);
    const QString copied = QApplication::clipboard()->text();
    QVERIFY2(copied.endsWith("\tWarning\tNo plug-in was found: the host makes no images."),
             qPrintable(copied));
    QCOMPARE(copied.count('\n'), 0);
    log->actions().last()->trigger();
    QCOMPARE(host.log(), QStringList());
}

void HostCommandsTest::reportsAMissingPluginFolder()
{
    const HostFixture host;
    PluginList::logMissing({host.path("no plug-ins"), ZORV_PLUGIN_FOLDER});
    QCOMPARE(host.log().last(), "There is no plug-in folder \"" + host.path("no plug-ins") + "\".");
}

void HostCommandsTest::showsTheGuideAndWhatPluginsSay()
{
    HostFixture host;
    host.press(Qt::Key_F1, Qt::NoModifier);
    const auto* const guide = host.child<QTextBrowser>("HelpBrowser");
    QVERIFY(guide && guide->isVisible());
    QVERIFY(guide->toPlainText().startsWith("Guide"));

    host.window()->setPluginFolders({ZORV_PLUGIN_FOLDER});
    QString text;
    host.dialogs().inspect([&](QWidget* dialog) {
        text = dialog->findChild<QTextBrowser*>("AboutPluginsText")->toPlainText();
    });
    host.dialogs().press(Qt::Key_Escape);
    QVERIFY(HostFixture::choose(host.menu("Help"), "About Plug-ins"));
    QVERIFY2(text.startsWith("ZORV VKT Plugin "), qPrintable(text));
    QVERIFY(text.contains("configuration packages"));
}

void HostCommandsTest::showsThePicturesOfTheGuide()
{
    HostFixture host;
    host.action("Help.Guide")->trigger();
    auto* const guide = host.child<QTextBrowser>("HelpBrowser");
    const QDir pages(":/guide");
    int pictures = 0;
    for (const QString& page : pages.entryList({"*.md"})) {
        guide->setSource(QUrl("qrc:/guide/" + page));
        for (QTextBlock block = guide->document()->begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
                if (!format.isValid())
                    continue;
                const auto image =
                    guide->loadResource(QTextDocument::ImageResource, QUrl(format.name()))
                        .value<QImage>();
                QVERIFY2(!image.isNull(), qPrintable(format.name()));
                QVERIFY(image.width() / image.devicePixelRatio() < guide->viewport()->width());
                ++pictures;
            }
        }
    }
    QCOMPARE(pictures, QDir(":/guide/images").entryList().count());
}

void HostCommandsTest::saysWhatItIs()
{
    HostFixture host;
    host.dialogs().click(QMessageBox::Ok);
    QVERIFY(HostFixture::choose(host.menu("Help"), "About Pelk Design Host"));
    QVERIFY(host.dialogs().allGiven());
    const QString text = host.dialogs().texts().value(0);
    QVERIFY2(text.startsWith("Pelk Design Host"), qPrintable(text));
    QVERIFY(text.contains(qVersion()));
}

void HostCommandsTest::putsItsDocksBackWhereTheyWere()
{
    HostFixture host;
    auto* const log = host.child<QDockWidget>("LogDock");
    auto* const properties = host.child<QDockWidget>("PropertyDock");
    log->setFloating(true);
    properties->close();
    host.child<QToolBar>("ToolBar")->hide();
    host.window()->addDockWidget(Qt::LeftDockWidgetArea, properties);
    QVERIFY(HostFixture::choose(host.menu("View"), "Reset Layout"));
    QVERIFY(!log->isFloating());
    QVERIFY(log->isVisible());
    QVERIFY(properties->isVisible());
    QVERIFY(host.child<QToolBar>("ToolBar")->isVisible());
    QCOMPARE(host.window()->dockWidgetArea(log), Qt::BottomDockWidgetArea);
    QCOMPARE(host.window()->dockWidgetArea(properties), Qt::RightDockWidgetArea);
}

void HostCommandsTest::fitsTheScreen()
{
    const HostFixture host;
    const QSize available = host.window()->screen()->availableSize();
    QVERIFY(host.window()->width() <= available.width());
    QVERIFY(host.window()->height() <= available.height());
}

HOST_TEST(HostCommandsTest)

#include "HostCommandsTest.moc"
