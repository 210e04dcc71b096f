#include "host/archive/ArchivedDesign.h"
#include "host/archive/Unpacked.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchiveJob.h"
#include "support/FullDisk.h"

#include <OrvanticCore/DesignFile.h>

#include <QDir>
#include <QtTest>

#include <sys/stat.h>

class ArchiveJobTest : public QObject {
    Q_OBJECT

private slots:
    void init() { bench.reset(new ArchivedDesign); }

    void makesAnArchiveOfTheDesign_data();
    void makesAnArchiveOfTheDesign();
    void makesTheSameBytesOfTheSameDesign_data();
    void makesTheSameBytesOfTheSameDesign();
    void makesTheSameBytesOverAnArchiveInTheDesign();
    void makesMissingFoldersOfTheDesign();
    void makesNoFoldersElsewhere();
    void replacesOnlyWhatItMay();
    void leavesNothingWhenItFails_data();
    void leavesNothingWhenItFails();
    void leavesNothingWhenItIsCancelled_data();
    void leavesNothingWhenItIsCancelled();
    void leavesNothingWhenItIsDeleted();
    void reportsAFolderThatVanishes();
    void refusesAnArchiveOfNothing();
    void refusesAFolderAsDestination();
    void refusesALinkToWhatIsNoFile();
    void reportsItsProgress();

private:
    ArchiveJob::Order order(const QString& destination, int items = 0x1B) const;
    /// Runs \p order and waits for its end.
    void run(const ArchiveJob::Order& order);

    QScopedPointer<ArchivedDesign> bench;
    ArchiveJob::Outcome outcome = ArchiveJob::Unfinished;
    QString error;
};

ArchiveJob::Order ArchiveJobTest::order(const QString& destination, int items) const
{
    ArchivePlan plan(bench->design(), ArchivePlan::Items(QFlag(items)));
    plan.setDescription("design.json", "description");
    const auto format = destination.endsWith(".zip") ? ArchiveFormat::Zip : ArchiveFormat::TarGz;
    return {plan, format, destination, bench->design().workingFolderPath(), false};
}

void ArchiveJobTest::run(const ArchiveJob::Order& order)
{
    ArchiveJob job(order);
    job.start();
    QVERIFY(job.wait(60000));
    outcome = job.outcome();
    error = job.error();
}

void ArchiveJobTest::makesAnArchiveOfTheDesign_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("zip") << "radar.zip";
    QTest::newRow("tar.gz") << "radar.tar.gz";
}

void ArchiveJobTest::makesAnArchiveOfTheDesign()
{
    QFETCH(QString, name);
    const QStringList before = ArchivedDesign::filesBeside(bench->path(name));
    run(order(bench->path(name)));
    QCOMPARE(error, QString());
    QCOMPARE(outcome, ArchiveJob::Written);
    const Unpacked unpacked(bench->path(name));
    QCOMPARE(unpacked.fault, QString());
    QCOMPARE(unpacked.members, bench->membersWithFolders());
    QCOMPARE(unpacked.names.size(), bench->membersWithFolders().size());
    QStringList after = ArchivedDesign::filesBeside(bench->path(name));
    QVERIFY(after.removeOne(name));
    QCOMPARE(after, before);
}

void ArchiveJobTest::makesTheSameBytesOfTheSameDesign_data() { makesAnArchiveOfTheDesign_data(); }

void ArchiveJobTest::makesTheSameBytesOfTheSameDesign()
{
    QFETCH(QString, name);
    run(order(bench->path(name)));
    const QByteArray first = ArchivedDesign::read(bench->path(name));
    // The same design in another folder, with its items noted in another order and at other times.
    bench.reset(new ArchivedDesign);
    auto& design = bench->design();
    design.removeFile(design.fileAt("top.bin"));
    design.restoreFile("top.bin");
    QFile file(bench->path("top.bin"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime(QDate(2001, 2, 3), QTime(4, 5)),
                             QFileDevice::FileModificationTime));
    file.close();
    run(order(bench->path(name)));
    QCOMPARE(outcome, ArchiveJob::Written);
    QVERIFY(ArchivedDesign::read(bench->path(name)) == first);
}

void ArchiveJobTest::makesTheSameBytesOverAnArchiveInTheDesign()
{
    const QString archive = bench->path("constraints/radar.zip");
    ArchiveJob::Order replacing = order(archive);
    replacing.replace = true;
    run(replacing);
    const QByteArray first = ArchivedDesign::read(archive);
    run(replacing);
    QCOMPARE(outcome, ArchiveJob::Written);
    QVERIFY(ArchivedDesign::read(archive) == first);
}

void ArchiveJobTest::makesMissingFoldersOfTheDesign()
{
    const QString archive = bench->path("archives/2026/radar.zip");
    run(order(archive));
    QCOMPARE(error, QString());
    QCOMPARE(Unpacked(archive).members, bench->membersWithFolders());
}

void ArchiveJobTest::makesNoFoldersElsewhere()
{
    run(order(bench->outside("archives/radar.zip")));
    QCOMPARE(outcome, ArchiveJob::Failed);
    QCOMPARE(error, bench->outside("archives") + ": The folder does not exist.");
    QVERIFY(!QFileInfo::exists(bench->outside("archives")));
}

void ArchiveJobTest::replacesOnlyWhatItMay()
{
    const QString archive = ArchivedDesign::write(bench->path("radar.zip"), "the one before");
    ArchiveJob::Order careful = order(archive);
    run(careful);
    QCOMPARE(outcome, ArchiveJob::Failed);
    QCOMPARE(error, archive + ": The file has come up meanwhile.");
    QCOMPARE(ArchivedDesign::read(archive), QByteArray("the one before"));
    careful.replace = true;
    run(careful);
    QCOMPARE(outcome, ArchiveJob::Written);
    QCOMPARE(Unpacked(archive).members, bench->membersWithFolders());
}

void ArchiveJobTest::leavesNothingWhenItFails_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("diskBytes");
    QTest::addColumn<QString>("reason");

    QTest::newRow("a file is missing") << "gone.bin" << -1 << "gone.bin: It does not exist.";
    QTest::newRow("a file cannot be read") << "unreadable" << -1 << "Input/output error";
    QTest::newRow("the disk is full at once") << "" << 0 << "File too large";
    QTest::newRow("the disk is full on the way") << "" << 70000 << "File too large";
}

void ArchiveJobTest::leavesNothingWhenItFails()
{
    QFETCH(QString, file);
    QFETCH(int, diskBytes);
    QFETCH(QString, reason);
    QVERIFY(QFile::link("/proc/self/mem", bench->path("unreadable")));
    if (!file.isEmpty())
        bench->design().restoreFile(file);
    for (const QString& archive :
         {bench->path("radar.zip"), bench->path("archives/new/radar.zip")}) {
        const QStringList before = ArchivedDesign::filesBeside(bench->path("radar.zip"));
        const QScopedPointer<FullDisk> disk(
            diskBytes < 0 ? nullptr : new FullDisk(static_cast<rlim_t>(diskBytes)));
        run(order(archive));
        QCOMPARE(outcome, ArchiveJob::Failed);
        QVERIFY2(error.contains(reason), qPrintable(error));
        if (diskBytes >= 0)
            QCOMPARE(error, QString("Cannot write %1: %2").arg(archive, reason));
        QCOMPARE(ArchivedDesign::filesBeside(bench->path("radar.zip")), before);
    }
    // The same over an archive that is there already.
    const QString present = ArchivedDesign::write(bench->path("radar.zip"), "the one before");
    ArchiveJob::Order replacing = order(present);
    replacing.replace = true;
    const QScopedPointer<FullDisk> disk(
        diskBytes < 0 ? nullptr : new FullDisk(static_cast<rlim_t>(diskBytes)));
    run(replacing);
    QCOMPARE(outcome, ArchiveJob::Failed);
    QCOMPARE(ArchivedDesign::read(present), QByteArray("the one before"));
}

void ArchiveJobTest::leavesNothingWhenItIsCancelled_data()
{
    QTest::addColumn<int>("part");

    QTest::newRow("at the start") << 0;
    QTest::newRow("half way") << ArchiveJob::Whole / 2;
    QTest::newRow("with the last byte") << ArchiveJob::Whole;
}

void ArchiveJobTest::leavesNothingWhenItIsCancelled()
{
    QFETCH(int, part);
    const QStringList before = ArchivedDesign::filesBeside(bench->path("radar.zip"));
    ArchiveJob job(order(bench->path("archives/radar.zip")));
    // In the job's own thread, so that it goes no further than that.
    connect(
        &job, &ArchiveJob::progressed, this,
        [&job, part](int done) {
            if (done >= part)
                job.cancel();
        },
        Qt::DirectConnection);
    job.start();
    QVERIFY(job.wait(60000));
    QCOMPARE(job.outcome(), ArchiveJob::Cancelled);
    QCOMPARE(job.error(), QString());
    QCOMPARE(ArchivedDesign::filesBeside(bench->path("radar.zip")), before);
}

void ArchiveJobTest::leavesNothingWhenItIsDeleted()
{
    QVERIFY(QFile::resize(bench->path("top.bin"), 1LL << 33));
    const QStringList before = ArchivedDesign::filesBeside(bench->path("radar.zip"));
    {
        ArchiveJob job(order(bench->path("radar.zip")));
        QSignalSpy progress(&job, &ArchiveJob::progressed);
        job.start();
        QVERIFY(progress.wait());
        QVERIFY(job.isRunning());
    }
    QCOMPARE(ArchivedDesign::filesBeside(bench->path("radar.zip")), before);
}

void ArchiveJobTest::reportsAFolderThatVanishes()
{
    const QString folder = bench->outside("archives");
    QVERIFY(QDir().mkdir(folder));
    ArchiveJob job(order(folder + "/radar.zip"));
    connect(
        &job, &ArchiveJob::progressed, this, [&folder](int) { QDir(folder).removeRecursively(); },
        Qt::DirectConnection);
    job.start();
    QVERIFY(job.wait(60000));
    QCOMPARE(job.outcome(), ArchiveJob::Failed);
    QCOMPARE(job.error(), folder + "/radar.zip: No such file or directory");
    QVERIFY(!QFileInfo::exists(folder));
}

void ArchiveJobTest::refusesAnArchiveOfNothing()
{
    ArchiveJob::Order nothing = order(bench->path("radar.zip"), 0);
    nothing.plan = ArchivePlan(bench->design(), {});
    run(nothing);
    QCOMPARE(outcome, ArchiveJob::Failed);
    QCOMPARE(error, QString("There is nothing to archive."));
    QVERIFY(!QFileInfo::exists(bench->path("radar.zip")));
}

void ArchiveJobTest::refusesAFolderAsDestination()
{
    run(order(bench->path("constraints")));
    QCOMPARE(outcome, ArchiveJob::Failed);
    QVERIFY2(error.startsWith(bench->path("constraints") + ": "), qPrintable(error));
    QVERIFY(QFileInfo::exists(bench->path("constraints/pins.xdc")));
}

void ArchiveJobTest::refusesALinkToWhatIsNoFile()
{
    // A pipe in place of a device of the system, which an administrator could replace.
    const QString pipe = bench->path("pipe");
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QVERIFY(QFile::link(pipe, bench->path("link.zip")));
    run(order(bench->path("link.zip")));
    QCOMPARE(outcome, ArchiveJob::Failed);
    QVERIFY2(error.endsWith("It is not a file."), qPrintable(error));
    QVERIFY(QFileInfo::exists(pipe) && !QFileInfo(pipe).isFile());
}

void ArchiveJobTest::reportsItsProgress()
{
    ArchiveJob job(order(bench->path("radar.zip")));
    QSignalSpy progress(&job, &ArchiveJob::progressed);
    QSignalSpy finished(&job, &ArchiveJob::finished);
    job.start();
    QVERIFY(finished.wait());
    QVERIFY(progress.size() >= 4);
    int last = -1;
    for (const QVariantList& arguments : progress) {
        QVERIFY(arguments.constFirst().toInt() > last);
        last = arguments.constFirst().toInt();
    }
    QCOMPARE(last, int(ArchiveJob::Whole));
    QCOMPARE(job.outcome(), ArchiveJob::Written);
}

ZORV_TEST(ArchiveJobTest)
#include "ArchiveJobTest.moc"
