#include "archive/ArchiveHost.h"

#include <OrvanticCore/DesignStructure.h>

#include <QDir>
#include <QtTest>

#include <functional>

using OrvanticCore::DesignStructure;

namespace {

const QString Folder = "/designs/radar/";

/// What one change of the form does to the path.
struct Step {
    const char* what;
    std::function<void(ArchiveHost&)> change;
    const char* name;
};

} // namespace

class ArchiveConfigNameTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        // The old one first: each gives back the settings of the one before it.
        host.reset();
        host.reset(new ArchiveHost);
    }

    void namesThePackageOfADesign();
    void followsEachField();
    void followsTheKeyboard();
    void writesNumbersWithAtLeastTwoDigits_data();
    void writesNumbersWithAtLeastTwoDigits();
    void hasACodeForEachDesignType_data();
    void hasACodeForEachDesignType();
    void switchesBetweenTheListsOfDesignTypes();
    void buildsOneNameForAChangeOfThePackageType();
    void buildsNamesWithoutCodesWhileNoPackageTypeIsSelected();
    void listsALabelThatItOnceLookedUp();
    void clampsVersionsAbove99_data();
    void clampsVersionsAbove99();
    void takesTheFolderFromTheStructure_data();
    void takesTheFolderFromTheStructure();
    void asksTheDialogForTheFormat();
    void asksForTheFormatOfTheFolderFirst();
    void staysSilentWithoutADialog();
    void staysSilentWithoutADesign();
    void forgetsADialogThatIsTakenBack();
    void buildsANameWhenADialogIsSet();
    void emitsANameThatIsAsBefore();
    void ignoresPathsOfTheDialog();
    void hidesAndLocksControlsOfTheDialog();
    void leavesControlsAloneWithoutADialog();
    void worksInAnyOrderOfCalls();
    void keepsADialogWithoutADesign();

private:
    QString lastPath() const { return host->interface()->destinationPathOnActivation(); }

    QScopedPointer<ArchiveHost> host;
};

void ArchiveConfigNameTest::namesThePackageOfADesign()
{
    host->attach();
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-01-V-01_00.zip");
}

void ArchiveConfigNameTest::followsEachField()
{
    host->attach();
    host->takePaths();
    const QList<Step> steps{
        {"project", [](ArchiveHost& h) { h.projectCm()->setText("HXCM"); },
         "7010-HXCM-ELEC-FW-01-V-01_00"},
        {"project with blanks", [](ArchiveHost& h) { h.projectCm()->setText(" hx cm "); },
         "7010- hx cm -ELEC-FW-01-V-01_00"},
        {"no project", [](ArchiveHost& h) { h.projectCm()->clear(); }, "7010--ELEC-FW-01-V-01_00"},
        {"design type", [](ArchiveHost& h) { h.designType()->setCurrentIndex(1); },
         "7010--FUNC-FW-01-V-01_00"},
        {"sequence", [](ArchiveHost& h) { h.sequence()->setValue(7); }, "7010--FUNC-FW-07-V-01_00"},
        {"major", [](ArchiveHost& h) { h.major()->setValue(0); }, "7010--FUNC-FW-07-V-00_00"},
        {"minor", [](ArchiveHost& h) { h.minor()->setValue(5); }, "7010--FUNC-FW-07-V-00_05"},
        {"package type", [](ArchiveHost& h) { h.packageType()->setCurrentIndex(1); },
         "7030--CMPL-SW-07-V-00_05"},
        {"design type of software", [](ArchiveHost& h) { h.designType()->setCurrentIndex(7); },
         "7030--SCRIPT-SW-07-V-00_05"},
        {"back", [](ArchiveHost& h) { h.packageType()->setCurrentIndex(0); },
         "7010--ELEC-FW-07-V-00_05"},
    };
    for (const Step& step : steps) {
        step.change(*host);
        const QString expected = Folder + step.name + ".zip";
        QVERIFY2(host->takePaths() == QStringList(expected), step.what);
        QCOMPARE(lastPath(), expected);
    }
}

void ArchiveConfigNameTest::followsTheKeyboard()
{
    host->attach();
    host->takePaths();
    QTest::keyClick(host->projectCm(), Qt::Key_End);
    QTest::keyClicks(host->projectCm(), "2");
    QTest::keyClick(host->sequence(), Qt::Key_Up);
    QTest::keyClick(host->designType(), Qt::Key_Down);
    QCOMPARE(host->takePaths(), QStringList({Folder + "7010-GNRL2-ELEC-FW-01-V-01_00.zip",
                                             Folder + "7010-GNRL2-ELEC-FW-02-V-01_00.zip",
                                             Folder + "7010-GNRL2-FUNC-FW-02-V-01_00.zip"}));
}

void ArchiveConfigNameTest::writesNumbersWithAtLeastTwoDigits_data()
{
    QTest::addColumn<int>("sequence");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("end");

    QTest::newRow("one digit") << 7 << 0 << 5 << "-07-V-00_05.zip";
    QTest::newRow("two digits") << 42 << 12 << 10 << "-42-V-12_10.zip";
    QTest::newRow("least") << 1 << 0 << 0 << "-01-V-00_00.zip";
    QTest::newRow("most") << 99 << 99 << 99 << "-99-V-99_99.zip";
    QTest::newRow("below the limits") << 0 << -1 << -1 << "-01-V-00_00.zip";
    QTest::newRow("above the limits") << 100 << 100 << 1000 << "-99-V-99_99.zip";
}

void ArchiveConfigNameTest::writesNumbersWithAtLeastTwoDigits()
{
    QFETCH(int, sequence);
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(QString, end);
    host->attach();
    host->sequence()->setValue(sequence);
    host->major()->setValue(major);
    host->minor()->setValue(minor);
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW" + end);
}

void ArchiveConfigNameTest::hasACodeForEachDesignType_data()
{
    QTest::addColumn<int>("packageType");
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("start");

    const auto row = [](const char* label, int packageType, int index, const char* start) {
        QTest::newRow(label) << packageType << index << QString(start);
    };
    row("Electrical Test Firmware", 0, 0, "7010-GNRL-ELEC-FW-");
    row("Functional Firmware", 0, 1, "7010-GNRL-FUNC-FW-");
    row("Null Firmware", 0, 2, "7010-GNRL-NULL-FW-");
    row("Compiler", 1, 0, "7030-GNRL-CMPL-SW-");
    row("Embedded Source Code", 1, 1, "7030-GNRL-ESC-SW-");
    row("General Software", 1, 2, "7030-GNRL-SOFT-SW-");
    row("Graphical User Interface", 1, 3, "7030-GNRL-GUI-SW-");
    row("Operating Systems", 1, 4, "7030-GNRL-OPER-SW-");
    row("Software Applications", 1, 5, "7030-GNRL-APPL-SW-");
    row("Software Development Tools", 1, 6, "7030-GNRL-TOOL-SW-");
    row("Software Scripts", 1, 7, "7030-GNRL-SCRIPT-SW-");
    row("Test Software Tools", 1, 8, "7030-GNRL-TEST-SW-");
}

void ArchiveConfigNameTest::hasACodeForEachDesignType()
{
    QFETCH(int, packageType);
    QFETCH(int, index);
    QFETCH(QString, start);
    host->attach();
    host->packageType()->setCurrentIndex(packageType);
    host->designType()->setCurrentIndex(index);
    QCOMPARE(host->designType()->currentText(), QString(QTest::currentDataTag()));
    QCOMPARE(lastPath(), Folder + start + "01-V-01_00.zip");
}

void ArchiveConfigNameTest::switchesBetweenTheListsOfDesignTypes()
{
    host->attach();
    const QStringList firmware{"Electrical Test Firmware", "Functional Firmware", "Null Firmware"};
    QCOMPARE(host->designTypes(), firmware);
    host->designType()->setCurrentIndex(2);
    host->packageType()->setCurrentIndex(1);
    QCOMPARE(
        host->designTypes(),
        QStringList({"Compiler", "Embedded Source Code", "General Software",
                     "Graphical User Interface", "Operating Systems", "Software Applications",
                     "Software Development Tools", "Software Scripts", "Test Software Tools"}));
    QCOMPARE(host->designType()->currentText(), QString("Compiler"));
    host->packageType()->setCurrentIndex(0);
    QCOMPARE(host->designTypes(), firmware);
    QCOMPARE(host->designType()->currentText(), QString("Electrical Test Firmware"));
    QVERIFY(!host->designType()->signalsBlocked());
}

void ArchiveConfigNameTest::buildsOneNameForAChangeOfThePackageType()
{
    host->attach();
    host->takePaths();
    host->packageType()->setCurrentIndex(1);
    QCOMPARE(host->takePaths(), QStringList(Folder + "7030-GNRL-CMPL-SW-01-V-01_00.zip"));
}

void ArchiveConfigNameTest::buildsNamesWithoutCodesWhileNoPackageTypeIsSelected()
{
    host->attach();
    host->packageType()->setCurrentIndex(-1);
    QCOMPARE(lastPath(), Folder + "-GNRL---01-V-01_00.zip");
    QCOMPARE(host->designTypes().size(), 3);
    host->packageType()->setCurrentIndex(1);
    QCOMPARE(lastPath(), Folder + "7030-GNRL-CMPL-SW-01-V-01_00.zip");
}

void ArchiveConfigNameTest::listsALabelThatItOnceLookedUp()
{
    host->attach();
    host->designType()->addItem("Bootloader");
    host->designType()->setCurrentText("Bootloader");
    QCOMPARE(lastPath(), Folder + "7010-GNRL--FW-01-V-01_00.zip");
    host->packageType()->setCurrentIndex(1);
    QCOMPARE(host->designTypes().size(), 9);
    host->packageType()->setCurrentIndex(0);
    QCOMPARE(host->designTypes(), QStringList({"Bootloader", "Electrical Test Firmware",
                                               "Functional Firmware", "Null Firmware"}));
    QCOMPARE(lastPath(), Folder + "7010-GNRL--FW-01-V-01_00.zip");
}

void ArchiveConfigNameTest::clampsVersionsAbove99_data()
{
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");
    QTest::addColumn<QString>("end");

    QTest::newRow("neither") << 99 << 99 << "99_99.zip";
    QTest::newRow("major") << 100 << 7 << "99_07.zip";
    QTest::newRow("minor") << 3 << 250 << "03_99.zip";
    QTest::newRow("both") << 2026 << 1121 << "99_99.zip";
    QTest::newRow("negative") << -1 << -2 << "00_00.zip";
}

void ArchiveConfigNameTest::clampsVersionsAbove99()
{
    QFETCH(int, major);
    QFETCH(int, minor);
    QFETCH(QString, end);
    host->design().setVersion(major, minor);
    host->attach();
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-01-V-" + end);
    QCOMPARE(host->major()->value(), qBound(0, major, 99));
    QCOMPARE(host->minor()->value(), qBound(0, minor, 99));
}

void ArchiveConfigNameTest::takesTheFolderFromTheStructure_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("folder");

    const QString archives = QString("/designs/radar") + QDir::separator() + "archives/";
    QTest::newRow("maps the pattern") << "*.zip" << archives;
    QTest::newRow("maps all") << "*" << archives;
    QTest::newRow("maps other files") << "*.bin" << Folder;
}

void ArchiveConfigNameTest::takesTheFolderFromTheStructure()
{
    QFETCH(QString, pattern);
    QFETCH(QString, folder);
    auto* const structure = new DesignStructure;
    structure->addFileAssociation(pattern, "Packages", "archives");
    host->design().setStructure(structure);
    host->attach();
    QCOMPARE(lastPath(), folder + "7010-GNRL-ELEC-FW-01-V-01_00.zip");
}

void ArchiveConfigNameTest::asksTheDialogForTheFormat()
{
    auto* const structure = new DesignStructure;
    structure->addFileAssociation("*.tar.gz", "Packages", "tarballs");
    host->design().setStructure(structure);
    host->attach();
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-01-V-01_00.zip");
    host->dialog().extension = "tar.gz";
    host->sequence()->setValue(2);
    QCOMPARE(lastPath(), QString("/designs/radar") + QDir::separator() +
                             "tarballs/7010-GNRL-ELEC-FW-02-V-01_00.tar.gz");
}

void ArchiveConfigNameTest::asksForTheFormatOfTheFolderFirst()
{
    /// Answers otherwise each time.
    class ChangingDialog : public NotingDialog {
    public:
        QString currentExtension() const override { return ++m_times % 2 == 1 ? "zip" : "tar"; }

    private:
        mutable int m_times = 0;
    };

    auto* const structure = new DesignStructure;
    structure->addFileAssociation("*.zip", "Packages", "zips");
    host->design().setStructure(structure);
    ChangingDialog dialog;
    dialog.archivedDesign = &host->design();
    host->interface()->setArchiveDialogWidget(&dialog);
    QCOMPARE(lastPath(), QString("/designs/radar") + QDir::separator() +
                             "zips/7010-GNRL-ELEC-FW-01-V-01_00.tar");
}

void ArchiveConfigNameTest::staysSilentWithoutADialog()
{
    host->projectCm()->setText("HXCM");
    host->packageType()->setCurrentIndex(1);
    host->designType()->setCurrentIndex(1);
    host->sequence()->setValue(2);
    host->major()->setValue(2);
    host->minor()->setValue(2);
    host->extension()->updatePackageName();
    host->interface()->setArchiveDialogWidget(nullptr);
    QVERIFY(host->takePaths().isEmpty());
    QVERIFY(lastPath().isNull());
}

void ArchiveConfigNameTest::staysSilentWithoutADesign()
{
    host->dialog().archivedDesign = nullptr;
    host->attach();
    host->sequence()->setValue(2);
    QVERIFY(host->takePaths().isEmpty());
    QVERIFY(lastPath().isNull());
    QCOMPARE(host->major()->value(), 0);
}

void ArchiveConfigNameTest::forgetsADialogThatIsTakenBack()
{
    host->attach();
    host->takePaths();
    const QString last = lastPath();
    host->interface()->setArchiveDialogWidget(nullptr);
    host->sequence()->setValue(9);
    host->interface()->updateArchiveDialogWidget();
    QVERIFY(host->takePaths().isEmpty());
    QCOMPARE(lastPath(), last);
    QVERIFY(host->dialog().calls.isEmpty());
    host->attach();
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-09-V-01_00.zip");
}

void ArchiveConfigNameTest::buildsANameWhenADialogIsSet()
{
    host->design().setVersion(2, 3);
    host->attach();
    QCOMPARE(host->takePaths(), QStringList({Folder + "7010-GNRL-ELEC-FW-01-V-02_00.zip",
                                             Folder + "7010-GNRL-ELEC-FW-01-V-02_03.zip",
                                             Folder + "7010-GNRL-ELEC-FW-01-V-02_03.zip"}));
}

void ArchiveConfigNameTest::emitsANameThatIsAsBefore()
{
    host->attach();
    host->takePaths();
    host->extension()->updatePackageName();
    host->extension()->updatePackageName();
    QCOMPARE(host->takePaths().size(), 2);
}

void ArchiveConfigNameTest::ignoresPathsOfTheDialog()
{
    host->attach();
    host->takePaths();
    host->interface()->handleDestinationPathChanged("/elsewhere/package.zip");
    QVERIFY(host->takePaths().isEmpty());
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-01-V-01_00.zip");
}

void ArchiveConfigNameTest::hidesAndLocksControlsOfTheDialog()
{
    host->attach();
    QVERIFY(host->dialog().calls.isEmpty());
    host->interface()->updateArchiveDialogWidget();
    QCOMPARE(host->dialog().calls,
             QStringList({"append version: false", "read-only: true", "included items: false"}));
}

void ArchiveConfigNameTest::leavesControlsAloneWithoutADialog()
{
    host->interface()->updateArchiveDialogWidget();
    QVERIFY(host->dialog().calls.isEmpty());
    QVERIFY(host->takePaths().isEmpty());
}

void ArchiveConfigNameTest::worksInAnyOrderOfCalls()
{
    auto* const extension = host->interface();
    QVERIFY(extension->destinationPathOnActivation().isNull());
    QVERIFY(extension->extensionWidget());
    extension->updateArchiveDialogWidget();
    extension->handleDestinationPathChanged("/elsewhere/package.zip");
    extension->setArchiveDialogWidget(nullptr);
    host->attach();
    host->attach();
    extension->updateArchiveDialogWidget();
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-01-V-01_00.zip");
    QCOMPARE(host->dialog().calls.size(), 3);
}

void ArchiveConfigNameTest::keepsADialogWithoutADesign()
{
    host->dialog().archivedDesign = nullptr;
    host->attach();
    host->interface()->updateArchiveDialogWidget();
    QCOMPARE(host->dialog().calls.size(), 3);
    host->dialog().archivedDesign = &host->design();
    host->sequence()->setValue(2);
    QCOMPARE(lastPath(), Folder + "7010-GNRL-ELEC-FW-02-V-00_00.zip");
}

QTEST_MAIN(ArchiveConfigNameTest)
#include "ArchiveConfigNameTest.moc"
