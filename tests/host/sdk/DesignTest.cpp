#include "support/TestProgram.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCore/ObjectManager.h>
#include <QtilitiesCoreGui/TreeNode.h>
#include <QtilitiesLogging/Logger.h>

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::IDesign;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Logging::Logger;

class DesignTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void isKnownByItsClassName();
    void reportsItsVersion();
    void sharesTheChangesOfItsVersion();
    void keepsPropertiesInOrder();
    void hasInvalidValuesForPropertiesNeverSet();
    void findsAFileByAnyPathToIt();
    void findsAFileThatIsInTheTreeAlone();
    void findsALinkByItsOwnPath();
    void refusesAFile_data();
    void refusesAFile();
    void refusesChangesWhileLocked();
    void namesTheLockBeforeReadOnly();
    void keepsWhatItNotesAboutFilesWhileLocked_data();
    void keepsWhatItNotesAboutFilesWhileLocked();
    void restoresAFileThatDoesNotExist();
    void announcesFilesOnceForACycle();
    void announcesAChangedFileAtTheEndOfACycle();
    void announcesNothingAfterASilentCycle();
    void knowsTheNodeOfAFile();
    void takesFoldersToo();
    void removesAFile();
    void notesWhatChangesIt();
    void isModifiedBeforeItSaysWhatChanged();
    void isNotModifiedByAMarkThatIsSetAgain();
    void isModifiedByALockButNotByReadOnly();
    void reportsItsLockStates();
    void handsFilesOverForRefreshing();
    void leavesTheManagerWhenDeleted();
    void hasASettingsFile();

private:
    QString makeFile(const QString& name);

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<Design> m_design;
};

void DesignTest::init()
{
    m_folder.reset(new QTemporaryDir);
    QVERIFY(m_folder->isValid());
    m_design.reset(new Design(m_folder->path(), "Firmware Design"));
}

QString DesignTest::makeFile(const QString& name)
{
    QFile file(m_folder->filePath(name));
    return file.open(QIODevice::WriteOnly) ? file.fileName() : QString();
}

void DesignTest::isKnownByItsClassName()
{
    QCOMPARE(m_design->metaObject()->className(), "OrvanticCore::Design");
    QCOMPARE(static_cast<IDesign*>(m_design.data())->objectBase(), m_design.data());
    QCOMPARE(m_design->typeName(), QString("Firmware Design"));
    QCOMPARE(m_design->workingFolderPath(), m_folder->path());
    QCOMPARE(m_design->name(), QFileInfo(m_folder->path()).fileName());
}

void DesignTest::reportsItsVersion()
{
    m_design->setVersion(3, 14);
    QCOMPARE(m_design->versionMajor(), 3);
    QCOMPARE(m_design->versionMinor(), 14);
    QCOMPARE(m_design->versionString("."), QString("3.14"));
    QCOMPARE(m_design->versionString("_"), QString("3_14"));
}

void DesignTest::sharesTheChangesOfItsVersion()
{
    QVERIFY(!ObjectManager::propertyExists(m_design.data(), "CurrentVersionChanges"));
    m_design->setVersionChanges("Clock corrected");
    QVERIFY(ObjectManager::propertyExists(m_design.data(), "CurrentVersionChanges"));
    QCOMPARE(ObjectManager::getSharedProperty(m_design.data(), "CurrentVersionChanges").value(),
             QVariant("Clock corrected"));
    m_design->setVersionChanges(QString());
    QVERIFY(!ObjectManager::propertyExists(m_design.data(), "CurrentVersionChanges"));
}

void DesignTest::keepsPropertiesInOrder()
{
    m_design->setDesignProperty("b", 1, QtilitiesCategory("one"));
    m_design->setDesignProperty("a", "text", QtilitiesCategory("one"));
    m_design->setDesignProperty("b", 2, QtilitiesCategory("other"));
    QCOMPARE(m_design->designProperties().count(), 2);
    QCOMPARE(m_design->designProperties().at(0).name, QString("b"));
    QCOMPARE(m_design->designProperties().at(0).category.toString(), QString("other"));
    QCOMPARE(m_design->designProperty("b"), QVariant(2));
    m_design->removeDesignProperty("b");
    QVERIFY(!m_design->designProperty("b").isValid());
    QCOMPARE(m_design->designProperty("a"), QVariant("text"));
}

void DesignTest::hasInvalidValuesForPropertiesNeverSet()
{
    QVERIFY(!m_design->designProperty("ZORV Pelk Module").isValid());
}

void DesignTest::findsAFileByAnyPathToIt()
{
    const QString path = makeFile("top.bin");
    DesignFile* const file = m_design->addFile("top.bin", nullptr);
    QVERIFY(file);
    QCOMPARE(file->filePath(), path);
    QCOMPARE(file->design(), m_design.data());
    QCOMPARE(m_design->fileAt(path), file);
    QCOMPARE(m_design->fileAt("./top.bin"), file);
    QVERIFY(!m_design->fileAt("top.txt"));
    QVERIFY(!m_design->fileAt(""));
}

void DesignTest::findsAFileThatIsInTheTreeAlone()
{
    DesignFile* const added = m_design->restoreFile("added.bin");
    auto* const file = new DesignFile(m_folder->filePath("top.bin"), m_design.data());
    QVERIFY(m_design->tree()->addItem(file));
    QCOMPARE(m_design->fileAt("top.bin"), file);
    QCOMPARE(m_design->fileAt("added.bin"), added);
}

void DesignTest::findsALinkByItsOwnPath()
{
    QVERIFY(QFile::link(makeFile("top.bin"), m_folder->filePath("link.bin")));
    DesignFile* const link = m_design->addFile("link.bin", nullptr);
    QVERIFY(link);
    QCOMPARE(m_design->fileAt("link.bin"), link);
    QVERIFY(!m_design->fileAt("top.bin"));
}

void DesignTest::refusesAFile_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");

    QTest::newRow("no path") << ""
                             << "There is no such file.";
    QTest::newRow("no file") << "missing.bin"
                             << "There is no such file.";
    QTest::newRow("a folder") << "folder"
                              << "It is not a file.";
    QTest::newRow("a file of the design") << "top.bin"
                                          << "It is in the design already.";
}

void DesignTest::refusesAFile()
{
    QFETCH(QString, path);
    makeFile("top.bin");
    QVERIFY(QDir(m_folder->path()).mkdir("folder"));
    QVERIFY(m_design->addFile("top.bin", nullptr));
    QString error;
    QVERIFY(!m_design->addFile(path, &error));
    QTEST(error, "reason");
    QVERIFY(!m_design->addFile(path, nullptr));
    QCOMPARE(m_design->files().count(), 1);
}

void DesignTest::refusesChangesWhileLocked()
{
    makeFile("top.bin");
    m_design->setDesignProperty("a", 1, QtilitiesCategory());
    QString error;
    m_design->setLocked(true);
    QVERIFY(!m_design->addFile("top.bin", &error));
    QCOMPARE(error, QString("The design is locked."));
    m_design->setDesignProperty("a", 2, QtilitiesCategory());
    QCOMPARE(m_design->designProperty("a"), QVariant(1));
    m_design->setLocked(false);
    m_design->setReadOnly(true);
    QVERIFY(!m_design->addFile("top.bin", &error));
    QCOMPARE(error, QString("The design is read-only."));
}

void DesignTest::namesTheLockBeforeReadOnly()
{
    makeFile("top.bin");
    m_design->setLocked(true);
    m_design->setReadOnly(true);
    QString error;
    QVERIFY(!m_design->addFile("top.bin", &error));
    QCOMPARE(error, QString("The design is locked."));
}

void DesignTest::keepsWhatItNotesAboutFilesWhileLocked_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<QString>("reason");
    QTest::newRow("locked") << true << "locked";
    QTest::newRow("read-only") << false << "read-only";
}

void DesignTest::keepsWhatItNotesAboutFilesWhileLocked()
{
    QFETCH(bool, locked);
    QFETCH(QString, reason);
    DesignFile* const file = m_design->restoreFile("top.fcf");
    file->setVersionAssociation("1.0");
    DesignFolder* const folder = m_design->restoreFolder("100%2");
    m_design->setLocked(locked);
    m_design->setReadOnly(!locked);
    m_design->setModified(false);
    QStringList log;
    const auto noting = connect(Logger::instance(), &Logger::newPriorityMessage, this,
                                [&log](Logger::MessageType type, const QString& text) {
                                    log << QString::number(type) + ":" + text;
                                });
    file->setVersionAssociation("1.1");
    file->setIsGenerated(true);
    file->setCustomNode("Elsewhere");
    folder->setIsGenerated(true);
    // Nothing is asked of the design.
    file->setVersionAssociation("1.0");
    disconnect(noting);

    const QString end = " of design \"" + m_design->name() + "\": the design is " + reason + ".";
    QCOMPARE(log, QStringList() << "4:Cannot set the version of \"top.fcf\"" + end
                                << "4:Cannot set the generated mark of \"top.fcf\"" + end
                                << "4:Cannot set the node of \"top.fcf\"" + end
                                << "4:Cannot set the generated mark of \"100%2\"" + end);
    QCOMPARE(file->versionAssociation(), QString("1.0"));
    QVERIFY(!file->isGenerated());
    QVERIFY(file->customNode().isEmpty());
    QVERIFY(!folder->isGenerated());
    QVERIFY(!m_design->isModified());
}

void DesignTest::restoresAFileThatDoesNotExist()
{
    DesignFile* const file = m_design->restoreFile("gone.bin");
    QVERIFY(file);
    QVERIFY(!file->exists());
    QCOMPARE(m_design->restoreFile("gone.bin"), file);
}

void DesignTest::announcesFilesOnceForACycle()
{
    QSignalSpy changed(m_design.data(), SIGNAL(filesChanged()));
    m_design->tree()->startProcessingCycle();
    m_design->restoreFile("a.bin")->setIsGenerated(true);
    m_design->restoreFile("b.bin")->setCustomNode("node");
    QCOMPARE(changed.count(), 0);
    m_design->tree()->endProcessingCycle(true);
    QCOMPARE(changed.count(), 1);
}

void DesignTest::announcesAChangedFileAtTheEndOfACycle()
{
    DesignFile* const file = m_design->restoreFile("a.bin");
    QSignalSpy changed(m_design.data(), SIGNAL(filesChanged()));
    m_design->tree()->startProcessingCycle();
    file->setVersionAssociation("1.0");
    QCOMPARE(changed.count(), 0);
    m_design->tree()->endProcessingCycle(true);
    QCOMPARE(changed.count(), 1);
    file->setVersionAssociation("1.0");
    QCOMPARE(changed.count(), 1);
    file->setVersionAssociation("1.1");
    QCOMPARE(changed.count(), 2);
}

void DesignTest::announcesNothingAfterASilentCycle()
{
    DesignFile* const file = m_design->restoreFile("a.bin");
    QSignalSpy changed(m_design.data(), SIGNAL(filesChanged()));
    m_design->tree()->startProcessingCycle();
    m_design->restoreFile("b.bin");
    file->setIsGenerated(true);
    m_design->tree()->endProcessingCycle(false);
    m_design->tree()->startProcessingCycle();
    m_design->tree()->endProcessingCycle(true);
    QCOMPARE(changed.count(), 0);
}

void DesignTest::knowsTheNodeOfAFile()
{
    DesignFile* const file = m_design->restoreFile("top.bin");
    QCOMPARE(m_design->nodeOf(file), QString());
    auto* const structure = new DesignStructure;
    structure->setUnassignedFileAssociationsNode("Other");
    m_design->setStructure(structure);
    QCOMPARE(m_design->nodeOf(file), QString("Other"));
    structure->addFileAssociation("*.bin", "Binaries");
    QCOMPARE(m_design->nodeOf(file), QString("Binaries"));
    file->setCustomNode("Bit-streams");
    QCOMPARE(m_design->nodeOf(file), QString("Bit-streams"));
}

void DesignTest::takesFoldersToo()
{
    QVERIFY(QDir(m_folder->path()).mkdir("constraints"));
    makeFile("top.bin");
    QString error;
    QVERIFY(!m_design->addFolder("top.bin", &error));
    QCOMPARE(error, QString("It is not a folder."));
    DesignFolder* const folder = m_design->addFolder("constraints", &error);
    QVERIFY(folder);
    QCOMPARE(folder->folderPath(), m_folder->filePath("constraints"));
    QCOMPARE(folder->getName(), QString("constraints"));
    QCOMPARE(m_design->folders(), QList<DesignFolder*>() << folder);
    m_design->removeFolder(folder);
    QVERIFY(m_design->folders().isEmpty());
}

void DesignTest::removesAFile()
{
    DesignFile* const file = m_design->restoreFile("top.bin");
    m_design->setModified(false);
    QSignalSpy changed(m_design.data(), SIGNAL(filesChanged()));
    m_design->removeFile(file);
    QCOMPARE(changed.count(), 1);
    QVERIFY(m_design->isModified());
    QVERIFY(m_design->files().isEmpty());
    QVERIFY(!m_design->fileAt("top.bin"));
}

void DesignTest::notesWhatChangesIt()
{
    QVERIFY(!m_design->isModified());
    QSignalSpy modified(m_design.data(), SIGNAL(modifiedChanged(bool)));
    DesignFile* const file = m_design->restoreFile("top.bin");
    QVERIFY(m_design->isModified());
    m_design->setModified(false);
    file->setIsGenerated(true);
    QVERIFY(m_design->isModified());
    QCOMPARE(modified.count(), 3);
}

void DesignTest::isModifiedBeforeItSaysWhatChanged()
{
    QList<bool> modified;
    connect(m_design.data(), &Design::propertiesChanged,
            [this, &modified] { modified << m_design->isModified(); });
    m_design->setDesignProperty("a", 1, QtilitiesCategory());
    m_design->setModified(false);
    m_design->removeDesignProperty("a");
    QCOMPARE(modified, QList<bool>() << true << true);
}

void DesignTest::isNotModifiedByAMarkThatIsSetAgain()
{
    DesignFile* const file = m_design->restoreFile("top.bin");
    file->setIsGenerated(true);
    m_design->setModified(false);
    file->setIsGenerated(true);
    QVERIFY(!m_design->isModified());
}

void DesignTest::isModifiedByALockButNotByReadOnly()
{
    m_design->setReadOnly(true);
    QVERIFY(!m_design->isModified());
    m_design->setLocked(true);
    QVERIFY(m_design->isModified());
}

void DesignTest::reportsItsLockStates()
{
    QSignalSpy state(m_design.data(), SIGNAL(stateChanged(bool, bool)));
    m_design->setLocked(true);
    m_design->setReadOnly(true);
    m_design->setReadOnly(true);
    m_design->setLocked(false);
    QCOMPARE(state.count(), 3);
    QCOMPARE(state.at(0), QVariantList() << true << false);
    QCOMPARE(state.at(1), QVariantList() << true << true);
    QCOMPARE(state.at(2), QVariantList() << false << true);
}

void DesignTest::handsFilesOverForRefreshing()
{
    QList<DesignFile*> received;
    connect(m_design.data(), &Design::filesRefreshed,
            [&received](const QList<DesignFile*>& files) { received = files; });
    const QList<DesignFile*> files{m_design->restoreFile("a.bin"), m_design->restoreFile("b.bin")};
    m_design->refreshFiles(files);
    QCOMPARE(received, files);
}

void DesignTest::leavesTheManagerWhenDeleted()
{
    DesignManager* const manager = DesignManager::instance();
    manager->addDesign(m_design.data());
    manager->addDesign(m_design.data());
    manager->addDesign(nullptr);
    QCOMPARE(manager->designs(), QList<IDesign*>() << m_design.data());
    m_design.reset();
    QVERIFY(manager->designs().isEmpty());
}

void DesignTest::hasASettingsFile()
{
    DesignManager* const manager = DesignManager::instance();
    QVERIFY(QFileInfo(manager->settingsFilePath()).isAbsolute());
    manager->setSettingsFilePath("/some/host.ini");
    QCOMPARE(manager->settingsFilePath(), QString("/some/host.ini"));
    manager->setSettingsFilePath(QString());
    QVERIFY(manager->settingsFilePath() != "/some/host.ini");
}

ZORV_TEST(DesignTest)
#include "DesignTest.moc"
