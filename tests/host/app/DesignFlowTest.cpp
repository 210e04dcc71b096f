#include "host/app/HostFixture.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

template <class Child>
Child* inGenerator(const char* name)
{
    return HostFixture::generator()->findChild<Child*>(name);
}

QString textOf(const char* lineEdit) { return inGenerator<QLineEdit>(lineEdit)->text(); }

void generate()
{
    const QPointer<QWidget> window = HostFixture::generator();
    QTest::mouseClick(inGenerator<QPushButton>("GenerateButton"), Qt::LeftButton);
    QTRY_VERIFY(!window || !window->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void addFunction(const QString& name)
{
    QTest::mouseClick(inGenerator<QPushButton>("AddNewFunction"), Qt::LeftButton);
    QTest::keyClicks(inGenerator<QLineEdit>("EditFunctionName"), name);
    QTest::keyClicks(inGenerator<QLineEdit>("AuthorFunctions"), "R. Vos");
    QTest::keyClicks(inGenerator<QLineEdit>("CiNumberEditBoxFunctions"), "F-1");
    QTest::mouseClick(inGenerator<QPushButton>("UploadFunctionButton"), Qt::LeftButton);
}

QJsonObject fileEntry(const QJsonObject& description, const QString& path)
{
    for (const QJsonValue file : description["files"].toArray()) {
        if (file.toObject()["path"] == path)
            return file.toObject();
    }
    return QJsonObject();
}

} // namespace

/// The ways of a user through the host, with the plug-in loaded from its library.
class DesignFlowTest : public QObject {
    Q_OBJECT

private slots:
    void registersItsExtensionsInOrder();
    void leadsFromABinaryToGeneratedFilesByMouse();
    void leadsFromABinaryToGeneratedFilesByKeys();
    void bringsABuildBackFromItsCompanion();
    void survivesSavingAndOpeningAgain();
    void updatesFilesThatAreInTheDesign();
    void keepsGeneratedFilesOutOfTwoDesigns();
    void keepsTheToolsMenusWindowApart();
    void disablesTheActionsOfALockedDesign();
    void leavesADesignAsItIsThatIsLockedWhileTheWindowIsOpen();
    void offersNothingInADesignOfAnotherType();
};

void DesignFlowTest::registersItsExtensionsInOrder()
{
    const HostFixture host;
    const QStringList interfaces{"com.Core.Interfaces.IDesignViewExtensions/1.0",
                                 "com.Qtilities.Core.IAvailablePropertyProvider/1.0"};
    QStringList names;
    for (const QObject* object :
         QtilitiesApplication::objectManager()->registeredInterfaces("QObject")) {
        for (const QString& interface : interfaces) {
            if (const_cast<QObject*>(object)->qt_metacast(interface.toLatin1())) {
                names << object->metaObject()->className();
                QVERIFY(object->property("qti.prop.CategoryMap").toStringList().isEmpty());
                QVERIFY(!object->parent());
            }
        }
    }
    QCOMPARE(names, QStringList() << "ZORV_Plugin::ZORV_FileTypeExtensions"
                                  << "ZORV_Plugin::ZORV_PropertyProvider");
}

void DesignFlowTest::leadsFromABinaryToGeneratedFilesByMouse()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    QVERIFY(design);
    QMenu* const menu = host.menuByMouse("top.bin");
    QVERIFY(menu);
    QCOMPARE(host.entriesOf(menu), QStringList() << "Create FCF"
                                                 << "Open Folder"
                                                 << "Move to"
                                                 << "Remove from Design");
    QVERIFY(!menu->actions().first()->icon().isNull());
    QVERIFY(host.choose(menu, "Create FCF"));
    QTRY_VERIFY(host.generator());

    QCOMPARE(textOf("txtInputFile"), host.path("radar/top.bin"));
    QCOMPARE(textOf("MajorVerEditBox"), QString("1"));
    QCOMPARE(textOf("MinorVerEditBox"), QString("4"));
    QCOMPARE(textOf("CiNumEditBox"), QString("0"));
    QVERIFY(!textOf("AuthoEditBox").isEmpty());
    QCOMPARE(inGenerator<QTextEdit>("DescriptionMemo")->toPlainText(), QString("Clock corrected"));
    QCOMPARE(inGenerator<QComboBox>("ModuleComboBox")->currentText(), QString("GPM"));
    QCOMPARE(inGenerator<QComboBox>("FpgaComboBox")->currentText(), QString("Processing_FPGA_2"));
    QCOMPARE(inGenerator<QComboBox>("ConfigComboBox")->currentText(), QString("3"));
    addFunction("Pulse compression");
    QTest::keyClick(inGenerator<QComboBox>("ConfigComboBox"), Qt::Key_Down);
    generate();

    QCOMPARE(host.row("top.fcf"), QStringList() << "top.fcf"
                                                << "Generated"
                                                << "1.4");
    QCOMPARE(host.row("top.txt"), QStringList() << "top.txt"
                                                << "Generated"
                                                << "1.4");
    QCOMPARE(host.item("top.fcf").parent(), host.item("Bit-stream Files"));
    QCOMPARE(host.item("top.txt").parent(), host.item("Bit-stream Files"));
    QCOMPARE(host.view()->currentIndex(), host.item("top.fcf"));
    QCOMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(4));
    QCOMPARE(host.log().mid(0, 2), QStringList()
                                       << "Successfully added generated file \"" +
                                              host.path("radar/top.fcf") + "\" to design."
                                       << "Successfully added generated file \"" +
                                              host.path("radar/top.txt") + "\" to design.");
    const QByteArray image = host.bytesOf("radar/top.fcf");
    const QByteArray companion = host.bytesOf("radar/top.txt");
    QVERIFY(companion.size() >= 2112);
    QCOMPARE(image.size(), companion.size() + 5000);
    QCOMPARE(image.right(5000), host.bytesOf("radar/top.bin"));
    QCOMPARE(companion.count("Pulse compression"), 1);
    QVERIFY(host.window()->isWindowModified());
}

void DesignFlowTest::leadsFromABinaryToGeneratedFilesByKeys()
{
    HostFixture host;
    host.openDesign("radar");
    QMenu* const menu = host.menuByKey("top.bin");
    QVERIFY(menu);
    QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_VERIFY(host.generator());
    QTest::keyClick(inGenerator<QPushButton>("GenerateButton"), Qt::Key_Space);
    QTRY_VERIFY(!host.generator());
    QCOMPARE(host.row("top.fcf"), QStringList() << "top.fcf"
                                                << "Generated"
                                                << "1.4");
    QCOMPARE(host.row("top.txt"), QStringList() << "top.txt"
                                                << "Generated"
                                                << "1.4");
}

void DesignFlowTest::bringsABuildBackFromItsCompanion()
{
    HostFixture host;
    host.openDesign("radar");
    QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(host.generator());
    QTest::keyClicks(inGenerator<QLineEdit>("CiNumEditBox"), "42");
    addFunction("Doppler bank");
    generate();

    QMenu* const menu = host.menuByMouse("top.txt");
    QCOMPARE(host.entriesOf(menu).first(), QString("Open FCF"));
    QVERIFY(host.choose(menu, "Open FCF"));
    QTRY_VERIFY(host.generator());
    QCOMPARE(textOf("txtInputFile"), host.path("radar/top.bin"));
    QCOMPARE(textOf("CiNumEditBox"), QString("042"));
    QCOMPARE(inGenerator<QComboBox>("FunctionComboBox")->itemText(0), QString("Doppler bank"));
    QCOMPARE(inGenerator<QTextEdit>("DescriptionMemo")->toPlainText(), QString("Clock corrected"));
}

void DesignFlowTest::survivesSavingAndOpeningAgain()
{
    HostFixture host;
    host.openDesign("radar");
    QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(host.generator());
    generate();
    host.press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!host.window()->isWindowModified());

    const QJsonObject description =
        QJsonDocument::fromJson(host.bytesOf("radar/design.json")).object();
    const QJsonObject expected{
        {"path", "top.fcf"}, {"node", "Bit-stream Files"}, {"generated", true}, {"version", "1.4"}};
    QCOMPARE(fileEntry(description, "top.fcf"), expected);
    QVERIFY(!fileEntry(description, "top.txt").isEmpty());
    QCOMPARE(description["properties"].toArray().first().toObject()["category"].toArray(),
             QJsonArray() << "Pelk Radar Signal Processor");

    QVERIFY(host.closeWindow());
    host.restart();
    QVERIFY(DesignManager::instance()->designs().isEmpty());
    host.window()->openDesign(host.path("radar"));
    QCOMPARE(host.row("top.fcf"), QStringList() << "top.fcf"
                                                << "Generated"
                                                << "1.4");
    QCOMPARE(host.item("top.fcf").parent(), host.item("Bit-stream Files"));
}

void DesignFlowTest::updatesFilesThatAreInTheDesign()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    for (int round = 0; round < 2; ++round) {
        QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
        QTRY_VERIFY(host.generator());
        if (round == 1)
            host.dialogs().click(QMessageBox::Yes);
        generate();
        design->setVersion(2, 0);
    }
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(host.row("top.fcf"), QStringList() << "top.fcf"
                                                << "Generated"
                                                << "2.0");
    QVERIFY(host.log().contains("Successfully updated generated file \"" +
                                host.path("radar/top.fcf") + "\" in design."));
    QCOMPARE(design->files().count(), 3);
}

void DesignFlowTest::keepsGeneratedFilesOutOfTwoDesigns()
{
    HostFixture host;
    const Design* const first = host.openDesign("radar");
    const Design* const second = host.openDesign("other");
    QVERIFY(first != second);
    QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(host.generator());
    QCOMPARE(textOf("txtInputFile"), QString());
    QCOMPARE(textOf("AuthoEditBox"), QString());
    QCOMPARE(inGenerator<QComboBox>("ModuleComboBox")->currentText(), QString("DFE"));

    inGenerator<QLineEdit>("txtInputFile")->setText(host.path("radar/top.bin"));
    QTest::keyClicks(inGenerator<QLineEdit>("AuthoEditBox"), "R. Vos");
    QTest::keyClicks(inGenerator<QLineEdit>("CiNumEditBox"), "1");
    generate();
    QVERIFY(QFileInfo::exists(host.path("radar/top.fcf")));
    QCOMPARE(first->files().count(), 1);
    QCOMPARE(second->files().count(), 1);
    QVERIFY(!first->isModified() && !second->isModified());
}

void DesignFlowTest::keepsTheToolsMenusWindowApart()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.action("Tools.FcfGenerator")->trigger();
    QTRY_VERIFY(host.generator());
    const QWidget* const ofTheMenu = host.generator();
    inGenerator<QLineEdit>("txtInputFile")->setText(host.path("radar/top.bin"));
    QTest::keyClicks(inGenerator<QLineEdit>("AuthoEditBox"), "R. Vos");
    QTest::keyClicks(inGenerator<QLineEdit>("CiNumEditBox"), "1");
    generate();
    QVERIFY(QFileInfo::exists(host.path("radar/top.fcf")));
    QCOMPARE(design->files().count(), 1);
    QVERIFY(!design->isModified());

    QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(host.generator());
    QVERIFY(host.generator() != ofTheMenu);
}

void DesignFlowTest::disablesTheActionsOfALockedDesign()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    host.press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(design->isLocked());
    QCOMPARE(host.row("radar").at(1), QString("Locked"));
    QMenu* menu = host.menuByMouse("top.bin");
    const QAction* const create = menu->actions().first();
    QCOMPARE(create->text(), QString("Create FCF"));
    QVERIFY(!create->isEnabled());
    menu->close();

    host.press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(create->isEnabled());
    design->setReadOnly(true);
    QVERIFY(!create->isEnabled());
    QCOMPARE(host.row("radar").at(1), QString("Read-only"));
    design->setReadOnly(false);
    QVERIFY(create->isEnabled());
}

void DesignFlowTest::leavesADesignAsItIsThatIsLockedWhileTheWindowIsOpen()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(host.generator());
    generate();
    design->setVersion(2, 0);
    QVERIFY(host.choose(host.menuByMouse("top.bin"), "Create FCF"));
    QTRY_VERIFY(host.generator());
    QVERIFY(QTest::qWaitForWindowActive(host.generator()));
    host.press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(design->isLocked());
    host.press(Qt::Key_S, Qt::ControlModifier);
    const QByteArray description = host.bytesOf("radar/design.json");
    const QByteArray image = host.bytesOf("radar/top.fcf");

    host.dialogs().click(QMessageBox::Yes);
    generate();
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(host.bytesOf("radar/top.fcf") != image);
    QCOMPARE(host.row("top.fcf").at(2), QString("1.4"));
    QVERIFY(!host.window()->isWindowModified());
    QVERIFY(host.log().contains(
        "Cannot set the version of \"top.fcf\" of design \"radar\": the design is locked."));
    QCOMPARE(host.bytesOf("radar/design.json"), description);
}

void DesignFlowTest::offersNothingInADesignOfAnotherType()
{
    HostFixture host;
    host.writeFile("tool/top.bin", "bytes");
    host.writeFile("tool/design.json", R"({"format": 1, "type": "Software Design",
        "version": {"major": 1, "minor": 0}, "files": [{"path": "top.bin"}]})");
    host.window()->openDesign(host.path("tool"));
    QMenu* const menu = host.menuByMouse("top.bin");
    QVERIFY(menu);
    QCOMPARE(host.entriesOf(menu), QStringList() << "Open Folder"
                                                 << "Move to"
                                                 << "Remove from Design");
    menu->close();
}

HOST_TEST(DesignFlowTest)

#include "DesignFlowTest.moc"
