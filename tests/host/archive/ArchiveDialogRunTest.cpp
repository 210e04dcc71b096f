#include "host/archive/ArchivedDesign.h"
#include "host/archive/NotingExtension.h"
#include "host/archive/Unpacked.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchiveDialog.h"
#include "support/FolderOpener.h"
#include "support/ModalAnswer.h"

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesLogging/Logger.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

using OrvanticCore::DesignManager;
using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;
using Qtilities::Logging::Logger;

/// What happens from the press on Archive.
class ArchiveDialogRunTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void archivesWhatIsChecked();
    void archivesTheDescriptionAsItIsThen();
    void refusesANameThatLeadsOut();
    void asksAboutAnOddName_data();
    void asksAboutAnOddName();
    void archivesWhatAHidingExtensionNames();
    void archivesUnderTheExactPath();
    void asksBeforeItReplaces_data();
    void asksBeforeItReplaces();
    void refusesToReplaceWhatBelongsToTheDesign_data();
    void refusesToReplaceWhatBelongsToTheDesign();
    void saysWhyThereIsNoArchive();
    void worksOnceTheCauseIsGone();
    void showsItsProgressAndCancels_data();
    void showsItsProgressAndCancels();
    void cancelsWhenItIsDeleted();
    void listsWhatGoesIn();
    void remembersFormatAndFolder();
    void showsTheArchiveInItsFolder();

private:
    template <class Widget>
    Widget* find(const char* name) const
    {
        auto* const widget = dialog->findChild<Widget*>(name);
        if (!widget)
            qFatal("The dialog has no %s", name);
        return widget;
    }
    void enter(const QString& path);
    void pressArchive() { QTest::mouseClick(find<QPushButton>("archiveButton"), Qt::LeftButton); }
    /// Makes the archiving long enough to be caught in the middle.
    void makeDesignLarge() { QVERIFY(QFile::resize(bench->path("top.bin"), 1LL << 33)); }

    std::unique_ptr<ArchivedDesign> bench;
    std::unique_ptr<NotingExtension> extension;
    std::unique_ptr<ArchiveDialog> dialog;
    std::unique_ptr<ModalAnswer> answers;
    QByteArray description;
};

void ArchiveDialogRunTest::init()
{
    bench = std::make_unique<ArchivedDesign>();
    DesignManager::instance()->setSettingsFilePath(bench->outside("settings.ini"));
    extension = std::make_unique<NotingExtension>();
    answers = std::make_unique<ModalAnswer>();
    description = "description";
    dialog = std::make_unique<ArchiveDialog>(
        &bench->design(),
        ArchiveDialog::Description{"design.json", [this] { return description; }});
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
}

void ArchiveDialogRunTest::cleanup()
{
    QVERIFY2(answers->allGiven(), qPrintable(answers->unexpected().join('\n')));
    dialog.reset();
    answers.reset();
    extension.reset();
    bench.reset();
}

void ArchiveDialogRunTest::enter(const QString& path)
{
    auto* const edit = find<QLineEdit>("destinationPath");
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, path);
}

void ArchiveDialogRunTest::archivesWhatIsChecked()
{
    QSignalSpy log(Logger::instance(),
                   SIGNAL(newPriorityMessage(Logger::MessageType, const QString&)));
    for (const char* item : {"externalFiles", "designFolders"}) {
        QTest::mouseClick(find<QWidget>(item), Qt::LeftButton, {}, QPoint(8, 8));
    }
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    const Unpacked unpacked(bench->path("radar.zip"));
    QCOMPARE(unpacked.fault, QString());
    QCOMPARE(unpacked.members, bench->configMembers());
    QCOMPARE(log.size(), 1);
    QVERIFY(log.at(0).at(1).toString().contains("The design is archived in " +
                                                bench->path("radar.zip") + '.'));
}

void ArchiveDialogRunTest::refusesANameThatLeadsOut()
{
    find<QComboBox>("typeBox")->setCurrentIndex(1);
    QTest::keyClicks(extension.get(), bench->path("7010-x/../../OUT-01.zip"));
    answers->click(QMessageBox::Ok);
    pressArchive();
    QVERIFY(answers->allGiven());
    QVERIFY2(answers->texts().first().contains("leads out of the folder"),
             qPrintable(answers->texts().first()));
    QVERIFY(!QFileInfo::exists(bench->outside("OUT-01.zip")));
    QVERIFY(dialog->isVisible());
}

void ArchiveDialogRunTest::asksAboutAnOddName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("oddity");
    QTest::newRow("an empty part") << "7010--ELEC.zip"
                                   << "A part of the name is empty.";
    QTest::newRow("a blank") << "7010-A B-ELEC.zip"
                             << "The name has the character \" \".";
    QTest::newRow("a colon") << "7010-A:B-ELEC.zip"
                             << "The name has the character \":\".";
    QTest::newRow("a folder of its own") << "7010-A/B-ELEC.zip"
                                         << "There is no folder ";
}

void ArchiveDialogRunTest::asksAboutAnOddName()
{
    QFETCH(QString, name);
    QFETCH(QString, oddity);
    find<QComboBox>("typeBox")->setCurrentIndex(1);
    QTest::keyClicks(extension.get(), bench->path(name));
    answers->click(QMessageBox::No);
    pressArchive();
    QVERIFY(answers->allGiven());
    QVERIFY2(answers->texts().first().contains(oddity), qPrintable(answers->texts().first()));
    QVERIFY(dialog->isVisible());
    QVERIFY(!QFileInfo::exists(bench->path(name)));

    answers->clear();
    answers->click(QMessageBox::Yes);
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QVERIFY(QFileInfo::exists(bench->path(name)));
}

void ArchiveDialogRunTest::archivesTheDescriptionAsItIsThen()
{
    description = "changed";
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    const Unpacked unpacked(bench->path("radar.zip"));
    QCOMPARE(unpacked.members["design.json"], QByteArray("changed"));
    QCOMPARE(unpacked.members["top.fcf"], QByteArray("image"));
    QCOMPARE(unpacked.members["external/shared.vhd"], QByteArray("package shared is\n"));
}

void ArchiveDialogRunTest::archivesWhatAHidingExtensionNames()
{
    extension->hidesAndLocks = true;
    extension->pathOnActivation = bench->path("p.tar.gz");
    QTest::keyClick(find<QComboBox>("typeBox"), Qt::Key_End);
    // The extension makes up its mind after its type was chosen.
    extension->items = Extension::GeneratedFiles;
    QTest::keyClick(find<QComboBox>("formatBox"), Qt::Key_End);
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QCOMPARE(Unpacked(bench->path("p.tar.gz")).members,
             (QMap<QString, QByteArray>{{"top.fcf", "image"}}));
}

void ArchiveDialogRunTest::archivesUnderTheExactPath()
{
    enter("archives/My Radar.pkg");
    QTest::keyClick(find<QLineEdit>("destinationPath"), Qt::Key_Return);
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QCOMPARE(ArchivedDesign::filesBeside(bench->path("archives/My Radar.pkg")),
             QStringList("My Radar.pkg"));
    QVERIFY(QFile::rename(bench->path("archives/My Radar.pkg"), bench->path("copy.zip")));
    QCOMPARE(Unpacked(bench->path("copy.zip")).fault, QString());
}

void ArchiveDialogRunTest::asksBeforeItReplaces_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::addColumn<bool>("replaces");

    QTest::newRow("yes") << false << true;
    QTest::newRow("no") << false << false;
    QTest::newRow("closing the question") << true << false;
}

void ArchiveDialogRunTest::asksBeforeItReplaces()
{
    QFETCH(bool, byEscape);
    QFETCH(bool, replaces);
    const QString archive = ArchivedDesign::write(bench->path("radar.zip"), "the one before");
    answers->inspect([](QWidget* box) {
        auto* const question = qobject_cast<QMessageBox*>(box);
        QCOMPARE(question->defaultButton(), question->button(QMessageBox::No));
        QCOMPARE(question->textFormat(), Qt::PlainText);
    });
    if (byEscape)
        answers->press(Qt::Key_Escape);
    else
        answers->click(replaces ? QMessageBox::Yes : QMessageBox::No);
    pressArchive();
    QCOMPARE(answers->texts(), QStringList(archive + " exists already. Replace it?"));
    if (!replaces) {
        QVERIFY(dialog->isVisible());
        QVERIFY(find<QPushButton>("archiveButton")->isEnabled());
        QCOMPARE(ArchivedDesign::read(archive), QByteArray("the one before"));
        return;
    }
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QCOMPARE(Unpacked(archive).members["design.json"], QByteArray("description"));
}

void ArchiveDialogRunTest::refusesToReplaceWhatBelongsToTheDesign_data()
{
    QTest::addColumn<QString>("destination");
    QTest::addColumn<QString>("file");

    QTest::newRow("a file") << "top.bin"
                            << "top.bin";
    QTest::newRow("a file by another path") << "source/../top.bin"
                                            << "top.bin";
    QTest::newRow("a file by a link") << "link.zip"
                                      << "top.bin";
    QTest::newRow("a generated file") << "top.fcf"
                                      << "top.fcf";
    QTest::newRow("the description") << "design.json"
                                     << "design.json";
    QTest::newRow("a file through a link to the folder") << "folder-link/top.bin"
                                                         << "top.bin";
    QTest::newRow("the description through a link to the folder") << "folder-link/design.json"
                                                                  << "design.json";
}

void ArchiveDialogRunTest::refusesToReplaceWhatBelongsToTheDesign()
{
    QFETCH(QString, destination);
    QFETCH(QString, file);
    QVERIFY(QFile::link(bench->path("top.bin"), bench->path("link.zip")));
    QVERIFY(QFile::link(bench->path("."), bench->path("folder-link")));
    ArchivedDesign::write(bench->path("design.json"), "stored");
    const QByteArray before = ArchivedDesign::read(bench->path(file));
    answers->click(QMessageBox::Ok);
    enter(destination);
    pressArchive();
    QVERIFY2(
        answers->texts().join('\n').contains("belongs to the design. Choose another destination."),
        qPrintable(answers->texts().join('\n')));
    QVERIFY(dialog->isVisible());
    QVERIFY(ArchivedDesign::read(bench->path(file)) == before);
}

void ArchiveDialogRunTest::saysWhyThereIsNoArchive()
{
    bench->design().restoreFile("gone.bin");
    const QStringList before = ArchivedDesign::filesBeside(bench->path("radar.zip"));
    answers->click(QMessageBox::Ok);
    pressArchive();
    QTRY_COMPARE_WITH_TIMEOUT(answers->texts(),
                              QStringList("The design cannot be archived.\n\n" +
                                          bench->path("gone.bin: It does not exist.")),
                              PatienceMs);
    QTRY_VERIFY(find<QPushButton>("archiveButton")->isEnabled());
    QVERIFY(dialog->isVisible());
    QVERIFY(!find<QProgressBar>("progressBar")->isVisible());
    QCOMPARE(ArchivedDesign::filesBeside(bench->path("radar.zip")), before);
}

void ArchiveDialogRunTest::worksOnceTheCauseIsGone()
{
    bench->design().restoreFile("gone.bin");
    answers->click(QMessageBox::Ok);
    pressArchive();
    QTRY_COMPARE_WITH_TIMEOUT(answers->texts().size(), 1, PatienceMs);
    ArchivedDesign::write(bench->path("gone.bin"), "back");
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QCOMPARE(Unpacked(bench->path("radar.zip")).members["gone.bin"], QByteArray("back"));
}

void ArchiveDialogRunTest::showsItsProgressAndCancels_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::addColumn<bool>("replacing");

    QTest::newRow("by the button") << false << false;
    QTest::newRow("by Escape") << true << false;
    QTest::newRow("over an archive") << false << true;
}

void ArchiveDialogRunTest::showsItsProgressAndCancels()
{
    QFETCH(bool, byEscape);
    QFETCH(bool, replacing);
    makeDesignLarge();
    const QString archive = bench->path("radar.zip");
    if (replacing) {
        ArchivedDesign::write(archive, "the one before");
        answers->click(QMessageBox::Yes);
    }
    const QStringList before = ArchivedDesign::filesBeside(archive);
    pressArchive();
    auto* const progress = find<QProgressBar>("progressBar");
    QTRY_VERIFY_WITH_TIMEOUT(progress->value() > 0, PatienceMs);
    QVERIFY(progress->isVisible());
    QVERIFY(!find<QPushButton>("archiveButton")->isEnabled());
    QVERIFY(!find<QWidget>("typeBox")->isEnabled());

    auto* const buttons = find<QDialogButtonBox>("buttonBox");
    if (byEscape)
        QTest::keyClick(dialog.get(), Qt::Key_Escape);
    else
        QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!progress->isVisible(), PatienceMs);
    QVERIFY(dialog->isVisible());
    QCOMPARE(find<QLabel>("stateLabel")->text(), QString("Cancelled. No archive was made."));
    QVERIFY(find<QPushButton>("archiveButton")->isEnabled());
    QCOMPARE(ArchivedDesign::filesBeside(archive), before);
    if (replacing)
        QCOMPARE(ArchivedDesign::read(archive), QByteArray("the one before"));
    // The next time the same button closes the dialog.
    QTest::mouseClick(buttons->button(QDialogButtonBox::Cancel), Qt::LeftButton);
    QVERIFY(!dialog->isVisible());
}

void ArchiveDialogRunTest::cancelsWhenItIsDeleted()
{
    makeDesignLarge();
    const QStringList before = ArchivedDesign::filesBeside(bench->path("radar.zip"));
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(find<QProgressBar>("progressBar")->value() > 0, PatienceMs);
    dialog.reset();
    QCOMPARE(ArchivedDesign::filesBeside(bench->path("radar.zip")), before);
}

void ArchiveDialogRunTest::listsWhatGoesIn()
{
    QCOMPARE(dialog->windowTitle(), QString("Archive \"radar\""));
    const auto* const list = find<QTreeWidget>("contentsList");
    QStringList names;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        names << list->topLevelItem(row)->text(0);
    QVERIFY(names.contains("top.fcf"));
    QVERIFY(names.contains("constraints/.hidden"));
    QVERIFY(find<QLabel>("contentsTotal")->text().startsWith("8 files, "));
    QTest::mouseClick(find<QCheckBox>("generatedFiles"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(find<QLabel>("contentsTotal")->text().startsWith("7 files, "));
}

void ArchiveDialogRunTest::remembersFormatAndFolder()
{
    QVERIFY(QDir().mkdir(bench->outside("archives")));
    QTest::keyClick(find<QComboBox>("formatBox"), Qt::Key_Down);
    enter(bench->outside("archives/radar.tar.gz"));
    pressArchive();
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    dialog = std::make_unique<ArchiveDialog>(&bench->design(), ArchiveDialog::Description());
    QCOMPARE(dialog->currentExtension(), QString("tar.gz"));
    QCOMPARE(find<QLineEdit>("destinationPath")->text(), bench->outside("archives/radar.tar.gz"));
}

void ArchiveDialogRunTest::showsTheArchiveInItsFolder()
{
    dialog.reset();
    const FolderOpener opener;
    answers->press(Qt::Key_Return);
    QWidget parent;
    parent.show();
    archiveDesign(&bench->design(), ArchiveDialog::Description(), &parent);
    auto* const box = parent.findChild<QMessageBox*>("ArchivedBox");
    QVERIFY(box && box->isVisible() && !box->isModal());
    QVERIFY(box->text().contains(bench->path("radar.zip")));
    QTest::mouseClick(box->findChild<QPushButton*>("ShowInFolderButton"), Qt::LeftButton);
    QCOMPARE(opener.opened, QStringList(bench->path("").chopped(1)));
}

ZORV_WINDOW_TEST(ArchiveDialogRunTest)
#include "ArchiveDialogRunTest.moc"
