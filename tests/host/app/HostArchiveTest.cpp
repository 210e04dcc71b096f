#include "host/app/HostFixture.h"

#include "host/archive/Unpacked.h"
#include "toolkit/QtDifferences.h"

#include <OrvanticCore/Design.h>

#include <QComboBox>
#include <QDialogButtonBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTranslator>
#include <QtTest>

using OrvanticCore::Design;

/// The way from the host's menu to an archive, with the plug-in's type and the host's own.
class HostArchiveTest : public QObject {
    Q_OBJECT

private slots:
    void init() { host.reset(new HostFixture); }
    void cleanup();

    void archivesNothingWithoutADesign();
    void makesAConfigPackageFromTheMenu();
    void archivesTheDesignThatIsCurrent();
    void archivesWhatIsNotSavedYet();
    void writesTheSameFilesInGerman();

private:
    /// What a changed design leaves on the disk that is saved, archived and packaged: files,
    /// members and settings, by name.
    QMap<QString, QByteArray> filesOfADesign();
    /// Chooses the command from the menu by the mouse. The dialog is driven by a promise made
    /// before; this returns when the dialog is closed.
    void chooseArchive();

    QScopedPointer<HostFixture> host;
};

void HostArchiveTest::cleanup()
{
    QVERIFY2(host->dialogs().allGiven(), qPrintable(host->dialogs().unexpected().join('\n')));
    host.reset();
}

void HostArchiveTest::chooseArchive()
{
    QVERIFY(HostFixture::choose(host->menu("File"), "Archive Design..."));
}

void HostArchiveTest::archivesNothingWithoutADesign()
{
    QVERIFY(!host->action("File.ArchiveDesign")->isEnabled());
    host->openDesign("radar");
    QVERIFY(host->action("File.ArchiveDesign")->isEnabled());
    host->press(Qt::Key_W, Qt::ControlModifier);
    QVERIFY(!host->action("File.ArchiveDesign")->isEnabled());
}

void HostArchiveTest::makesAConfigPackageFromTheMenu()
{
    host->openDesign("radar");
    const QString package = host->path("radar/7010-GNRL-ELEC-FW-01-V-01_04.zip");
    QStringList shown;
    host->dialogs().inspect([&shown](QWidget* dialog) {
        const auto* const path = dialog->findChild<QLineEdit*>("destinationPath");
        QTest::keyClick(dialog->findChild<QComboBox*>("typeBox"), Qt::Key_End);
        shown << path->text();
        auto* const packageType = dialog->findChild<QComboBox*>("cmbPackageType");
        QTest::keyClick(packageType, Qt::Key_Down);
        shown << path->text();
        QTest::keyClick(packageType, Qt::Key_Up);
        shown << path->text();
    });
    host->dialogs().press(Qt::Key_Return);
    chooseArchive();

    QCOMPARE(shown,
             QStringList({package, host->path("radar/7030-GNRL-CMPL-SW-01-V-01_04.zip"), package}));
    const Unpacked unpacked(package);
    QCOMPARE(unpacked.fault, QString());
    QCOMPARE(unpacked.names, QStringList({"design.json", "top.bin"}));
    QCOMPARE(unpacked.members["top.bin"], host->bytesOf("radar/top.bin"));
    QCOMPARE(host->log().constLast(), "The design is archived in " + package + '.');
    const QSettings settings(host->path("settings/host.ini"), QSettings::IniFormat);
    QCOMPARE(settings.value("Plugins/ZORV_Plugin/active_package_type").toString(),
             QString("7010 (Firmware)"));
}

void HostArchiveTest::archivesTheDesignThatIsCurrent()
{
    host->openDesign("radar");
    host->openDesign("sonar");
    host->dialogs().press(Qt::Key_Return);
    host->press(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(Unpacked(host->path("sonar/sonar.zip")).names,
             QStringList({"design.json", "top.bin"}));
    QVERIFY(!QFileInfo::exists(host->path("radar/radar.zip")));
}

void HostArchiveTest::archivesWhatIsNotSavedYet()
{
    Design* const design = host->openDesign("radar");
    design->setVersion(3, 0);
    host->dialogs().press(Qt::Key_Return);
    host->press(Qt::Key_R, Qt::ControlModifier);
    const QByteArray archived = Unpacked(host->path("radar/radar.zip")).members["design.json"];
    QCOMPARE(QJsonDocument::fromJson(archived)["version"]["major"].toInt(), 3);
    QVERIFY(design->isModified());
}

QMap<QString, QByteArray> HostArchiveTest::filesOfADesign()
{
    host->openDesign("radar")->setVersion(3, 0);
    host->press(Qt::Key_S, Qt::ControlModifier);
    host->dialogs().press(Qt::Key_Return);
    host->press(Qt::Key_R, Qt::ControlModifier);
    host->dialogs().inspect([](QWidget* dialog) {
        QTest::keyClick(dialog->findChild<QComboBox*>("typeBox"), Qt::Key_End);
        auto* const packageType = dialog->findChild<QComboBox*>("cmbPackageType");
        QTest::keyClick(packageType, Qt::Key_Down);
        QTest::keyClick(packageType, Qt::Key_Up);
    });
    host->dialogs().press(Qt::Key_Return);
    host->press(Qt::Key_R, Qt::ControlModifier);

    const QString package = "radar/7010-GNRL-ELEC-FW-01-V-03_00.zip";
    QMap<QString, QByteArray> files{{"design.json", host->bytesOf("radar/design.json")}};
    for (const QString& archive : {QString("radar/radar.zip"), package}) {
        const Unpacked unpacked(host->path(archive));
        files[archive] = (unpacked.fault + unpacked.names.join('\n')).toUtf8();
        for (const QString& name : unpacked.names)
            files[archive + '/' + name] = unpacked.members[name];
    }
    QSettings settings(host->path("settings/host.ini"), QSettings::IniFormat);
    settings.beginGroup("Plugins");
    for (const QString& key : settings.allKeys())
        files[key] = settings.value(key).toByteArray();
    return files;
}

void HostArchiveTest::writesTheSameFilesInGerman()
{
    const QMap<QString, QByteArray> english = filesOfADesign();
    QVERIFY(english["design.json"].contains("\"major\": 3"));
    QCOMPARE(english["radar/radar.zip"], QByteArray("design.json\ntop.bin"));
    QCOMPARE(english["ZORV_Plugin/active_package_type"], QByteArray("7010 (Firmware)"));
    QCOMPARE(host->action("File.ArchiveDesign")->text(), QString("&Archive Design..."));

    QTranslator ofToolkit;
    QTranslator ofHost;
    QTranslator ofPlugin;
    // The toolkit's own buttons are in its catalogue, which the packages depend on.
    QVERIFY(ofToolkit.load("qtbase_de", Toolkit::translationsFolder()));
    QVERIFY(QCoreApplication::installTranslator(&ofToolkit));
    QVERIFY(ofHost.load(":/translations/pelk-host_de.qm"));
    QVERIFY(ofPlugin.load("ZORV_Plugin_de", ZORV_PLUGIN_FOLDER));
    QVERIFY(QCoreApplication::installTranslator(&ofHost));
    QVERIFY(QCoreApplication::installTranslator(&ofPlugin));
    QLocale::setDefault(QLocale(QLocale::German));
    host.reset();
    host.reset(new HostFixture);
    const QMap<QString, QByteArray> german = filesOfADesign();
    QLocale::setDefault(QLocale::c());
    QCOMPARE(german, english);
    QCOMPARE(host->action("File.ArchiveDesign")->text(), QString("Design &archivieren..."));
    const QDialogButtonBox buttons(QDialogButtonBox::Cancel | QDialogButtonBox::Close);
    QCOMPARE(buttons.button(QDialogButtonBox::Cancel)->text(), QString("Abbrechen"));
    QCOMPARE(buttons.button(QDialogButtonBox::Close)->text(), QString("Schließen"));
}

HOST_TEST(HostArchiveTest)

#include "HostArchiveTest.moc"
