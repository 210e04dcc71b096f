#include "host/app/OpenDesigns.h"

#include "host/app/DesignStorage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using OrvanticCore::IDesign;

class OpenDesignsTest : public QObject {
    Q_OBJECT

private slots:
    void makesADesignWithAPlaceForBitStreams();
    void refusesToMakeADesignOverAnother();
    void refusesToMakeADesignWhereThereIsAFile();
    void opensADesignOnlyOnce();
    void listsItsDesignsInTheManager();
    void opensNothingThatIsDamaged();
};

void OpenDesignsTest::makesADesignWithAPlaceForBitStreams()
{
    const QTemporaryDir folder;
    OpenDesigns designs;
    QSignalSpy opened(&designs, &OpenDesigns::opened);
    QString error;
    const Design* const design =
        designs.create(folder.filePath("new/radar"), "Firmware Design", 2, 3, &error);
    QVERIFY2(design, qPrintable(error));
    QCOMPARE(opened.count(), 1);
    QCOMPARE(design->versionString("."), QString("2.3"));
    QVERIFY(!design->isModified());
    const QString node = design->structure()->mapFileNameToAssociation("*.bit")->designNode();
    QVERIFY(design->structure()->designNodeWithName(node, true));
    QVERIFY(DesignStorage::hasDescription(folder.filePath("new/radar")));
}

void OpenDesignsTest::refusesToMakeADesignOverAnother()
{
    const QTemporaryDir folder;
    QFile file(DesignStorage::descriptionPath(folder.path()));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("precious") == 8 && file.flush());
    OpenDesigns designs;
    QString error;
    QVERIFY(!designs.create(folder.path(), "Firmware Design", 1, 0, &error));
    QCOMPARE(error, "There is a design in " + folder.path() + " already.");
    QCOMPARE(file.size(), qint64(8));
}

void OpenDesignsTest::refusesToMakeADesignWhereThereIsAFile()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    OpenDesigns designs;
    QString error;
    QVERIFY(!designs.create(folder.filePath("file"), "Firmware Design", 1, 0, &error));
    QCOMPARE(error, "Cannot make the folder " + folder.filePath("file") + ".");
    QVERIFY(designs.designs().isEmpty());
}

void OpenDesignsTest::opensADesignOnlyOnce()
{
    const QTemporaryDir folder;
    OpenDesigns designs;
    QString error;
    Design* const design = designs.create(folder.path(), "Firmware Design", 1, 0, &error);
    QCOMPARE(designs.open(folder.path() + "/.", &error), design);
    QCOMPARE(designs.designs().count(), 1);
    QVERIFY(!designs.designIn(folder.filePath("missing")));
}

void OpenDesignsTest::listsItsDesignsInTheManager()
{
    const QTemporaryDir folder;
    QString error;
    {
        OpenDesigns designs;
        Design* const first = designs.create(folder.filePath("a"), "Firmware Design", 1, 0, &error);
        Design* const second =
            designs.create(folder.filePath("b"), "Software Design", 1, 0, &error);
        QCOMPARE(DesignManager::instance()->designs(), QList<IDesign*>() << first << second);
        QSignalSpy closing(&designs, &OpenDesigns::aboutToClose);
        designs.close(first);
        QCOMPARE(closing.count(), 1);
        QCOMPARE(DesignManager::instance()->designs(), QList<IDesign*>() << second);
    }
    QVERIFY(DesignManager::instance()->designs().isEmpty());
}

void OpenDesignsTest::opensNothingThatIsDamaged()
{
    const QTemporaryDir folder;
    OpenDesigns designs;
    QString error;
    QVERIFY(!designs.open(folder.path(), &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(designs.designs().isEmpty());
}

QTEST_GUILESS_MAIN(OpenDesignsTest)
#include "OpenDesignsTest.moc"
