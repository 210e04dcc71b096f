#include "host/app/HostFixture.h"
#include "support/FolderOpener.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/IDesignViewExtensions.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QHeaderView>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::IDesign;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::CoreGui::TreeFileItem;

namespace {

/// Adds to every kind of menu, and records its calls.
class RecordingExtension : public QObject, public IDesignViewExtensions {
    Q_OBJECT
    Q_INTERFACES(OrvanticCore::Interfaces::IDesignViewExtensions)

public:
    RecordingExtension() : forFiles("File Entry"), forDesigns("Design Entry"), below("Submenu")
    {
        below.addAction("Nested");
        QtilitiesApplication::objectManager()->registerObject(this);
    }

    QList<QAction*> contextMenuActions(TreeFileItem* item, const QString& context) override
    {
        asked << item->fileName() + "@" + context;
        return {&forFiles};
    }
    QList<QMenu*> contextMenus(TreeFileItem*, const QString&) override { return {&below}; }
    QList<QAction*> designContextMenuActions(IDesign* design, const QString&) override
    {
        asked << design->typeName();
        return {&forDesigns};
    }
    void refreshForDesignState(bool locked, bool read_only) override
    {
        states << QString("%1%2").arg(locked).arg(read_only);
    }

    QAction forFiles;
    QAction forDesigns;
    QMenu below;
    QStringList asked;
    QStringList states;
};

} // namespace

/// What the design view shows and offers.
class HostViewTest : public QObject {
    Q_OBJECT

private slots:
    void asksEveryExtensionForItsMenus();
    void reportsTheStateOfTheCurrentDesignToExtensions();
    void showsFilesThatVanishAndComeBack();
    void watchesAFolderAgainThatComesBack_data();
    void watchesAFolderAgainThatComesBack();
    void watchesTheDesignsOwnFolderAgainThatComesBack();
    void watchesAFolderInPlaceOfOneThatWasMoved();
    void noticesAFolderThatIsMadeLater();
    void keepsItsPlaceWhenFilesComeIn();
    void keepsNodesFolded();
    void opensTheFolderOfAFile();
    void foldsANodeOnDoubleClick();
    void cutsNoNameOff();
    void fillsItsWidthOrScrolls();
    void removesAFileByKey();
    void leavesALockedDesignAsItIs();
    void showsAFileWithAnUnknownNodeUnderItsDesign();
};

void HostViewTest::asksEveryExtensionForItsMenus()
{
    HostFixture host;
    RecordingExtension extension;
    host.openDesign("radar");
    QMenu* menu = host.menuByMouse("top.bin");
    QVERIFY(menu);
    QCOMPARE(host.entriesOf(menu), QStringList() << "Create FCF"
                                                 << "File Entry"
                                                 << "Submenu"
                                                 << "Open Folder"
                                                 << "Move to"
                                                 << "Remove from Design");
    menu->close();
    menu = host.menuByMouse("radar");
    QVERIFY(menu);
    QCOMPARE(host.entriesOf(menu), QStringList() << "Design Entry"
                                                 << "Add Files..."
                                                 << "Make All Outdated Again..."
                                                 << "Archive Design..."
                                                 << "Open Folder"
                                                 << "Save Design"
                                                 << "Close Design");
    menu->close();
    QCOMPARE(extension.asked.last(), QString("Firmware Design"));
    QVERIFY(extension.asked.contains("top.bin@MainDesignWidget"));
}

void HostViewTest::reportsTheStateOfTheCurrentDesignToExtensions()
{
    HostFixture host;
    RecordingExtension extension;
    host.openDesign("a")->setLocked(true);
    QCOMPARE(extension.states.last(), QString("10"));
    Design* const second = host.openDesign("b");
    QCOMPARE(extension.states.last(), QString("00"));
    second->setReadOnly(true);
    QCOMPARE(extension.states.last(), QString("01"));
    host.view()->setCurrentIndex(host.item("a"));
    QCOMPARE(extension.states.last(), QString("10"));
}

void HostViewTest::showsFilesThatVanishAndComeBack()
{
    HostFixture host;
    host.openDesign("radar");
    QCOMPARE(host.row("top.bin").at(1), QString());
    QVERIFY(QFile::remove(host.path("radar/top.bin")));
    // Another design opened before that is reported must not lose it.
    host.openDesign("a");
    QTRY_COMPARE(host.row("top.bin").at(1), QString("Missing"));
    host.writeFile("radar/top.bin", "bytes");
    QTRY_COMPARE(host.row("top.bin").at(1), QString());
}

void HostViewTest::watchesAFolderAgainThatComesBack_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("vanishing");

    QTest::newRow("in the design's folder") << "radar/out"
                                            << "radar/out";
    QTest::newRow("outside of it") << "elsewhere/out"
                                   << "elsewhere/out";
    QTest::newRow("with the folder around it") << "elsewhere/deep/out"
                                               << "elsewhere";
}

void HostViewTest::watchesAFolderAgainThatComesBack()
{
    QFETCH(QString, folder);
    QFETCH(QString, vanishing);
    HostFixture host;
    const QString file = host.writeFile(folder + "/notes.pdf", "bytes");
    host.openDesign("radar")->restoreFile(file);
    QVERIFY(QDir(host.path(vanishing)).removeRecursively());
    QTRY_VERIFY(host.row("notes.pdf").at(1).contains("Missing"));
    host.writeFile(folder + "/notes.pdf", "bytes");
    QTRY_VERIFY(!host.row("notes.pdf").at(1).contains("Missing"));
    // Only the folder itself reports this.
    QVERIFY(QFile::remove(file));
    QTRY_VERIFY(host.row("notes.pdf").at(1).contains("Missing"));
}

void HostViewTest::watchesTheDesignsOwnFolderAgainThatComesBack()
{
    HostFixture host;
    host.openDesign("radar");
    QVERIFY(QDir().rename(host.path("radar"), host.path("away")));
    QTRY_COMPARE(host.row("top.bin").at(1), QString("Missing"));
    QCOMPARE(host.row("radar").at(1), QString("Read-only"));
    QVERIFY(QDir().rename(host.path("away"), host.path("radar")));
    QTRY_COMPARE(host.row("top.bin").at(1), QString());
    QCOMPARE(host.row("radar").at(1), QString());
    QVERIFY(QFile::remove(host.path("radar/top.bin")));
    QTRY_COMPARE(host.row("top.bin").at(1), QString("Missing"));
}

void HostViewTest::watchesAFolderInPlaceOfOneThatWasMoved()
{
    HostFixture host;
    const QString file = host.writeFile("elsewhere/out/notes.pdf", "bytes");
    host.openDesign("radar")->restoreFile(file);
    // Done before the host gets to know of any of it.
    QVERIFY(QDir().rename(host.path("elsewhere/out"), host.path("elsewhere/old")));
    host.writeFile("elsewhere/out/other.pdf", "bytes");
    QTRY_VERIFY(host.row("notes.pdf").at(1).contains("Missing"));
    host.writeFile("elsewhere/out/notes.pdf", "bytes");
    QTRY_VERIFY(!host.row("notes.pdf").at(1).contains("Missing"));
}

void HostViewTest::noticesAFolderThatIsMadeLater()
{
    HostFixture host;
    host.openDesign("radar")->restoreFile(host.path("later/out/notes.pdf"));
    QVERIFY(host.row("notes.pdf").at(1).contains("Missing"));
    host.writeFile("later/out/notes.pdf", "bytes");
    QTRY_VERIFY(!host.row("notes.pdf").at(1).contains("Missing"));
}

void HostViewTest::keepsItsPlaceWhenFilesComeIn()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    host.view()->setCurrentIndex(host.item("top.bin"));
    design->restoreFile("aaa.bin");
    QVERIFY(host.item("aaa.bin").isValid());
    QCOMPARE(host.view()->currentIndex(), host.item("top.bin"));
}

void HostViewTest::keepsNodesFolded()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    host.view()->collapse(host.item("Firmware"));
    design->restoreFile("aaa.bin");
    QVERIFY(!host.view()->isExpanded(host.item("Firmware")));
    QVERIFY(host.view()->isExpanded(host.item("radar")));
    host.view()->expand(host.item("Firmware"));
    design->restoreFile("bbb.bin");
    QVERIFY(host.view()->isExpanded(host.item("Firmware")));
}

void HostViewTest::opensTheFolderOfAFile()
{
    HostFixture host;
    const FolderOpener opener;
    host.openDesign("radar")->restoreFile(host.writeFile("radar/notes.pdf", "bytes"));
    const QPoint place = host.view()->visualRect(host.item("notes.pdf")).center();
    QTest::mouseClick(host.view()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(host.view()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(opener.opened, QStringList(host.path("radar")));
    QTest::keyClick(host.view(), Qt::Key_Return);
    QCOMPARE(opener.opened.count(), 2);
}

void HostViewTest::foldsANodeOnDoubleClick()
{
    HostFixture host;
    const FolderOpener opener;
    host.openDesign("radar");
    const QPoint place = host.view()->visualRect(host.item("Firmware")).center();
    QTest::mouseClick(host.view()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(host.view()->viewport(), Qt::LeftButton, {}, place);
    QVERIFY(!host.view()->isExpanded(host.item("Firmware")));
    QVERIFY(opener.opened.isEmpty());
}

void HostViewTest::cutsNoNameOff()
{
    HostFixture host;
    host.openDesign("radar")->restoreFile("a file with a name that is rather long.bin");
    const QTreeView* const view = host.view();
    for (const int width : {640, 760}) {
        host.window()->resize(width, 500);
        QTRY_COMPARE(host.window()->width(), width);
        QTRY_VERIFY(view->columnWidth(0) >=
                    const_cast<QTreeView*>(view)->sizeHintForIndex(host.item("a file")).width());
    }
}

void HostViewTest::fillsItsWidthOrScrolls()
{
    HostFixture host;
    host.openDesign("radar")->restoreFile("a file with a name that is rather long.bin");
    auto* const view = host.view();
    const int last = view->model()->columnCount() - 1;
    const QModelIndex date = host.item("top.bin").siblingAtColumn(last);

    host.window()->resize(2000, 500);
    QTRY_COMPARE(view->header()->length(), view->viewport()->width());

    host.window()->resize(640, 500);
    QTRY_VERIFY(view->header()->length() > view->viewport()->width());
    QVERIFY(view->columnWidth(last) >= view->sizeHintForIndex(date).width());

    host.window()->resize(2000, 500);
    QTRY_COMPARE(view->header()->length(), view->viewport()->width());
}

void HostViewTest::removesAFileByKey()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    QVERIFY(design->files().isEmpty());
    QVERIFY(!host.item("top.bin").isValid());
    QVERIFY(QFileInfo::exists(host.path("radar/top.bin")));
}

void HostViewTest::leavesALockedDesignAsItIs()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setLocked(true);
    host.view()->setFocus();
    host.view()->setCurrentIndex(host.item("top.bin"));
    QTest::keyClick(host.view(), Qt::Key_Delete);
    QCOMPARE(design->files().count(), 1);
    QVERIFY(!host.action("Design.AddFiles")->isEnabled());
}

void HostViewTest::showsAFileWithAnUnknownNodeUnderItsDesign()
{
    HostFixture host;
    host.openDesign("radar")->restoreFile("odd.bin")->setCustomNode("Nowhere");
    QCOMPARE(host.item("odd.bin").parent(), host.item("radar"));
    QCOMPARE(host.row("odd.bin").at(1), QString("Missing"));
}

HOST_TEST(HostViewTest)

#include "HostViewTest.moc"
