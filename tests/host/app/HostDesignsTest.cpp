#include "host/app/HostFixture.h"

#include "host/app/NewDesignDialog.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;

namespace {

Design* lastDesign()
{
    return openDesigns() == 0 ? nullptr
                              : dynamic_cast<Design*>(DesignManager::instance()->designs().last());
}

void drop(const HostFixture& host, const QPoint& place, const QStringList& paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls << QUrl::fromLocalFile(path);
    data.setUrls(urls);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(host.window(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(host.window(), &event);
}

} // namespace

/// Opening, making, changing, saving and closing designs.
class HostDesignsTest : public QObject {
    Q_OBJECT

private slots:
    void showsAHintWithoutADesign();
    void opensADesignByItsDescription();
    void refusesADamagedDesign();
    void refusesAFolderThatIsNotThere();
    void offersToMakeADesignInAFolderWithout();
    void makesADesignFromTheMenu();
    void asksBeforeItClosesUnsavedWork_data();
    void asksBeforeItClosesUnsavedWork();
    void asksForEachUnsavedDesignAtTheEnd();
    void staysOpenWhenSavingFails();
    void addsFilesChosenFromTheMenu();
    void addsDroppedFilesToTheDesignUnderThem();
    void makesADesignOfFilesDroppedOnNothing();
    void makesADesignOfFilesChosenWithoutOne();
    void opensADroppedDesign();
    void reportsWhichFilesItCannotAdd();
    void editsTheVersion();
    void keepsAVersionNumberTooLargeForItsBox();
    void remembersItsGeometry();
};

void HostDesignsTest::showsAHintWithoutADesign()
{
    HostFixture host;
    QVERIFY(host.child<QLabel>("NoDesignHint")->isVisible());
    QVERIFY(!host.action("File.SaveDesign")->isEnabled());
    QVERIFY(!host.action("File.CloseDesign")->isEnabled());
    host.openDesign("radar");
    QVERIFY(host.view()->isVisible());
    host.press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(openDesigns(), 0);
    QVERIFY(host.child<QLabel>("NoDesignHint")->isVisible());
    QVERIFY(!host.action("File.CloseDesign")->isEnabled());
}

void HostDesignsTest::opensADesignByItsDescription()
{
    HostFixture host;
    host.makeDesign("radar");
    host.window()->openDesign(host.path("radar/design.json"));
    QCOMPARE(openDesigns(), 1);
    host.window()->openDesign(host.path("radar/."));
    QCOMPARE(openDesigns(), 1);
    QCOMPARE(host.row("radar"), QStringList() << "radar"
                                              << ""
                                              << "1.4");
    QCOMPARE(host.window()->windowTitle(), QString("radar[*] - Pelk Design Host"));
}

void HostDesignsTest::refusesADamagedDesign()
{
    HostFixture host;
    const QByteArray damaged = "{\n\"format\": 1,\n\"type\": oops\n}";
    host.writeFile("radar/design.json", damaged);
    host.dialogs().click(QMessageBox::Ok);
    host.window()->openDesign(host.path("radar"));
    QVERIFY(host.dialogs().allGiven());
    const QString text = host.dialogs().texts().first();
    QVERIFY2(text.contains(host.path("radar/design.json") + ": line 3, column "), qPrintable(text));
    QCOMPARE(openDesigns(), 0);
    QCOMPARE(host.bytesOf("radar/design.json"), damaged);
}

void HostDesignsTest::refusesAFolderThatIsNotThere()
{
    HostFixture host;
    host.dialogs().click(QMessageBox::Ok);
    host.window()->openDesign(host.path("nowhere"));
    QCOMPARE(host.dialogs().texts(),
             QStringList("There is no folder " + host.path("nowhere") + "."));
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(!QFileInfo::exists(host.path("nowhere")));
}

void HostDesignsTest::offersToMakeADesignInAFolderWithout()
{
    HostFixture host;
    host.writeFile("plain/top.bin", "bytes");
    host.dialogs().click(QMessageBox::No);
    host.window()->openDesign(host.path("plain"));
    QVERIFY(host.dialogs().texts().first().contains("it has no file design.json"));
    QVERIFY(!QFileInfo::exists(host.path("plain/design.json")));

    host.dialogs().click(QMessageBox::Yes);
    host.dialogs().press(Qt::Key_Return);
    host.window()->openDesign(host.path("plain"));
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(openDesigns(), 1);
    QCOMPARE(lastDesign()->workingFolderPath(), host.path("plain"));
    QCOMPARE(lastDesign()->typeName(), QString("Firmware Design"));
    QVERIFY(QFileInfo::exists(host.path("plain/design.json")));
}

void HostDesignsTest::makesADesignFromTheMenu()
{
    HostFixture host;
    host.makeDesign("taken");
    bool refusedTaken = false;
    host.dialogs().inspect([&](QWidget* dialog) {
        auto* const folder = dialog->findChild<QLineEdit*>("NewDesignFolder");
        const auto* const ok = dialog->findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        folder->setText(host.path("taken"));
        refusedTaken = !ok->isEnabled() && dialog->findChild<QLabel*>("NewDesignHint")->text() ==
                                               "There is a design in this folder already.";
        folder->setText(host.path("fresh"));
        dialog->findChild<QSpinBox*>("NewVersionMajor")->setValue(3);
    });
    host.dialogs().press(Qt::Key_Return);
    host.press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(refusedTaken);
    QVERIFY(lastDesign());
    QCOMPARE(lastDesign()->workingFolderPath(), host.path("fresh"));
    QCOMPARE(lastDesign()->versionString("."), QString("3.0"));
}

void HostDesignsTest::asksBeforeItClosesUnsavedWork_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("saved");

    QTest::newRow("save") << int(QMessageBox::Save) << true << true;
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << false;
}

void HostDesignsTest::asksBeforeItClosesUnsavedWork()
{
    QFETCH(int, answer);
    QFETCH(bool, saved);
    HostFixture host;
    host.openDesign("radar")->setVersion(7, 0);
    QVERIFY(host.window()->isWindowModified());
    QCOMPARE(host.row("radar").first(), QString("radar (modified)"));
    host.dialogs().click(QMessageBox::StandardButton(answer));
    host.press(Qt::Key_W, Qt::ControlModifier);
    QCOMPARE(host.dialogs().texts(), QStringList("Do you want to save the changes to \"radar\"?"));
    QTEST(openDesigns() == 0, "closed");
    QCOMPARE(host.bytesOf("radar/design.json").contains("\"major\": 7"), saved);
}

void HostDesignsTest::asksForEachUnsavedDesignAtTheEnd()
{
    HostFixture host;
    host.openDesign("a")->setVersion(7, 0);
    host.openDesign("b");
    host.openDesign("c")->setVersion(8, 0);
    host.dialogs().click(QMessageBox::Save);
    host.dialogs().click(QMessageBox::Cancel);
    QVERIFY(!host.closeWindow());
    QVERIFY(host.window()->isVisible());
    QCOMPARE(openDesigns(), 3);
    QVERIFY(host.bytesOf("a/design.json").contains("\"major\": 7"));

    host.dialogs().click(QMessageBox::Discard);
    QVERIFY(host.closeWindow());
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(!host.bytesOf("c/design.json").contains("\"major\": 8"));
}

void HostDesignsTest::staysOpenWhenSavingFails()
{
    HostFixture host;
    host.openDesign("radar")->setVersion(7, 0);
    QVERIFY(QFile::remove(host.path("radar/design.json")));
    QVERIFY(QDir().mkdir(host.path("radar/design.json")));
    host.dialogs().click(QMessageBox::Save);
    host.dialogs().click(QMessageBox::Ok);
    QVERIFY(!host.closeWindow());
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(host.dialogs().texts().last().contains(host.path("radar/design.json") + ": "));
    QVERIFY(lastDesign()->isModified());
}

void HostDesignsTest::addsFilesChosenFromTheMenu()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.dialogs().choose(host.writeFile("radar/notes.pdf", "bytes"));
    host.press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(design->fileAt("notes.pdf"));
    QCOMPARE(host.item("notes.pdf").parent(), host.item("Other Files"));
    QCOMPARE(host.view()->currentIndex(), host.item("notes.pdf"));
}

void HostDesignsTest::addsDroppedFilesToTheDesignUnderThem()
{
    HostFixture host;
    const Design* const first = host.openDesign("a");
    const Design* const second = host.openDesign("b");
    const QString file = host.writeFile("loose.vhd", "bytes");
    QVERIFY(QDir().mkdir(host.path("constraints")));
    const QPoint onFirst = host.view()->viewport()->mapTo(
        host.window(), host.view()->visualRect(host.item("a")).center());
    drop(host, onFirst, {file, host.path("constraints")});
    QVERIFY(first->fileAt(file));
    QCOMPARE(first->folders().count(), 1);
    QCOMPARE(host.row("constraints").at(1), QString("Folder"));
    QVERIFY(QDir().rmdir(host.path("constraints")));
    QTRY_COMPARE(host.row("constraints").at(1), QString("Folder, Missing"));
    QCOMPARE(second->files().count(), 1);
}

void HostDesignsTest::makesADesignOfFilesDroppedOnNothing()
{
    HostFixture host;
    const QString file = host.writeFile("fresh/top.bin", "bytes");
    host.dialogs().press(Qt::Key_Return);
    drop(host, host.window()->rect().center(), {file});
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(lastDesign());
    QCOMPARE(lastDesign()->workingFolderPath(), host.path("fresh"));
    QVERIFY(lastDesign()->fileAt("top.bin"));
    QCOMPARE(host.item("top.bin").parent(), host.item("Bit-stream Files"));
}

void HostDesignsTest::makesADesignOfFilesChosenWithoutOne()
{
    HostFixture host;
    host.dialogs().choose(host.writeFile("fresh/top.bin", "bytes"));
    host.dialogs().press(Qt::Key_Return);
    host.press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(host.dialogs().allGiven());
    QVERIFY(lastDesign() && lastDesign()->fileAt("top.bin"));
    QCOMPARE(lastDesign()->workingFolderPath(), host.path("fresh"));
}

void HostDesignsTest::opensADroppedDesign()
{
    HostFixture host;
    drop(host, host.window()->rect().center(), {host.makeDesign("radar")});
    QVERIFY(host.dialogs().texts().isEmpty());
    QCOMPARE(lastDesign()->workingFolderPath(), host.path("radar"));
}

void HostDesignsTest::reportsWhichFilesItCannotAdd()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    const QString fresh = host.writeFile("radar/fresh.bin", "bytes");
    host.dialogs().click(QMessageBox::Ok);
    drop(host, host.window()->rect().center(), {host.path("radar/top.bin"), fresh});
    QCOMPARE(host.dialogs().texts(),
             QStringList("Not everything could be added to \"radar\".\n\n" +
                         host.path("radar/top.bin") + ": It is in the design already."));
    QVERIFY(design->fileAt("fresh.bin"));
}

void HostDesignsTest::editsTheVersion()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    auto* const major = host.child<QSpinBox>("VersionMajor");
    QCOMPARE(major->value(), 1);
    QTest::keyClick(major, Qt::Key_Up);
    QCOMPARE(design->versionString("."), QString("2.4"));
    QCOMPARE(host.row("radar").at(2), QString("2.4"));
    auto* const changes = host.child<QPlainTextEdit>("VersionChanges");
    QCOMPARE(changes->toPlainText(), QString("Clock corrected"));
    QTest::keyClick(changes, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(changes, " again");
    QCOMPARE(design->versionChanges(), QString("Clock corrected again"));

    host.press(Qt::Key_L, Qt::ControlModifier);
    QVERIFY(!major->isEnabled());
    QVERIFY(changes->isReadOnly());
}

void HostDesignsTest::keepsAVersionNumberTooLargeForItsBox()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setVersion(2026, 4);
    QTest::keyClick(host.child<QSpinBox>("VersionMinor"), Qt::Key_Up);
    QCOMPARE(design->versionString("."), QString("2026.5"));
}

void HostDesignsTest::remembersItsGeometry()
{
    HostFixture host;
    host.window()->resize(720, 540);
    QTRY_COMPARE(host.window()->size(), QSize(720, 540));
    QVERIFY(host.closeWindow());
    host.restart();
    QTRY_COMPARE(host.window()->size(), QSize(720, 540));
}

HOST_TEST(HostDesignsTest)

#include "HostDesignsTest.moc"
