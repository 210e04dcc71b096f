#include "host/app/DesignStorage.h"
#include "host/HostErrorOf.h"
#include "support/FullDisk.h"
#include "support/TestFile.h"
#include "support/TestProgram.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QTemporaryDir>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignStructure;
using Qtilities::Core::QtilitiesCategory;

class DesignStorageTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void bringsADesignBack();
    void writesTheSameTextAgain();
    void writesPathsRelativeToTheDesign();
    void readsTheLeastThatThereMustBe();
    void refusesADamagedDescription_data();
    void refusesADamagedDescription();
    void refusesAFolderWithoutADescription();
    void keepsTheOldDescriptionWhenItCannotBeReplaced();
    void keepsTheOldDescriptionWhenTheDiskIsFull();
    void replacesADescriptionAsAWhole();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }
    QByteArray description() const;
    void writeDescription(const QByteArray& bytes) const;
    std::unique_ptr<Design> makeDesign() const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void DesignStorageTest::init() { m_folder.reset(new QTemporaryDir); }

QByteArray DesignStorageTest::description() const
{
    return TestFile::readIfPossible(path("design.json"));
}

void DesignStorageTest::writeDescription(const QByteArray& bytes) const
{
    TestFile::write(path("design.json"), bytes);
}

std::unique_ptr<Design> DesignStorageTest::makeDesign() const
{
    auto design = std::make_unique<Design>(m_folder->path(), "Firmware Design");
    design->setVersion(12, 345);
    design->setVersionChanges("First\n\"Second\" \xc3\xa9");
    DesignFile* const image = design->restoreFile("top.fcf");
    image->setIsGenerated(true);
    image->setVersionAssociation("12.344");
    image->setCustomNode("Bit-stream Files");
    design->restoreFile("src/top.vhd");
    design->restoreFile("/elsewhere/shared.vhd");
    design->restoreFolder("constraints");
    design->setDesignProperty("Text", "value", QtilitiesCategory("Outer::Inner", "::"));
    design->setDesignProperty("Number", -7, QtilitiesCategory());
    design->setDesignProperty("Flag", true, QtilitiesCategory("Outer"));
    design->setDesignProperty("Nothing", QVariant(), QtilitiesCategory("Outer"));
    auto* const structure = new DesignStructure;
    structure->rootNode()->addNode("Firmware")->addNode("Bit-stream Files");
    structure->rootNode()->addNode("Other");
    structure->addFileAssociation("*.bit", "Bit-stream Files", "out/bit");
    structure->addFileAssociation("*.zip", QString(), "archives");
    structure->setUnassignedFileAssociationsNode("Other");
    design->setStructure(structure);
    design->setLocked(true);
    return design;
}

void DesignStorageTest::bringsADesignBack()
{
    // Locked last, as a locked design takes no properties.
    const std::unique_ptr<Design> design = makeDesign();
    DesignStorage::save(design.get());
    QVERIFY(!design->isModified());

    const std::unique_ptr<Design> loaded = DesignStorage::load(m_folder->path());
    QVERIFY(!loaded->isModified());
    QVERIFY(loaded->isLocked());
    QCOMPARE(loaded->typeName(), QString("Firmware Design"));
    QCOMPARE(loaded->versionString("."), QString("12.345"));
    QCOMPARE(loaded->versionChanges(), design->versionChanges());
    QCOMPARE(loaded->workingFolderPath(), m_folder->path());

    QCOMPARE(loaded->files().count(), 3);
    const DesignFile* const image = loaded->fileAt("top.fcf");
    QVERIFY(image && image->isGenerated());
    QCOMPARE(image->versionAssociation(), QString("12.344"));
    QCOMPARE(image->customNode(), QString("Bit-stream Files"));
    const DesignFile* const source = loaded->fileAt("src/top.vhd");
    QVERIFY(source && !source->isGenerated());
    QCOMPARE(source->customNode(), QString());
    QVERIFY(loaded->fileAt("/elsewhere/shared.vhd"));
    QCOMPARE(loaded->folders().count(), 1);

    QCOMPARE(loaded->designProperties().count(), 4);
    QCOMPARE(loaded->designProperty("Text"), QVariant("value"));
    QCOMPARE(loaded->designProperty("Number"), QVariant(-7));
    QCOMPARE(loaded->designProperty("Number").type(), QVariant::Int);
    QCOMPARE(loaded->designProperty("Flag"), QVariant(true));
    QVERIFY(!loaded->designProperty("Nothing").isValid());
    QCOMPARE(loaded->designProperties().first().category.toStringList(), QStringList() << "Outer"
                                                                                       << "Inner");

    const DesignStructure* const structure = loaded->structure();
    QVERIFY(structure);
    QCOMPARE(structure->designNodeWithName("Bit-stream Files", true)->getCategoryString(),
             QString("Firmware"));
    QCOMPARE(structure->mapFileNameToAssociation("*.bit")->designNode(),
             QString("Bit-stream Files"));
    QCOMPARE(structure->mapFileNameToWorkingFolderPath("*.zip", "", ""), QString("archives"));
    QCOMPARE(structure->unassignedFileAssociationsNode(), QString("Other"));
}

void DesignStorageTest::writesTheSameTextAgain()
{
    DesignStorage::save(makeDesign().get());
    const QByteArray first = description();
    const std::unique_ptr<Design> loaded = DesignStorage::load(m_folder->path());
    DesignStorage::save(loaded.get());
    QCOMPARE(description(), first);
}

void DesignStorageTest::writesPathsRelativeToTheDesign()
{
    DesignStorage::save(makeDesign().get());
    QVERIFY(description().contains("\"path\": \"src/top.vhd\""));
    QVERIFY(description().contains("\"path\": \"/elsewhere/shared.vhd\""));
    QVERIFY(!description().contains(m_folder->path().toUtf8()));
}

void DesignStorageTest::readsTheLeastThatThereMustBe()
{
    writeDescription(R"({"format": 1, "type": "Software Design",
                         "version": {"major": 1, "minor": 0}})");
    const std::unique_ptr<Design> loaded = DesignStorage::load(m_folder->path());
    QVERIFY(!loaded->structure());
    QVERIFY(loaded->files().isEmpty());
    QVERIFY(!loaded->isLocked());
}

void DesignStorageTest::refusesADamagedDescription_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");

    const QByteArray start = R"({"format": 1, "type": "T", "version": {"major": 1, "minor": 0}, )";
    QTest::newRow("nothing") << QByteArray() << "line 1, column 1: illegal value";
    QTest::newRow("no JSON in the third line")
        << QByteArray("{\n  \"format\": 1,\n  type\n}") << "line 3, column ";
    QTest::newRow("columns count letters, not bytes")
        << QByteArray("{\"\xc3\xa9\xc3\xa9\": x}") << "line 1, column 8";
    QTest::newRow("cut off") << start << "line 1, column ";
    QTest::newRow("a list") << QByteArray("[]") << "the outermost object: an object is expected";
    QTest::newRow("no format") << QByteArray("{}") << "format: the entry is missing";
    QTest::newRow("a newer format")
        << QByteArray(R"({"format": 2, "novelty": true})")
        << "format: format 2 is newer than format 1, the newest that can be read";
    QTest::newRow("half a format")
        << QByteArray(R"({"format": 1.5})") << "format: a whole number from 1 to 2147483647";
    QTest::newRow("no version") << QByteArray(R"({"format": 1, "type": "T"})")
                                << "version: the entry is missing";
    QTest::newRow("a negative version")
        << QByteArray(R"({"format": 1, "type": "T", "version": {"major": 1, "minor": -1}})")
        << "version.minor: a whole number from 0 to";
    QTest::newRow("an unknown entry") << start + R"("novelty": 1})"
                                      << "the outermost object: the entry \"novelty\" is not known";
    QTest::newRow("files that are no list") << start + R"("files": 1})"
                                            << "files: a list is expected";
    QTest::newRow("a file without a path") << start + R"("files": [{"path": "a"}, {}]})"
                                           << "files[1].path: the entry is missing";
    QTest::newRow("a file with an empty path") << start + R"("files": [{"path": ""}]})"
                                               << "files[0].path: a path is expected";
    QTest::newRow("a file listed twice") << start + R"("files": [{"path": "a"}, {"path": "./a"}]})"
                                         << "files[1].path: \"./a\" is listed twice";
    QTest::newRow("a folder listed twice") << start + R"("folders": ["a", "./a"]})"
                                           << "folders[1]: \"./a\" is listed twice";
    QTest::newRow("a folder without a path") << start + R"("folders": [""]})"
                                             << "folders[0]: a path is expected";
    QTest::newRow("a property listed twice")
        << start + R"("properties": [{"name": "a", "value": 1}, {"name": "a", "value": 2}]})"
        << "properties[1].name: \"a\" is listed twice";
    QTest::newRow("a property without a name")
        << start + R"("properties": [{"name": "", "value": 1}]})"
        << "properties[0].name: a name is expected";
    QTest::newRow("a flag that is none")
        << start + R"("files": [{"path": "a", "generated": "yes"}]})"
        << "files[0].generated: true or false is expected";
    QTest::newRow("a property without a value") << start + R"("properties": [{"name": "a"}]})"
                                                << "properties[0].value: the entry is missing";
    QTest::newRow("a property with a list as value")
        << start + R"("properties": [{"name": "a", "value": []}]})"
        << "properties[0].value: a text is expected";
    QTest::newRow("a node deep down")
        << start + R"("structure": {"nodes": [{"name": "a", "nodes": [{"name": 1}]}]}})"
        << "structure.nodes[0].nodes[0].name: a text is expected";
    QTest::newRow("a rule without a pattern")
        << start + R"("structure": {"associations": [{"node": "a"}]}})"
        << "structure.associations[0].pattern: the entry is missing";
}

void DesignStorageTest::refusesADamagedDescription()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, problem);
    writeDescription(bytes);
    const QString error = hostErrorOf([this] { DesignStorage::load(m_folder->path()); });
    const QString expected = path("design.json") + ": " + problem;
    QVERIFY2(error.startsWith(expected), qPrintable(error));
    QCOMPARE(description(), bytes);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList("design.json"));
}

void DesignStorageTest::refusesAFolderWithoutADescription()
{
    QVERIFY(!DesignStorage::hasDescription(m_folder->path()));
    const QString error = hostErrorOf([this] { DesignStorage::load(m_folder->path()); });
    QVERIFY2(error.startsWith(path("design.json") + ": "), qPrintable(error));
}

void DesignStorageTest::keepsTheOldDescriptionWhenItCannotBeReplaced()
{
    // A folder in its place is refused for every user, unlike a write protection.
    QVERIFY(QDir(m_folder->path()).mkdir("design.json"));
    const std::unique_ptr<Design> design = makeDesign();
    const QString error = hostErrorOf([&design] { DesignStorage::save(design.get()); });
    QVERIFY2(error.startsWith(path("design.json") + ": "), qPrintable(error));
    QVERIFY(design->isModified());
    QVERIFY(QFileInfo(path("design.json")).isDir());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList());
}

void DesignStorageTest::keepsTheOldDescriptionWhenTheDiskIsFull()
{
    writeDescription("as it was");
    const std::unique_ptr<Design> design = makeDesign();
    QString error;
    {
        const FullDisk disk(100);
        error = hostErrorOf([&design] { DesignStorage::save(design.get()); });
    }
    QCOMPARE(error, path("design.json") + ": File too large");
    QVERIFY(design->isModified());
    QCOMPARE(description(), QByteArray("as it was"));
}

void DesignStorageTest::replacesADescriptionAsAWhole()
{
    writeDescription(QByteArray(100000, 'x'));
    QFile old(path("design.json"));
    QVERIFY(old.open(QIODevice::ReadOnly));
    DesignStorage::save(makeDesign().get());
    // What has it open still reads the old one: it was not written over in place.
    QCOMPARE(old.readAll(), QByteArray(100000, 'x'));
    DesignStorage::load(m_folder->path());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList("design.json"));
}

ZORV_TEST(DesignStorageTest)
#include "DesignStorageTest.moc"
