#include "host/archive/ArchivedDesign.h"
#include "host/archive/NotingExtension.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchiveDialog.h"
#include "support/ModalAnswer.h"

#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;

/// What the dialog shows and how it calls extensions, up to the press on Archive.
class ArchiveDialogControlsTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithAPlainZipInTheDesignsFolder();
    void takesTheFolderFromTheStructure();
    void passesItselfToEveryExtensionFirst();
    void showsTheFormOfTheChosenType();
    void returnsTheFormWithoutDeletingIt();
    void getsAlongWithoutAForm();
    void hidesAndLocksWhatTheExtensionSays();
    void showsWhatTheExtensionArchives();
    void startsWithThePathOfTheExtension();
    void followsThePathOfTheChosenExtension();
    void notifiesTheExtensionOfTheUsersPath();
    void changesTheExtensionWithTheFormat();
    void appendsTheVersionToTheName();
    void keepsThePlainPathAndItemsWhileAnotherTypeIsChosen();
    void browsesForADestination();
    void keepsThePathWhenBrowsingIsCancelled();
    void archivesNothingWithoutAPathOrADesign();
    void forgetsAnExtensionThatIsDeleted();
    void returnsTheFormToAnExtensionThatLeavesThePool();
    void closesWithEscape();

private:
    void choose(const char* box, int index);
    void type(const QString& text);
    template <class Widget>
    Widget* find(const char* name) const
    {
        auto* const widget = dialog->findChild<Widget*>(name);
        if (!widget)
            qFatal("The dialog has no %s", name);
        return widget;
    }
    QString path() const { return find<QLineEdit>("destinationPath")->text(); }
    QStringList checkedItems() const;
    void openDialog();

    std::unique_ptr<ArchivedDesign> bench;
    std::unique_ptr<NotingExtension> extension;
    std::unique_ptr<ArchiveDialog> dialog;
};

void ArchiveDialogControlsTest::init()
{
    bench = std::make_unique<ArchivedDesign>();
    DesignManager::instance()->setSettingsFilePath(bench->outside("settings.ini"));
    extension = std::make_unique<NotingExtension>();
    openDialog();
}

void ArchiveDialogControlsTest::cleanup()
{
    dialog.reset();
    extension.reset();
    bench.reset();
}

void ArchiveDialogControlsTest::openDialog()
{
    dialog.reset();
    extension->calls.clear();
    dialog = std::make_unique<ArchiveDialog>(&bench->design(), ArchiveDialog::Description());
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
}

void ArchiveDialogControlsTest::choose(const char* box, int index)
{
    auto* const comboBox = find<QComboBox>(box);
    QTest::keyClick(comboBox, Qt::Key_Home);
    for (int step = 0; step < index; ++step)
        QTest::keyClick(comboBox, Qt::Key_Down);
    QCOMPARE(comboBox->currentIndex(), index);
}

void ArchiveDialogControlsTest::type(const QString& text)
{
    auto* const edit = find<QLineEdit>("destinationPath");
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

QStringList ArchiveDialogControlsTest::checkedItems() const
{
    QStringList checked;
    for (const QCheckBox* box : find<QGroupBox>("includedItems")->findChildren<QCheckBox*>()) {
        if (box->isChecked())
            checked << box->objectName();
    }
    return checked;
}

void ArchiveDialogControlsTest::startsWithAPlainZipInTheDesignsFolder()
{
    QCOMPARE(find<QComboBox>("typeBox")->currentText(), QString("Plain Archive"));
    QCOMPARE(find<QComboBox>("formatBox")->currentText(), QString("Zip archive (*.zip)"));
    QCOMPARE(path(), bench->path("radar.zip"));
    QCOMPARE(dialog->currentExtension(), QString("zip"));
    QCOMPARE(dialog->design(), &bench->design());
    QCOMPARE(checkedItems().size(), 5);
    QVERIFY(find<QCheckBox>("appendVersion")->isVisible());
    QVERIFY(!find<QWidget>("progressBar")->isVisible());
    QVERIFY(find<QPushButton>("archiveButton")->isEnabled());
    QVERIFY(find<QPushButton>("archiveButton")->isDefault());
}

void ArchiveDialogControlsTest::takesTheFolderFromTheStructure()
{
    auto* const structure = new DesignStructure;
    structure->addFileAssociation("*.zip", "Archives", "archives");
    bench->design().setStructure(structure);
    openDialog();
    QCOMPARE(path(), bench->path("archives/radar.zip"));
}

void ArchiveDialogControlsTest::passesItselfToEveryExtensionFirst()
{
    QCOMPARE(extension->calls, QStringList("dialog"));
    QCOMPARE(extension->dialog, dialog.get());
    QVERIFY(!extension->isVisible());
}

void ArchiveDialogControlsTest::showsTheFormOfTheChosenType()
{
    choose("typeBox", 1);
    QCOMPARE(extension->calls, QStringList({"dialog", "update"}));
    QCOMPARE(extension->window(), dialog.get());
    QVERIFY(extension->isVisible());
    choose("typeBox", 0);
    QVERIFY(!extension->isVisible());
    QVERIFY(!extension->parent());
    QCOMPARE(extension->dialog, dialog.get());
}

void ArchiveDialogControlsTest::returnsTheFormWithoutDeletingIt()
{
    choose("typeBox", 1);
    const QPointer<NotingExtension> form(extension.get());
    dialog.reset();
    QVERIFY(form);
    QVERIFY(!form->parent());
    QVERIFY(!form->isVisible());
    QVERIFY(!form->dialog);
    QCOMPARE(form->calls.constLast(), QString("no dialog"));
    openDialog();
    choose("typeBox", 1);
    QVERIFY(form->isVisible());
}

void ArchiveDialogControlsTest::getsAlongWithoutAForm()
{
    extension->hasWidget = false;
    choose("typeBox", 1);
    QVERIFY(!extension->isVisible());
    QCOMPARE(extension->calls.constLast(), QString("update"));
    choose("typeBox", 0);
    QVERIFY(!extension->parent());
}

void ArchiveDialogControlsTest::hidesAndLocksWhatTheExtensionSays()
{
    extension->hidesAndLocks = true;
    choose("typeBox", 1);
    QVERIFY(!find<QWidget>("appendVersion")->isVisible());
    QVERIFY(!find<QWidget>("includedItems")->isVisible());
    QVERIFY(!find<QWidget>("browseButton")->isVisible());
    QVERIFY(find<QLineEdit>("destinationPath")->isReadOnly());
    choose("typeBox", 0);
    QVERIFY(find<QWidget>("appendVersion")->isVisible());
    QVERIFY(find<QWidget>("includedItems")->isVisible());
    QVERIFY(find<QWidget>("browseButton")->isVisible());
    QVERIFY(!find<QLineEdit>("destinationPath")->isReadOnly());
}

void ArchiveDialogControlsTest::showsWhatTheExtensionArchives()
{
    choose("typeBox", 1);
    QCOMPARE(checkedItems(), QStringList({"designFiles", "designDescription"}));
    choose("typeBox", 0);
    QCOMPARE(checkedItems().size(), 5);
}

void ArchiveDialogControlsTest::startsWithThePathOfTheExtension()
{
    extension->pathOnActivation = "/packages/p-01.zip";
    choose("typeBox", 1);
    QCOMPARE(path(), QString("/packages/p-01.zip"));
    choose("typeBox", 0);
    QCOMPARE(path(), bench->path("radar.zip"));
    choose("formatBox", 1);
    choose("typeBox", 1);
    QCOMPARE(path(), QString("/packages/p-01.tar.gz"));
    choose("typeBox", 0);
    extension->pathOnActivation.clear();
    choose("typeBox", 1);
    QCOMPARE(path(), bench->path("radar.tar.gz"));
}

void ArchiveDialogControlsTest::followsThePathOfTheChosenExtension()
{
    emit extension->destinationPathChanged("/unseen.zip");
    QCOMPARE(path(), bench->path("radar.zip"));
    choose("typeBox", 1);
    QTest::keyClicks(extension.get(), "/p.zip");
    QCOMPARE(path(), QString("/p.zip"));
    emit extension->destinationPathChanged("/exactly/this");
    QCOMPARE(path(), QString("/exactly/this"));
    QVERIFY(!extension->calls.join(' ').contains("path"));
    choose("typeBox", 0);
    emit extension->destinationPathChanged("/unseen.zip");
    QCOMPARE(path(), bench->path("radar.zip"));
    // Chosen a second time, it is followed once.
    choose("typeBox", 1);
    emit extension->destinationPathChanged("/p-02.zip");
    QCOMPARE(path(), QString("/p-02.zip"));
}

void ArchiveDialogControlsTest::notifiesTheExtensionOfTheUsersPath()
{
    choose("typeBox", 1);
    extension->calls.clear();
    type("/a");
    QCOMPARE(extension->calls, QStringList({"path ", "path /", "path /a"}));
    choose("typeBox", 0);
    type("/b");
    QCOMPARE(extension->calls.size(), 3);
}

void ArchiveDialogControlsTest::changesTheExtensionWithTheFormat()
{
    choose("formatBox", 1);
    QCOMPARE(path(), bench->path("radar.tar.gz"));
    QCOMPARE(dialog->currentExtension(), QString("tar.gz"));
    choose("typeBox", 1);
    extension->calls.clear();
    choose("formatBox", 0);
    QCOMPARE(extension->calls, QStringList("path " + bench->path("radar.zip")));
}

void ArchiveDialogControlsTest::appendsTheVersionToTheName()
{
    bench->design().setVersion(2, 11);
    QTest::mouseClick(find<QCheckBox>("appendVersion"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(find<QCheckBox>("appendVersion")->isChecked());
    QCOMPARE(path(), bench->path("radar-V-2_11.zip"));
    choose("formatBox", 1);
    QCOMPARE(path(), bench->path("radar-V-2_11.tar.gz"));
    QTest::mouseClick(find<QCheckBox>("appendVersion"), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(path(), bench->path("radar.tar.gz"));
}

void ArchiveDialogControlsTest::keepsThePlainPathAndItemsWhileAnotherTypeIsChosen()
{
    type("/elsewhere/mine.zip");
    QTest::mouseClick(find<QCheckBox>("externalFiles"), Qt::LeftButton, {}, QPoint(8, 8));
    extension->pathOnActivation = "/packages/p.zip";
    choose("typeBox", 1);
    QCOMPARE(path(), QString("/packages/p.zip"));
    choose("typeBox", 0);
    QCOMPARE(path(), QString("/elsewhere/mine.zip"));
    QVERIFY(!checkedItems().contains("externalFiles"));
    QCOMPARE(checkedItems().size(), 4);
}

void ArchiveDialogControlsTest::browsesForADestination()
{
    choose("typeBox", 1);
    ModalAnswer answers;
    const QString chosen = bench->outside("mine");
    answers.inspect([&](QWidget* box) {
        QCOMPARE(qobject_cast<QFileDialog*>(box)->acceptMode(), QFileDialog::AcceptSave);
        box->findChild<QLineEdit*>("fileNameEdit")->setText(chosen);
    });
    answers.press(Qt::Key_Return);
    QTest::mouseClick(find<QPushButton>("browseButton"), Qt::LeftButton);
    QVERIFY(answers.allGiven());
    QCOMPARE(path(), chosen + ".zip");
    QCOMPARE(extension->calls.constLast(), "path " + chosen + ".zip");
}

void ArchiveDialogControlsTest::keepsThePathWhenBrowsingIsCancelled()
{
    ModalAnswer answers;
    answers.cancel();
    QTest::mouseClick(find<QPushButton>("browseButton"), Qt::LeftButton);
    QVERIFY(answers.allGiven());
    QCOMPARE(path(), bench->path("radar.zip"));
}

void ArchiveDialogControlsTest::archivesNothingWithoutAPathOrADesign()
{
    type("");
    QVERIFY(!find<QPushButton>("archiveButton")->isEnabled());
    type("a");
    QVERIFY(find<QPushButton>("archiveButton")->isEnabled());
    bench.reset();
    QVERIFY(!dialog->design());
    QVERIFY(!find<QPushButton>("archiveButton")->isEnabled());
    dialog = std::make_unique<ArchiveDialog>(nullptr, ArchiveDialog::Description());
    QVERIFY(!find<QPushButton>("archiveButton")->isEnabled());
    QCOMPARE(path(), QString());
}

void ArchiveDialogControlsTest::forgetsAnExtensionThatIsDeleted()
{
    const NotingExtension other("Other Package");
    openDialog();
    choose("typeBox", 1);
    extension.reset();
    auto* const types = find<QComboBox>("typeBox");
    QCOMPARE(types->count(), 2);
    QCOMPARE(types->currentText(), QString("Plain Archive"));
    QCOMPARE(path(), bench->path("radar.zip"));
    choose("typeBox", 1);
    QCOMPARE(types->currentText(), QString("Other Package"));
    QCOMPARE(other.window(), dialog.get());
    dialog.reset();
    QVERIFY(!other.parent());
    QVERIFY(!other.dialog);
}

void ArchiveDialogControlsTest::returnsTheFormToAnExtensionThatLeavesThePool()
{
    choose("typeBox", 1);
    Qtilities::Core::QtilitiesCoreApplication::objectManager()->removeObject(extension.get());
    QCOMPARE(find<QComboBox>("typeBox")->count(), 1);
    QVERIFY(!extension->parent());
    QVERIFY(!extension->dialog);
    QCOMPARE(path(), bench->path("radar.zip"));
}

void ArchiveDialogControlsTest::closesWithEscape()
{
    QTest::keyClick(dialog.get(), Qt::Key_Escape);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(dialog->result(), int(QDialog::Rejected));
    QVERIFY(!QFileInfo::exists(bench->path("radar.zip")));
}

ZORV_WINDOW_TEST(ArchiveDialogControlsTest)
#include "ArchiveDialogControlsTest.moc"
