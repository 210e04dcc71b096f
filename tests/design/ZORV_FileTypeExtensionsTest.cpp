#include "design/DesignFixture.h"
#include "support/TestProgram.h"

#include "generator/PelkFcfGenerator.h"
#include "support/EventCount.h"
#include "support/ModalAnswer.h"

#include <QtilitiesCoreGui/TreeNode.h>

#include <QTimer>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignProperty;

namespace {

QStringList propertiesOf(const Design* design)
{
    QStringList properties;
    for (const DesignProperty& property : design->designProperties())
        properties << property.category.toString() + "/" + property.name + "=" +
                          property.value.toString();
    return properties;
}

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

/// What the host's own design and the desktop add to what the model compares.
class ZORV_FileTypeExtensionsTest : public QObject {
    Q_OBJECT

private slots:
    void aDesignLockedMeanwhileStaysAsItIs();
    void changesAreAnnouncedOnceAfterEventsHaveRun();
    void isBroughtToTheFront_data();
    void isBroughtToTheFront();
};

void ZORV_FileTypeExtensionsTest::aDesignLockedMeanwhileStaysAsItIs()
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

void ZORV_FileTypeExtensionsTest::changesAreAnnouncedOnceAfterEventsHaveRun()
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

void ZORV_FileTypeExtensionsTest::isBroughtToTheFront_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("by Create FCF") << "top.bin";
    QTest::newRow("by Open FCF") << "top.txt";
}

void ZORV_FileTypeExtensionsTest::isBroughtToTheFront()
{
    QFETCH(QString, file);
    DesignFixture fixture;
    ModalAnswer dialogs;
    dialogs.click(QMessageBox::Ok);
    dialogs.click(QMessageBox::Ok);
    QAction* const action = fixture.actionFor(fixture.addFile(file));
    action->trigger();
    PelkFcfGenerator* const window = fixture.window();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QWidget host;
    host.show();
    host.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&host));

    const EventCount raised(window, QEvent::ZOrderChange);
    action->trigger();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(raised.count(), 1);
}

ZORV_WINDOW_TEST(ZORV_FileTypeExtensionsTest)
#include "ZORV_FileTypeExtensionsTest.moc"
