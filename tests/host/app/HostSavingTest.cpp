#include "host/app/HostFixture.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>

#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;

namespace {

const QByteArray ByAnother = R"({ "format": 1, "type": "Firmware Design" })";

} // namespace

/// Saving a design whose description another program writes too, or whose folder is gone.
class HostSavingTest : public QObject {
    Q_OBJECT

private slots:
    void asksBeforeItReplacesAChangedDescription_data();
    void asksBeforeItReplacesAChangedDescription();
    void doesNotCloseADesignThatIsNotToReplaceTheOther();
    void comparesWithWhatItSavedLast();
    void doesNotAskAgainAfterReplacing();
    void asksNothingWhenTheSameIsWrittenAgain();
    void asksNothingWhenTheDescriptionIsGone();
    void reportsAFolderThatIsGone();
};

void HostSavingTest::asksBeforeItReplacesAChangedDescription_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("replaced");

    QTest::newRow("yes") << int(Qt::Key_Y) << true;
    QTest::newRow("no") << int(Qt::Key_N) << false;
    QTest::newRow("the default") << int(Qt::Key_Return) << false;
    QTest::newRow("closing the question") << int(Qt::Key_Escape) << false;
}

void HostSavingTest::asksBeforeItReplacesAChangedDescription()
{
    QFETCH(int, key);
    QFETCH(bool, replaced);
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    host.writeFile("radar/design.json", ByAnother);
    host.dialogs().inspect([](QWidget* box) {
        QCOMPARE(box->objectName(), QString("ChangedOnDiskBox"));
        QCOMPARE(qobject_cast<QMessageBox*>(box)->standardButtons(),
                 QMessageBox::Yes | QMessageBox::No);
        QCOMPARE(qobject_cast<QMessageBox*>(box)->textFormat(), Qt::PlainText);
    });
    if (key == Qt::Key_Y || key == Qt::Key_N)
        host.dialogs().click(key == Qt::Key_Y ? QMessageBox::Yes : QMessageBox::No);
    else
        host.dialogs().press(Qt::Key(key));
    host.press(Qt::Key_S, Qt::ControlModifier);

    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(host.dialogs().texts(),
             QStringList(host.path("radar/design.json") +
                         ": Another program has changed the file since \"radar\" was read or "
                         "saved.\n\nDo you want to replace it?"));
    QCOMPARE(design->isModified(), !replaced);
    QCOMPARE(host.window()->isWindowModified(), !replaced);
    QCOMPARE(design->versionString("."), QString("7.0"));
    if (replaced)
        QVERIFY(host.bytesOf("radar/design.json").contains("\"major\": 7"));
    else
        QCOMPARE(host.bytesOf("radar/design.json"), ByAnother);
}

void HostSavingTest::doesNotCloseADesignThatIsNotToReplaceTheOther()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    host.writeFile("radar/design.json", ByAnother);
    host.dialogs().click(QMessageBox::Save);
    host.dialogs().click(QMessageBox::No);
    host.press(Qt::Key_W, Qt::ControlModifier);
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(openDesigns(), 1);
    QVERIFY(design->isModified());

    host.dialogs().click(QMessageBox::Save);
    host.dialogs().click(QMessageBox::No);
    QVERIFY(!host.closeWindow());
    QVERIFY(host.window()->isVisible());
    QCOMPARE(host.bytesOf("radar/design.json"), ByAnother);
}

void HostSavingTest::comparesWithWhatItSavedLast()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    host.press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(host.dialogs().texts().isEmpty());

    // Back as it was read: known, but not what was left there.
    host.makeDesign("radar");
    design->setVersion(8, 0);
    host.dialogs().click(QMessageBox::No);
    host.press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(host.bytesOf("radar/design.json").contains("\"major\": 1"));
}

void HostSavingTest::doesNotAskAgainAfterReplacing()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    host.writeFile("radar/design.json", ByAnother);
    host.dialogs().click(QMessageBox::Yes);
    host.press(Qt::Key_S, Qt::ControlModifier);
    design->setVersion(8, 0);
    host.press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(host.dialogs().texts().size(), 1);
    QVERIFY(host.bytesOf("radar/design.json").contains("\"major\": 8"));
}

void HostSavingTest::asksNothingWhenTheSameIsWrittenAgain()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    host.makeDesign("radar");
    host.press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(host.dialogs().texts(), QStringList());
    QVERIFY(!design->isModified());
}

void HostSavingTest::asksNothingWhenTheDescriptionIsGone()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    QVERIFY(QFile::remove(host.path("radar/design.json")));
    host.press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(host.dialogs().texts(), QStringList());
    QVERIFY(!design->isModified());
    QVERIFY(host.bytesOf("radar/design.json").contains("\"major\": 7"));
}

void HostSavingTest::reportsAFolderThatIsGone()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(7, 0);
    QVERIFY(QDir(host.path("radar")).removeRecursively());
    host.dialogs().click(QMessageBox::Ok);
    // At once: the host soon sees that nothing can be saved there, and offers it no more.
    host.action("File.SaveDesign")->trigger();
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(host.dialogs().texts(),
             QStringList("Cannot save the design.\n\n" + host.path("radar/design.json") +
                         ": No such file or directory"));
    QVERIFY(design->isModified());
    QVERIFY(!QFileInfo::exists(host.path("radar")));
    QTRY_VERIFY(!host.action("File.SaveDesign")->isEnabled());

    // With the folder back, nothing is lost.
    QVERIFY(QDir().mkdir(host.path("radar")));
    QTRY_VERIFY(host.action("File.SaveDesign")->isEnabled());
    host.press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!design->isModified());
    QVERIFY(host.bytesOf("radar/design.json").contains("\"major\": 7"));
}

HOST_TEST(HostSavingTest)

#include "HostSavingTest.moc"
