#include "host/archive/ArchivedDesign.h"
#include "host/archive/Unpacked.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchiveDialog.h"
#include "support/ModalAnswer.h"

#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSpinBox>
#include <QtTest>

#include <memory>

using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::ExtensionSystemCore;

/// From the host's dialog to the configuration package, with the plug-in loaded as hosts load it.
class ConfigPackageFlowTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void offersTheTypeOfThePlugin();
    void followsTheForm();
    void goesToTheFolderOfTheStructure();
    void goesToTheFolderOfTheNewFormatAtOnce();
    void makesThePackageThatTheFormNames();
    void makesTheSamePackageAgain();
    void makesATarball();
    void lendsTheFormToOneDialogAfterTheOther();
    void remembersThePackageType();
    void runsAsTheHostOpensIt();

private:
    void openDialog();
    template <class Widget>
    Widget* find(const char* name) const
    {
        auto* const widget = dialog->findChild<Widget*>(name);
        if (!widget)
            qFatal("The dialog has no %s", name);
        return widget;
    }
    void press(const char* widget, Qt::Key key) { QTest::keyClick(find<QWidget>(widget), key); }
    void type(const char* field, const QString& text);
    void archive();
    QString shownPath() const { return find<QLineEdit>("destinationPath")->text(); }

    QTemporaryDir settings;
    std::unique_ptr<ArchivedDesign> bench;
    std::unique_ptr<ArchiveDialog> dialog;
    ModalAnswer answers;
};

void ConfigPackageFlowTest::initTestCase()
{
    DesignManager::instance()->setSettingsFilePath(settings.filePath("host.ini"));
    ExtensionSystemCore::instance()->addPluginPath(ZORV_PLUGIN_FOLDER);
    ExtensionSystemCore::instance()->initialize();
    QVERIFY(ExtensionSystemCore::instance()->findPlugin("ZORV VKT Plugin"));
    QCOMPARE(QtilitiesApplication::objectManager()
                 ->registeredInterfaces("com.Core.Interfaces.IDesignArchiveExtension/1.0")
                 .size(),
             1);
}

void ConfigPackageFlowTest::init()
{
    bench = std::make_unique<ArchivedDesign>();
    QSettings(settings.filePath("host.ini"), QSettings::IniFormat).remove("ArchiveDialog");
    openDialog();
    press("typeBox", Qt::Key_End);
    press("cmbPackageType", Qt::Key_Home);
    type("txtProjectCM", "GNRL");
    type("spinBoxSequenceNumber", "1");
}

void ConfigPackageFlowTest::cleanup()
{
    QVERIFY2(answers.allGiven(), qPrintable(answers.unexpected().join('\n')));
    answers.clear();
    dialog.reset();
}

void ConfigPackageFlowTest::openDialog()
{
    dialog.reset();
    dialog = std::make_unique<ArchiveDialog>(
        &bench->design(),
        ArchiveDialog::Description{"design.json", [] { return QByteArray("description"); }});
    dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
}

void ConfigPackageFlowTest::type(const char* field, const QString& text)
{
    auto* const widget = find<QWidget>(field);
    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(6, widget->height() / 2));
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(widget, text);
}

void ConfigPackageFlowTest::archive()
{
    QTest::mouseClick(find<QPushButton>("archiveButton"), Qt::LeftButton);
    QTRY_VERIFY_WITH_TIMEOUT(!dialog->isVisible(), PatienceMs);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
}

void ConfigPackageFlowTest::offersTheTypeOfThePlugin()
{
    QCOMPARE(find<QComboBox>("typeBox")->currentText(), QString("VKT Config Package"));
    QVERIFY(find<QWidget>("ZORV_ArchiveConfigExtension")->isVisible());
    QVERIFY(find<QLineEdit>("destinationPath")->isReadOnly());
    QVERIFY(!find<QWidget>("browseButton")->isVisible());
    QVERIFY(!find<QWidget>("appendVersion")->isVisible());
    QVERIFY(!find<QWidget>("includedItems")->isVisible());
    QCOMPARE(shownPath(), bench->path("7010-GNRL-ELEC-FW-01-V-01_00.zip"));
}

void ConfigPackageFlowTest::followsTheForm()
{
    type("txtProjectCM", "HX");
    QCOMPARE(shownPath(), bench->path("7010-HX-ELEC-FW-01-V-01_00.zip"));
    press("cmbDesignType", Qt::Key_Down);
    QCOMPARE(shownPath(), bench->path("7010-HX-FUNC-FW-01-V-01_00.zip"));
    type("spinBoxSequenceNumber", "42");
    QCOMPARE(shownPath(), bench->path("7010-HX-FUNC-FW-42-V-01_00.zip"));
    type("spinBoxVersionMajor", "12");
    QCOMPARE(shownPath(), bench->path("7010-HX-FUNC-FW-42-V-12_00.zip"));
    press("spinBoxVersionMinor", Qt::Key_Up);
    QCOMPARE(shownPath(), bench->path("7010-HX-FUNC-FW-42-V-12_01.zip"));
    press("cmbPackageType", Qt::Key_Down);
    QCOMPARE(shownPath(), bench->path("7030-HX-CMPL-SW-42-V-12_01.zip"));
    press("cmbPackageType", Qt::Key_Up);
    QCOMPARE(shownPath(), bench->path("7010-HX-ELEC-FW-42-V-12_01.zip"));
    press("formatBox", Qt::Key_End);
    QCOMPARE(shownPath(), bench->path("7010-HX-ELEC-FW-42-V-12_01.tar.gz"));
    press("spinBoxVersionMinor", Qt::Key_Up);
    QCOMPARE(shownPath(), bench->path("7010-HX-ELEC-FW-42-V-12_02.tar.gz"));
    press("typeBox", Qt::Key_Home);
    QCOMPARE(shownPath(), bench->path("radar.tar.gz"));
    QVERIFY(!dialog->findChild<QWidget*>("ZORV_ArchiveConfigExtension"));
}

void ConfigPackageFlowTest::goesToTheFolderOfTheStructure()
{
    auto* const structure = new DesignStructure;
    structure->addFileAssociation("*.zip", "Archives", "archives");
    bench->design().setStructure(structure);
    openDialog();
    press("typeBox", Qt::Key_End);
    const QString path = bench->path("archives/7010-GNRL-ELEC-FW-01-V-01_00.zip");
    QCOMPARE(shownPath(), path);
    archive();
    QCOMPARE(Unpacked(path).members, bench->configMembers());
}

void ConfigPackageFlowTest::goesToTheFolderOfTheNewFormatAtOnce()
{
    auto* const structure = new DesignStructure;
    structure->addFileAssociation("*.zip", "Archives", "archives");
    structure->addFileAssociation("*.tar.gz", "Archives", "archives/tar");
    bench->design().setStructure(structure);
    openDialog();
    press("typeBox", Qt::Key_End);
    type("spinBoxVersionMinor", "5");
    const QString tarball = bench->path("archives/tar/7010-GNRL-ELEC-FW-01-V-01_05.tar.gz");
    press("formatBox", Qt::Key_End);
    QCOMPARE(shownPath(), tarball);
    // As the form itself would name it.
    press("spinBoxVersionMinor", Qt::Key_Up);
    press("spinBoxVersionMinor", Qt::Key_Down);
    QCOMPARE(shownPath(), tarball);
    press("formatBox", Qt::Key_Home);
    QCOMPARE(shownPath(), bench->path("archives/7010-GNRL-ELEC-FW-01-V-01_05.zip"));
    // Chosen while the form is away.
    press("typeBox", Qt::Key_Home);
    press("formatBox", Qt::Key_End);
    QCOMPARE(shownPath(), bench->path("archives/tar/radar.tar.gz"));
    press("typeBox", Qt::Key_End);
    QCOMPARE(shownPath(), tarball);
    archive();
    QCOMPARE(Unpacked(tarball).members, bench->configMembers());
}

void ConfigPackageFlowTest::makesThePackageThatTheFormNames()
{
    const QString path = shownPath();
    archive();
    const Unpacked package(path);
    QCOMPARE(package.fault, QString());
    QCOMPARE(package.names, QStringList({"design.json", "source/rx chain.vhd", "top.bin", "top.fcf",
                                         QString::fromUtf8("Überblick.txt")}));
    QCOMPARE(package.members, bench->configMembers());
}

void ConfigPackageFlowTest::makesTheSamePackageAgain()
{
    const QString path = shownPath();
    archive();
    const QByteArray first = ArchivedDesign::read(path);
    openDialog();
    press("typeBox", Qt::Key_End);
    QCOMPARE(shownPath(), path);
    answers.click(QMessageBox::Yes);
    archive();
    QCOMPARE(answers.texts(), QStringList(path + " exists already. Replace it?"));
    QVERIFY(ArchivedDesign::read(path) == first);
}

void ConfigPackageFlowTest::makesATarball()
{
    press("formatBox", Qt::Key_End);
    const QString path = bench->path("7010-GNRL-ELEC-FW-01-V-01_00.tar.gz");
    QCOMPARE(shownPath(), path);
    archive();
    const Unpacked package(path);
    QCOMPARE(package.fault, QString());
    QCOMPARE(package.members, bench->configMembers());
}

void ConfigPackageFlowTest::lendsTheFormToOneDialogAfterTheOther()
{
    const QPointer<QWidget> form = find<QWidget>("ZORV_ArchiveConfigExtension");
    dialog.reset();
    QVERIFY(form);
    QVERIFY(!form->parent());
    QVERIFY(!form->isVisible());
    bench->design().setVersion(120, 3);
    openDialog();
    press("typeBox", Qt::Key_End);
    QCOMPARE(form->window(), dialog.get());
    QCOMPARE(shownPath(), bench->path("7010-GNRL-ELEC-FW-01-V-99_03.zip"));
}

void ConfigPackageFlowTest::remembersThePackageType()
{
    press("cmbPackageType", Qt::Key_Down);
    const QSettings file(settings.filePath("host.ini"), QSettings::IniFormat);
    QCOMPARE(file.value("Plugins/ZORV_Plugin/active_package_type").toString(),
             QString("7030 (Software)"));
}

void ConfigPackageFlowTest::runsAsTheHostOpensIt()
{
    dialog.reset();
    answers.inspect([](QWidget* shown) {
        auto* const types = shown->findChild<QComboBox*>("typeBox");
        QTest::keyClick(types, Qt::Key_End);
        QCOMPARE(types->currentText(), QString("VKT Config Package"));
    });
    answers.cancel();
    archiveDesign(&bench->design(), {}, nullptr);
    QCOMPARE(answers.texts(), QStringList("Archive \"radar\""));
}

ZORV_TEST_MAIN(ConfigPackageFlowTest)
{
    QtilitiesApplication application(argc, argv);
    ConfigPackageFlowTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "ConfigPackageFlowTest.moc"
