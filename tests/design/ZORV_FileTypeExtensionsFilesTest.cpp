#include "design/DesignFixture.h"

#include "generator/PelkFcfGenerator.h"

#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QPushButton>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignProperty;
using OrvanticCore::DesignStructure;

namespace {

QStringList propertiesOf(const Design* design)
{
    QStringList properties;
    for (const DesignProperty& property : design->designProperties())
        properties << property.category.toString() + "/" + property.name + "=" +
                          property.value.toString();
    return properties;
}

const QStringList TargetOfTheWindow{
    "Pelk Radar Signal Processor/ZORV Pelk Module=GPM",
    "Pelk Radar Signal Processor/ZORV Pelk Device=Processing_FPGA_3",
    "Pelk Radar Signal Processor/ZORV Pelk Config Number=9"};

/// The generator window opened on a new "top.bin", with a target of its own.
PelkFcfGenerator* openWindow(DesignFixture* fixture)
{
    fixture->actionFor(fixture->addFile("top.bin"))->trigger();
    PelkFcfGenerator* const window = DesignFixture::window();
    if (!window)
        qFatal("no generator window opens");
    window->setModule("GPM");
    window->setDevice("Processing_FPGA_3");
    window->setConfigNum(9);
    return window;
}

} // namespace

class ZORV_FileTypeExtensionsFilesTest : public QObject {
    Q_OBJECT

private slots:
    void takesWhatTheWindowGeneratesIntoTheDesign();
    void addsAndUpdatesInTheOrderOfTheList();
    void refusedFilesAreLoggedAndSkipped();
    void aDesignLockedMeanwhileStaysAsItIs();
    void anEmptyListDoesNothing();
    void twoDesignsAreLeftAlone();
    void filesGoUnderTheNodeForUnassignedOnes();
    void aDesignWithoutTheNodeIsLeftAlone_data();
    void aDesignWithoutTheNodeIsLeftAlone();
    void changesAreAnnouncedOnceAfterEventsHaveRun();
    void aDesignClosedByAnEventIsLeftAlone();
    void aFileTakenOutByAnEventIsNotRefreshed();
    void propertiesStayWithoutAWindow();
    void theTargetIsRecordedWhenEveryFileIsRefused();
};

void ZORV_FileTypeExtensionsFilesTest::takesWhatTheWindowGeneratesIntoTheDesign()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    QTest::mouseClick(window->findChild<QPushButton*>("GenerateButton"), Qt::LeftButton);
    QTRY_VERIFY(!fixture.window());

    QCOMPARE(fixture.design()->files().count(), 3);
    for (const char* name : {"top.fcf", "top.txt"}) {
        const DesignFile* const file = fixture.design()->fileAt(name);
        if (!file)
            QFAIL(name);
        QVERIFY(file->exists());
        QVERIFY(file->isGenerated());
        QCOMPARE(file->versionAssociation(), QString("2.7"));
        QCOMPARE(file->customNode(), QString("Bit-stream Files"));
    }
    QVERIFY(!fixture.design()->fileAt("top.bin")->isGenerated());
    QCOMPARE(propertiesOf(fixture.design()), TargetOfTheWindow);
    QCOMPARE(fixture.design()->designProperty("ZORV Pelk Module").type(), QVariant::String);
    QCOMPARE(fixture.design()->designProperty("ZORV Pelk Device").type(), QVariant::String);
    QCOMPARE(fixture.design()->designProperty("ZORV Pelk Config Number").type(), QVariant::Int);
    QCOMPARE(fixture.log().mid(0, 2), QStringList()
                                          << "2:Successfully added generated file \"" +
                                                 fixture.path("top.fcf") + "\" to design."
                                          << "2:Successfully added generated file \"" +
                                                 fixture.path("top.txt") + "\" to design.");
}

void ZORV_FileTypeExtensionsFilesTest::addsAndUpdatesInTheOrderOfTheList()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    DesignFile* const present = fixture.addFile("top.txt");
    present->setVersionAssociation("1.0");
    present->setCustomNode("Elsewhere");
    QSignalSpy refreshed(fixture.design(), &Design::filesRefreshed);
    emit window->newFilesCreated({fixture.writeFile("top.fcf"), present->filePath()});

    QCOMPARE(fixture.log(), QStringList() << "2:Successfully added generated file \"" +
                                                 fixture.path("top.fcf") + "\" to design."
                                          << "2:Successfully updated generated file \"" +
                                                 fixture.path("top.txt") + "\" in design.");
    QVERIFY(present->isGenerated());
    QCOMPARE(present->versionAssociation(), QString("2.7"));
    QCOMPARE(present->customNode(), QString("Bit-stream Files"));
    QCOMPARE(refreshed.count(), 1);
    QCOMPARE(refreshed.first().first().value<QList<DesignFile*>>(),
             QList<DesignFile*>() << fixture.design()->fileAt("top.fcf") << present);
}

void ZORV_FileTypeExtensionsFilesTest::refusedFilesAreLoggedAndSkipped()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    QSignalSpy refreshed(fixture.design(), &Design::filesRefreshed);
    emit window->newFilesCreated({fixture.path("100%2.fcf"), fixture.writeFile("top.txt")});

    QCOMPARE(fixture.log(), QStringList()
                                << "8:Failed to add generated file \"" + fixture.path("100%2.fcf") +
                                       "\" to design. Error: There is no such file."
                                << "2:Successfully added generated file \"" +
                                       fixture.path("top.txt") + "\" to design.");
    QCOMPARE(fixture.design()->files().count(), 2);
    QCOMPARE(propertiesOf(fixture.design()), TargetOfTheWindow);
    QCOMPARE(refreshed.first().first().value<QList<DesignFile*>>(),
             QList<DesignFile*>() << fixture.design()->fileAt("top.txt"));
}

void ZORV_FileTypeExtensionsFilesTest::aDesignLockedMeanwhileStaysAsItIs()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    DesignFile* const present = fixture.addFile("top.txt");
    present->setVersionAssociation("1.0");
    fixture.design()->setLocked(true);
    fixture.design()->setModified(false);
    emit window->newFilesCreated({fixture.writeFile("top.fcf"), present->filePath()});

    QVERIFY(!fixture.design()->fileAt("top.fcf"));
    QVERIFY(!present->isGenerated());
    QCOMPARE(present->versionAssociation(), QString("1.0"));
    QVERIFY(present->customNode().isEmpty());
    QVERIFY(propertiesOf(fixture.design()).isEmpty());
    QVERIFY(!fixture.design()->isModified());
    QCOMPARE(fixture.log().first(), "8:Failed to add generated file \"" + fixture.path("top.fcf") +
                                        "\" to design. Error: The design is locked.");
    // From the design: three things about the file, and the three properties.
    QCOMPARE(fixture.log().filter("4:Cannot set ").count(), 6);
    QCOMPARE(fixture.log().filter("the design is locked.").count(), 6);
}

void ZORV_FileTypeExtensionsFilesTest::anEmptyListDoesNothing()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    fixture.design()->setModified(false);
    QSignalSpy refreshed(fixture.design(), &Design::filesRefreshed);
    emit window->newFilesCreated(QStringList());
    QVERIFY(propertiesOf(fixture.design()).isEmpty());
    QVERIFY(!fixture.design()->isModified());
    QCOMPARE(refreshed.count(), 0);
    QVERIFY(fixture.log().isEmpty());
}

void ZORV_FileTypeExtensionsFilesTest::twoDesignsAreLeftAlone()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    Design* const second = fixture.openSecondDesign();
    emit window->newFilesCreated({fixture.writeFile("top.fcf")});
    QVERIFY(!fixture.design()->fileAt("top.fcf"));
    QVERIFY(second->files().isEmpty());
    QVERIFY(propertiesOf(fixture.design()).isEmpty());
    QVERIFY(propertiesOf(second).isEmpty());
    QVERIFY(fixture.log().isEmpty());
}

void ZORV_FileTypeExtensionsFilesTest::filesGoUnderTheNodeForUnassignedOnes()
{
    DesignFixture fixture;
    auto* const structure = new DesignStructure;
    structure->rootNode()->addNode("Firmware")->addNode("Other Files");
    structure->addFileAssociation("*.bin", "Firmware");
    structure->setUnassignedFileAssociationsNode("Other Files");
    fixture.design()->setStructure(structure);
    emit openWindow(&fixture)->newFilesCreated({fixture.writeFile("top.fcf")});
    QCOMPARE(fixture.design()->fileAt("top.fcf")->customNode(), QString("Other Files"));
}

void ZORV_FileTypeExtensionsFilesTest::aDesignWithoutTheNodeIsLeftAlone_data()
{
    QTest::addColumn<bool>("structured");
    QTest::addColumn<QString>("associated");
    QTest::addColumn<QString>("unassigned");

    QTest::newRow("no structure") << false << ""
                                  << "";
    QTest::newRow("no rule and no node for unassigned files") << true << ""
                                                              << "";
    QTest::newRow("no rule and an unknown node for unassigned files") << true << ""
                                                                      << "Nowhere";
    QTest::newRow("a rule for an unknown node") << true << "Nowhere"
                                                << "Other Files";
}

void ZORV_FileTypeExtensionsFilesTest::aDesignWithoutTheNodeIsLeftAlone()
{
    QFETCH(bool, structured);
    QFETCH(QString, associated);
    QFETCH(QString, unassigned);
    DesignFixture fixture;
    DesignStructure* const structure = structured ? new DesignStructure : nullptr;
    if (structure) {
        structure->rootNode()->addNode("Other Files");
        structure->setUnassignedFileAssociationsNode(unassigned);
        if (!associated.isEmpty())
            structure->addFileAssociation("*.bit", associated);
    }
    fixture.design()->setStructure(structure);
    PelkFcfGenerator* const window = openWindow(&fixture);
    QSignalSpy refreshed(fixture.design(), &Design::filesRefreshed);
    bool eventsHaveRun = false;
    QTimer::singleShot(0, fixture.design(), [&eventsHaveRun] { eventsHaveRun = true; });
    emit window->newFilesCreated({fixture.writeFile("top.fcf")});

    QVERIFY(!fixture.design()->fileAt("top.fcf"));
    QVERIFY(propertiesOf(fixture.design()).isEmpty());
    QVERIFY(fixture.log().isEmpty());
    QVERIFY(eventsHaveRun);
    QCOMPARE(refreshed.count(), 1);
    QVERIFY(refreshed.first().first().value<QList<DesignFile*>>().isEmpty());
    QVERIFY(!fixture.design()->tree()->isProcessingCycleActive());
}

void ZORV_FileTypeExtensionsFilesTest::changesAreAnnouncedOnceAfterEventsHaveRun()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    Design* const design = fixture.design();
    QSignalSpy changed(design, SIGNAL(filesChanged()));
    int handledBeforeEvents = -1;
    int announcedBeforeEvents = -1;
    bool active = false;
    QTimer::singleShot(0, design, [&] {
        handledBeforeEvents = design->files().count();
        announcedBeforeEvents = changed.count();
        active = design->tree()->isProcessingCycleActive();
    });
    emit window->newFilesCreated({fixture.writeFile("top.fcf"), fixture.writeFile("top.txt")});
    QCOMPARE(handledBeforeEvents, 3);
    QCOMPARE(announcedBeforeEvents, 0);
    QVERIFY(active);
    QCOMPARE(changed.count(), 1);
    QVERIFY(!design->tree()->isProcessingCycleActive());
}

void ZORV_FileTypeExtensionsFilesTest::aDesignClosedByAnEventIsLeftAlone()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    const QPointer<Design> design = fixture.design();
    QTimer::singleShot(0, &fixture, [&fixture] { fixture.closeDesign(); });
    emit window->newFilesCreated({fixture.writeFile("top.fcf")});
    QVERIFY(!design);
}

void ZORV_FileTypeExtensionsFilesTest::aFileTakenOutByAnEventIsNotRefreshed()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    Design* const design = fixture.design();
    QList<DesignFile*> refreshed;
    connect(design, &Design::filesRefreshed, this,
            [&refreshed](const QList<DesignFile*>& files) { refreshed = files; });
    QTimer::singleShot(0, design, [design] { design->removeFile(design->fileAt("top.fcf")); });
    emit window->newFilesCreated({fixture.writeFile("top.fcf"), fixture.writeFile("top.txt")});
    QVERIFY(!design->fileAt("top.fcf"));
    QCOMPARE(refreshed, QList<DesignFile*>{design->fileAt("top.txt")});
}

void ZORV_FileTypeExtensionsFilesTest::propertiesStayWithoutAWindow()
{
    DesignFixture fixture;
    fixture.extensions()->handleNewFilesCreated({fixture.writeFile("top.fcf")});
    QVERIFY(fixture.design()->fileAt("top.fcf"));
    QVERIFY(propertiesOf(fixture.design()).isEmpty());
}

void ZORV_FileTypeExtensionsFilesTest::theTargetIsRecordedWhenEveryFileIsRefused()
{
    DesignFixture fixture;
    PelkFcfGenerator* const window = openWindow(&fixture);
    emit window->newFilesCreated({fixture.path("missing.fcf"), fixture.path("missing.txt")});
    QCOMPARE(fixture.log().filter("8:Failed to add generated file ").count(), 2);
    QCOMPARE(propertiesOf(fixture.design()), TargetOfTheWindow);
}

QTEST_MAIN(ZORV_FileTypeExtensionsFilesTest)
#include "ZORV_FileTypeExtensionsFilesTest.moc"
