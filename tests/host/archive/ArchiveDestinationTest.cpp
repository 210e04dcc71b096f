#include "host/archive/ArchivedDesign.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchiveDestination.h"

#include <OrvanticCore/DesignStructure.h>

#include <QtTest>

using OrvanticCore::DesignStructure;

/// Where archives of a design go; what belongs to a design is tried in the dialog.
class ArchiveDestinationTest : public QObject {
    Q_OBJECT

private slots:
    void proposesTheDesignsNameInItsFolder();
    void followsTheStructureToTheFolderOfTheFormat_data();
    void followsTheStructureToTheFolderOfTheFormat();
    void keepsTheFolderWithoutAStructure();
    void leavesPathsAloneWithoutADesign();
};

namespace {

DesignStructure* folders()
{
    auto* const structure = new DesignStructure;
    structure->addFileAssociation("*.zip", "Archives", "archives");
    structure->addFileAssociation("*.tar.gz", "Archives", "archives/tar");
    return structure;
}

} // namespace

void ArchiveDestinationTest::proposesTheDesignsNameInItsFolder()
{
    ArchivedDesign bench;
    const ArchiveDestination destination(&bench.design(), QString());
    QCOMPARE(destination.proposal(ArchiveFormat::TarGz), bench.path("radar.tar.gz"));
    bench.design().setStructure(folders());
    QCOMPARE(destination.proposal(ArchiveFormat::TarGz), bench.path("archives/tar/radar.tar.gz"));
}

void ArchiveDestinationTest::followsTheStructureToTheFolderOfTheFormat_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("asTarGz");

    QTest::newRow("in the folder of the format") << "archives/a.b.zip"
                                                 << "archives/tar/a.b.tar.gz";
    QTest::newRow("in capitals") << "archives/A.ZIP"
                                 << "archives/tar/A.tar.gz";
    QTest::newRow("by another path") << "source/../archives/a.zip"
                                     << "archives/tar/a.tar.gz";
    QTest::newRow("of this format already") << "archives/a.tar.gz"
                                            << "archives/a.tar.gz";
    QTest::newRow("in a folder that the user chose") << "mine/a.zip"
                                                     << "mine/a.tar.gz";
    QTest::newRow("below the folder of the format") << "archives/mine/a.zip"
                                                    << "archives/mine/a.tar.gz";
    QTest::newRow("with an extension of its own") << "archives/a.pkg"
                                                  << "archives/a.pkg";
}

void ArchiveDestinationTest::followsTheStructureToTheFolderOfTheFormat()
{
    QFETCH(QString, path);
    QFETCH(QString, asTarGz);
    ArchivedDesign bench;
    bench.design().setStructure(folders());
    const ArchiveDestination destination(&bench.design(), QString());
    QCOMPARE(destination.withFormat(bench.path(path), ArchiveFormat::TarGz), bench.path(asTarGz));
    // Seen from the design's folder it is the same file.
    QCOMPARE(destination.filePath(destination.withFormat(path, ArchiveFormat::TarGz)),
             bench.path(asTarGz));
}

void ArchiveDestinationTest::keepsTheFolderWithoutAStructure()
{
    ArchivedDesign bench;
    const ArchiveDestination destination(&bench.design(), QString());
    QCOMPARE(destination.withFormat("a.zip", ArchiveFormat::TarGz), QString("a.tar.gz"));
    QCOMPARE(destination.withFormat(bench.path("a.zip"), ArchiveFormat::TarGz),
             bench.path("a.tar.gz"));
    QCOMPARE(destination.filePath("../a.zip"), bench.outside("a.zip"));
}

void ArchiveDestinationTest::leavesPathsAloneWithoutADesign()
{
    const ArchiveDestination destination(nullptr, "design.json");
    QCOMPARE(destination.proposal(ArchiveFormat::Zip), QString());
    QCOMPARE(destination.withFormat("a.zip", ArchiveFormat::TarGz), QString("a.tar.gz"));
    QCOMPARE(destination.withVersion("a.zip", true), QString("a.zip"));
    QCOMPARE(destination.filePath("a.zip"), QString("a.zip"));
    QVERIFY(!destination.isOfDesign("design.json"));
}

ZORV_TEST(ArchiveDestinationTest)
#include "ArchiveDestinationTest.moc"
