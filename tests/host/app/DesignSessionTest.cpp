#include "host/app/DesignSession.h"
#include "support/TestProgram.h"

#include "host/app/DesignStorage.h"
#include "host/HostErrorOf.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using OrvanticCore::IDesign;

class DesignSessionTest : public QObject {
    Q_OBJECT

private slots:
    void makesADesignWithAPlaceForBitStreams();
    void refusesToMakeADesignOverAnother();
    void refusesToMakeADesignWhereThereIsAFile();
    void opensADesignOnlyOnce();
    void listsItsDesignsInTheManager();
    void opensNothingThatIsDamaged();
};

void DesignSessionTest::makesADesignWithAPlaceForBitStreams()
{
    const QTemporaryDir folder;
    DesignSession session(nullptr);
    QSignalSpy opened(&session, &DesignSession::opened);
    const Design* const design =
        session.create(folder.filePath("new/radar"), "Firmware Design", 2, 3);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(design->versionString("."), QString("2.3"));
    QVERIFY(!design->isModified());
    const QString node = design->structure()->mapFileNameToAssociation("*.bit")->designNode();
    QVERIFY(design->structure()->designNodeWithName(node, true));
    QVERIFY(DesignStorage::hasDescription(folder.filePath("new/radar")));
}

void DesignSessionTest::refusesToMakeADesignOverAnother()
{
    const QTemporaryDir folder;
    QFile file(DesignStorage::descriptionPath(folder.path()));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("precious") == 8 && file.flush());
    DesignSession session(nullptr);
    const QString error =
        hostErrorOf([&] { session.create(folder.path(), "Firmware Design", 1, 0); });
    QCOMPARE(error, "There is a design in " + folder.path() + " already.");
    QCOMPARE(file.size(), qint64(8));
}

void DesignSessionTest::refusesToMakeADesignWhereThereIsAFile()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    DesignSession session(nullptr);
    const QString error =
        hostErrorOf([&] { session.create(folder.filePath("file"), "Firmware Design", 1, 0); });
    QCOMPARE(error, "Cannot make the folder " + folder.filePath("file") + ".");
    QVERIFY(DesignManager::instance()->designs().isEmpty());
}

void DesignSessionTest::opensADesignOnlyOnce()
{
    const QTemporaryDir folder;
    DesignSession session(nullptr);
    Design* const design = session.create(folder.path(), "Firmware Design", 1, 0);
    QCOMPARE(session.load(folder.path() + "/."), design);
    QCOMPARE(DesignManager::instance()->designs().count(), 1);
}

void DesignSessionTest::listsItsDesignsInTheManager()
{
    const QTemporaryDir folder;
    {
        DesignSession session(nullptr);
        Design* const first = session.create(folder.filePath("a"), "Firmware Design", 1, 0);
        Design* const second = session.create(folder.filePath("b"), "Software Design", 1, 0);
        QCOMPARE(DesignManager::instance()->designs(), QList<IDesign*>() << first << second);
        QSignalSpy closing(&session, &DesignSession::aboutToClose);
        session.close(first);
        QCOMPARE(closing.count(), 1);
        QCOMPARE(DesignManager::instance()->designs(), QList<IDesign*>() << second);
    }
    QVERIFY(DesignManager::instance()->designs().isEmpty());
}

void DesignSessionTest::opensNothingThatIsDamaged()
{
    const QTemporaryDir folder;
    DesignSession session(nullptr);
    QVERIFY(!hostErrorOf([&] { session.load(folder.path()); }).isEmpty());
    QVERIFY(DesignManager::instance()->designs().isEmpty());
}

ZORV_TEST(DesignSessionTest)
#include "DesignSessionTest.moc"
