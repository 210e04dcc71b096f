#include "host/archive/ArchivedDesign.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchivePlan.h"
#include "host/app/common/HostError.h"

#include <OrvanticCore/DesignFile.h>

#include <QDir>
#include <QtTest>

#include <sys/stat.h>

using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;

namespace {

QStringList namesOf(const std::vector<ArchiveMember>& members)
{
    QStringList names;
    for (const ArchiveMember& member : members)
        names << (member.kind == ArchiveMember::Folder ? member.name + '/' : member.name);
    return names;
}

} // namespace

class ArchivePlanTest : public QObject {
    Q_OBJECT

private slots:
    void init() { bench.reset(new ArchivedDesign); }

    void takesWhatTheFlagsName_data();
    void takesWhatTheFlagsName();
    void takesExternalFoldersWithTheFlagForExternalFiles();
    void readsEachMemberFromItsPlace();
    void ordersMembersByTheBytesOfTheirNames();
    void takesAFileOnceThoughItsFolderHasIt();
    void keepsExternalFilesOfOneNameApart();
    void putsTheDescriptionInPlaceOfAFileOfItsName();
    void leavesTheArchiveItselfOut();
    void followsLinks();
    void looksAtTheDiskWhenAsked();
    void namesEachPathThatCannotBeArchived_data();
    void namesEachPathThatCannotBeArchived();
    void listsSeveralProblemsButNotAll();

private:
    QStringList names(ArchivePlan::Items items = Extension::SourceFiles) const
    {
        return namesOf(ArchivePlan(bench->design(), items).members());
    }
    QString error(ArchivePlan::Items items = Extension::SourceFiles) const;

    QScopedPointer<ArchivedDesign> bench;
};

QString ArchivePlanTest::error(ArchivePlan::Items items) const
{
    try {
        return "no error: " + names(items).join(' ');
    } catch (const HostError& error) {
        return error.text();
    }
}

void ArchivePlanTest::takesWhatTheFlagsName_data()
{
    QTest::addColumn<int>("flags");
    QTest::addColumn<QStringList>("names");

    const QStringList files{"source/rx chain.vhd", "top.bin", QString::fromUtf8("Überblick.txt")};
    const QStringList folders{"constraints/", "constraints/.hidden", "constraints/empty/",
                              "constraints/pins.xdc"};
    QTest::newRow("nothing") << 0x00 << QStringList();
    QTest::newRow("source files") << 0x01 << files;
    QTest::newRow("generated files") << 0x02 << QStringList("top.fcf");
    QTest::newRow("external files") << 0x04 << QStringList("external/shared.vhd");
    QTest::newRow("design folders") << 0x08 << folders;
    QTest::newRow("the description, of which there is none") << 0x10 << QStringList();
    QTest::newRow("a configuration package")
        << 0x13 << files.mid(0, 2) + QStringList("top.fcf") + files.mid(2);
    QTest::newRow("everything") << 0x1F
                                << folders + QStringList("external/shared.vhd") + files.mid(0, 2) +
                                       QStringList("top.fcf") + files.mid(2);
}

void ArchivePlanTest::takesWhatTheFlagsName()
{
    QFETCH(int, flags);
    QTEST(names(ArchivePlan::Items(QFlag(flags))), "names");
}

void ArchivePlanTest::takesExternalFoldersWithTheFlagForExternalFiles()
{
    QVERIFY(QDir().mkpath(bench->outside("library")));
    ArchivedDesign::write(bench->outside("library/fft.vhd"), "fft");
    bench->design().restoreFolder(bench->outside("library"));
    QVERIFY(!names(Extension::DesignFolders).join(' ').contains("library"));
    QVERIFY(!names(Extension::ExternalFiles).join(' ').contains("library"));
    const QStringList both =
        names(ArchivePlan::Items(Extension::DesignFolders) | Extension::ExternalFiles);
    QVERIFY(both.contains("external/library/"));
    QVERIFY(both.contains("external/library/fft.vhd"));
}

void ArchivePlanTest::readsEachMemberFromItsPlace()
{
    for (const ArchiveMember& member :
         ArchivePlan(bench->design(), ArchivePlan::Items(QFlag(0x1F))).members()) {
        if (member.kind == ArchiveMember::Folder)
            continue;
        QCOMPARE(member.kind, ArchiveMember::File);
        const bool isExternal = member.name.startsWith("external/");
        QCOMPARE(member.source, isExternal ? bench->outside(QString(member.name).remove(0, 9))
                                           : bench->path(member.name));
    }
}

void ArchivePlanTest::ordersMembersByTheBytesOfTheirNames()
{
    for (const QString& name :
         {QString("b"), QString("a/b"), QString("a-b"), QString("a"), QString("B"),
          QString::fromUtf8("\xF0\x9F\x93\xA6"), QString::fromUtf8("\xEF\xBF\xBD")}) {
        if (name == "a")
            QVERIFY(QDir().mkpath(bench->path("a")));
        else if (name != "a/b")
            bench->design().restoreFile(ArchivedDesign::write(bench->path(name), {}));
    }
    bench->design().restoreFile(ArchivedDesign::write(bench->path("a/b"), {}));
    bench->design().restoreFolder("a");
    const QStringList found =
        names(ArchivePlan::Items(Extension::SourceFiles) | Extension::DesignFolders);
    QList<QByteArray> bytes;
    for (const QString& name : found)
        bytes << QString(name).remove(QRegularExpression("/$")).toUtf8();
    QList<QByteArray> sorted = bytes;
    std::sort(sorted.begin(), sorted.end());
    QCOMPARE(bytes, sorted);
    QCOMPARE(found.size(), 14);
}

void ArchivePlanTest::takesAFileOnceThoughItsFolderHasIt()
{
    bench->design().restoreFile("constraints/pins.xdc");
    const QStringList found =
        names(ArchivePlan::Items(Extension::SourceFiles) | Extension::DesignFolders);
    QCOMPARE(found.count("constraints/pins.xdc"), 1);
}

void ArchivePlanTest::keepsExternalFilesOfOneNameApart()
{
    for (const QString& folder : {QString("one"), QString("two")}) {
        QVERIFY(QDir().mkpath(bench->outside(folder)));
        bench->design().restoreFile(
            ArchivedDesign::write(bench->outside(folder + "/shared.vhd"), folder.toUtf8()));
    }
    const auto members = ArchivePlan(bench->design(), Extension::ExternalFiles).members();
    QCOMPARE(namesOf(members), QStringList({"external/2/shared.vhd", "external/3/shared.vhd",
                                            "external/shared.vhd"}));
    QCOMPARE(members.at(0).source, bench->outside("one/shared.vhd"));
    QCOMPARE(members.at(1).source, bench->outside("two/shared.vhd"));
}

void ArchivePlanTest::putsTheDescriptionInPlaceOfAFileOfItsName()
{
    bench->design().restoreFile(ArchivedDesign::write(bench->path("design.json"), "as stored"));
    ArchivePlan plan(bench->design(), Extension::SourceFiles);
    plan.setDescription("design.json", "as it is");
    const auto members = plan.members();
    QCOMPARE(members.front().name, QString("design.json"));
    QCOMPARE(members.front().kind, ArchiveMember::Text);
    QCOMPARE(members.front().text, QByteArray("as it is"));
    QCOMPARE(namesOf(members).count("design.json"), 1);
}

void ArchivePlanTest::leavesTheArchiveItselfOut()
{
    const QString archive = bench->path("constraints/radar.zip");
    ArchivedDesign::write(archive, "the one before");
    ArchivePlan plan(bench->design(), Extension::DesignFolders);
    QVERIFY(namesOf(plan.members()).contains("constraints/radar.zip"));
    plan.leaveOut(archive);
    QVERIFY(!namesOf(plan.members()).contains("constraints/radar.zip"));
}

void ArchivePlanTest::followsLinks()
{
    QVERIFY(QDir().mkpath(bench->outside("library")));
    ArchivedDesign::write(bench->outside("library/fft.vhd"), "fft");
    QVERIFY(QFile::link(bench->outside("library"), bench->path("constraints/library")));
    QVERIFY(QFile::link(bench->outside("shared.vhd"), bench->path("constraints/shared.vhd")));
    const QStringList found = names(Extension::DesignFolders);
    QVERIFY(found.contains("constraints/library/"));
    QVERIFY(found.contains("constraints/library/fft.vhd"));
    QVERIFY(found.contains("constraints/shared.vhd"));
}

void ArchivePlanTest::looksAtTheDiskWhenAsked()
{
    const ArchivePlan plan(bench->design(), Extension::DesignFolders);
    ArchivedDesign::write(bench->path("constraints/new.xdc"), {});
    QVERIFY(namesOf(plan.members()).contains("constraints/new.xdc"));
}

void ArchivePlanTest::namesEachPathThatCannotBeArchived_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isFolder");
    QTest::addColumn<QString>("problem");

    QTest::newRow("no file") << "gone.bin" << false << "gone.bin: It does not exist.";
    QTest::newRow("no folder") << "gone" << true << "gone: It does not exist.";
    QTest::newRow("a folder for a file") << "source" << false << "source: It is a folder.";
    QTest::newRow("a pipe") << "pipe" << false << "pipe: It is neither a file nor a folder.";
    QTest::newRow("a pipe in a folder")
        << "bad" << true << "bad/pipe: It is neither a file nor a folder.";
    QTest::newRow("a link to nothing") << "dangling" << false << "dangling: It does not exist.";
    QTest::newRow("a folder in itself")
        << "loop" << true << "loop/in/back: The link leads back to a folder that it lies in.";
}

void ArchivePlanTest::namesEachPathThatCannotBeArchived()
{
    QFETCH(QString, path);
    QFETCH(bool, isFolder);
    QFETCH(QString, problem);
    QVERIFY(QDir().mkpath(bench->path("bad")));
    QVERIFY(QDir().mkpath(bench->path("loop/in")));
    for (const QString& pipe : {QString("pipe"), QString("bad/pipe")})
        QCOMPARE(mkfifo(QFile::encodeName(bench->path(pipe)).constData(), 0600), 0);
    QVERIFY(QFile::link(bench->path("gone.bin"), bench->path("dangling")));
    QVERIFY(QFile::link(bench->path("loop"), bench->path("loop/in/back")));
    if (isFolder)
        bench->design().restoreFolder(path);
    else
        bench->design().restoreFile(path);
    QCOMPARE(error(ArchivePlan::Items(QFlag(0x09))), bench->path(problem));
}

void ArchivePlanTest::listsSeveralProblemsButNotAll()
{
    for (int number = 1; number <= 13; ++number)
        bench->design().restoreFile(QString("gone-%1.bin").arg(number));
    const QStringList lines = error().split('\n');
    QCOMPARE(lines.size(), 11);
    QCOMPARE(lines.constFirst(), bench->path("gone-1.bin: It does not exist."));
    QCOMPARE(lines.constLast(), QString("and 3 more"));
}

ZORV_TEST(ArchivePlanTest)
#include "ArchivePlanTest.moc"
