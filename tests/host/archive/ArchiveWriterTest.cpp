#include "host/archive/ArchivedDesign.h"
#include "host/archive/Unpacked.h"
#include "support/TestProgram.h"

#include "host/app/archive/ArchivePlan.h"
#include "host/app/archive/ArchiveWriter.h"
#include "host/app/common/HostError.h"
#include "support/StubbornDevices.h"

#include <QBuffer>
#include <QtTest>

#include <clocale>
#include <ctime>

namespace {

const ArchiveWriter::Advance Nothing = [](qint64) {};

ArchiveMember fileMember(const QString& name, const QString& source)
{
    return {ArchiveMember::File, name, source, {}};
}

ArchiveMember textMember(const QString& name, const QByteArray& text)
{
    return {ArchiveMember::Text, name, {}, text};
}

ArchiveMember folderMember(const QString& name) { return {ArchiveMember::Folder, name, {}, {}}; }

void writeTo(QIODevice* device, ArchiveFormat format, const std::vector<ArchiveMember>& members,
             const ArchiveWriter::Advance& advance = Nothing)
{
    ArchiveWriter writer(device, "radar.zip", format);
    for (const ArchiveMember& member : members)
        writer.add(member, advance);
    writer.finish();
}

QByteArray archiveOf(ArchiveFormat format, const std::vector<ArchiveMember>& members)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    writeTo(&buffer, format, members);
    return buffer.data();
}

QString errorOf(const std::function<void()>& action)
{
    try {
        action();
        return {};
    } catch (const HostError& error) {
        return error.text();
    }
}

const std::vector<ArchiveMember> SmallMembers{
    textMember("a.txt", "alpha"), folderMember("b"),
    textMember(QString::fromUtf8("b/Überblick.txt"), "beta")};

} // namespace

class ArchiveWriterTest : public QObject {
    Q_OBJECT

private slots:
    void givesBackEachByte_data() { formats(); }
    void givesBackEachByte();
    void keepsTheOrderOfItsMembers_data() { formats(); }
    void keepsTheOrderOfItsMembers();
    void keepsLongAndForeignNames_data() { formats(); }
    void keepsLongAndForeignNames();
    void recordsNoTimeAndNoOwner_data() { formats(); }
    void recordsNoTimeAndNoOwner();
    void dependsOnTheMembersAlone_data();
    void dependsOnTheMembersAlone();
    void keepsTheRightToExecute_data() { formats(); }
    void keepsTheRightToExecute();
    void countsTheBytesOfContent();
    void failsWithTheDeviceAtEveryByte_data() { formats(); }
    void failsWithTheDeviceAtEveryByte();
    void writesOnWhileTheDeviceTakesALittle();
    void refusesAFileThatCannotBeRead_data();
    void refusesAFileThatCannotBeRead();
    void refusesAFileThatChangesMeanwhile_data();
    void refusesAFileThatChangesMeanwhile();
    void leavesTheLocaleAsItWas();

private:
    static void formats();
    QString writeFile(ArchiveFormat format, const std::vector<ArchiveMember>& members);

    QTemporaryDir m_folder;
};

Q_DECLARE_METATYPE(ArchiveFormat)

void ArchiveWriterTest::formats()
{
    QTest::addColumn<ArchiveFormat>("format");

    QTest::newRow("zip") << ArchiveFormat::Zip;
    QTest::newRow("tar.gz") << ArchiveFormat::TarGz;
}

QString ArchiveWriterTest::writeFile(ArchiveFormat format,
                                     const std::vector<ArchiveMember>& members)
{
    return ArchivedDesign::write(m_folder.filePath("archive." + ArchiveFormats::extension(format)),
                                 archiveOf(format, members));
}

void ArchiveWriterTest::givesBackEachByte()
{
    QFETCH(ArchiveFormat, format);
    QByteArray content;
    for (quint32 i = 0; i < 300000; ++i)
        content += static_cast<char>((i * i) >> 5);
    const QString large = ArchivedDesign::write(m_folder.filePath("large.bin"), content);
    const QString empty = ArchivedDesign::write(m_folder.filePath("empty.bin"), {});
    const Unpacked unpacked(
        writeFile(format, {folderMember("folder"), fileMember("folder/large.bin", large),
                           fileMember("empty.bin", empty), textMember("text", "line\n")}));
    QCOMPARE(unpacked.fault, QString());
    QCOMPARE(unpacked.members, (QMap<QString, QByteArray>{{"folder/", {}},
                                                          {"folder/large.bin", content},
                                                          {"empty.bin", {}},
                                                          {"text", "line\n"}}));
}

void ArchiveWriterTest::keepsTheOrderOfItsMembers()
{
    QFETCH(ArchiveFormat, format);
    const Unpacked unpacked(
        writeFile(format, {textMember("z", "1"), folderMember("m"), textMember("a", "2")}));
    QCOMPARE(unpacked.names, QStringList({"z", "m/", "a"}));
}

void ArchiveWriterTest::keepsLongAndForeignNames()
{
    QFETCH(ArchiveFormat, format);
    const QString deep = QString("folder with a long name/").repeated(12) + "file";
    const QString foreign =
        QString::fromUtf8("\xD0\xA0\xD0\x9B\xD0\xA1/\xE5\x9B\xBA\xE4\xBB\xB6 \xF0\x9F\x93\xA6");
    const Unpacked unpacked(
        writeFile(format, {textMember(deep, "deep"), textMember(foreign, "foreign")}));
    QCOMPARE(unpacked.fault, QString());
    QCOMPARE(unpacked.members, (QMap<QString, QByteArray>{{deep, "deep"}, {foreign, "foreign"}}));
}

void ArchiveWriterTest::recordsNoTimeAndNoOwner()
{
    QFETCH(ArchiveFormat, format);
    QProcess process;
    process.start("bsdtar", {"--numeric-owner", "-tvf",
                             writeFile(format, {textMember("a", "1"), folderMember("b")})});
    QVERIFY(process.waitForFinished());
    const QStringList lines = QString::fromUtf8(process.readAll()).split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    const QRegularExpression row("^([-d][-rwx]{9}) +0 0 +0 +[01] Jan +1 +1980 (a|b/)$");
    for (const QString& line : lines)
        QVERIFY2(row.match(line).hasMatch(), qPrintable(line));
    QVERIFY(lines.at(0).startsWith("-rw-r--r--"));
    QVERIFY(lines.at(1).startsWith("drwxr-xr-x"));
}

void ArchiveWriterTest::dependsOnTheMembersAlone_data()
{
    QTest::addColumn<ArchiveFormat>("format");
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<QByteArray>("locale");
    QTest::addColumn<int>("fileAge");

    for (const ArchiveFormat format : ArchiveFormats::all()) {
        const QByteArray name = ArchiveFormats::extension(format).toLatin1() + ' ';
        QTest::newRow(name + "east")
            << format << QByteArray("EAST-14") << QByteArray("C.UTF-8") << 0;
        QTest::newRow(name + "west")
            << format << QByteArray("WEST+12") << QByteArray("C.UTF-8") << 0;
        QTest::newRow(name + "C locale") << format << QByteArray("UTC") << QByteArray("C") << 0;
        QTest::newRow(name + "older file")
            << format << QByteArray("UTC") << QByteArray("C.UTF-8") << 400;
    }
}

void ArchiveWriterTest::dependsOnTheMembersAlone()
{
    QFETCH(ArchiveFormat, format);
    QFETCH(QByteArray, zone);
    QFETCH(QByteArray, locale);
    QFETCH(int, fileAge);
    const auto surround = [](const QByteArray& timeZone, const QByteArray& name) {
        qputenv("TZ", timeZone);
        tzset();
        std::setlocale(LC_ALL, name.constData());
    };
    const QString path = ArchivedDesign::write(m_folder.filePath("file"), "content");
    std::vector<ArchiveMember> members = SmallMembers;
    members.push_back(fileMember("file", path));
    surround("UTC", "C.UTF-8");
    const QByteArray expected = archiveOf(format, members);

    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime::currentDateTime().addDays(-fileAge),
                             QFileDevice::FileModificationTime));
    file.close();
    surround(zone, locale);
    const QByteArray found = archiveOf(format, members);
    surround("UTC", "C.UTF-8");
    QCOMPARE(found.toHex(), expected.toHex());
}

void ArchiveWriterTest::keepsTheRightToExecute()
{
    QFETCH(ArchiveFormat, format);
    const QString script = ArchivedDesign::write(m_folder.filePath("build.sh"), "#!/bin/sh\n");
    QVERIFY(QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner));
    QProcess process;
    process.start("bsdtar", {"-tvf", writeFile(format, {fileMember("build.sh", script)})});
    QVERIFY(process.waitForFinished());
    QVERIFY(process.readAll().startsWith("-rwxr-xr-x"));
    QVERIFY(QFile::remove(script));
}

void ArchiveWriterTest::countsTheBytesOfContent()
{
    const QString path = ArchivedDesign::write(m_folder.filePath("f"), QByteArray(150000, 'x'));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QList<qint64> counts;
    writeTo(&buffer, ArchiveFormat::Zip,
            {folderMember("b"), fileMember("f", path), textMember("t", "1234")},
            [&counts](qint64 bytes) { counts << bytes; });
    QCOMPARE(counts, QList<qint64>({65536, 65536, 18928, 4}));
}

void ArchiveWriterTest::failsWithTheDeviceAtEveryByte()
{
    QFETCH(ArchiveFormat, format);
    const int size = archiveOf(format, SmallMembers).size();
    QVERIFY(size > 100);
    for (int limit = 0; limit < size; ++limit) {
        LimitedSink failing(limit, LimitedSink::Fails);
        QCOMPARE(errorOf([&] { writeTo(&failing, format, SmallMembers); }),
                 QString("Cannot write radar.zip: No space left on device"));
        QCOMPARE(failing.bytes().size(), limit);
        LimitedSink full(limit, LimitedSink::TakesNothing);
        QVERIFY(errorOf([&] {
                    writeTo(&full, format, SmallMembers);
                }).startsWith("Cannot write radar.zip"));
    }
    LimitedSink enough(size, LimitedSink::Fails);
    QCOMPARE(errorOf([&] { writeTo(&enough, format, SmallMembers); }), QString());
}

void ArchiveWriterTest::writesOnWhileTheDeviceTakesALittle()
{
    LimitedSink sink(100000, LimitedSink::Fails, 7);
    writeTo(&sink, ArchiveFormat::Zip, SmallMembers);
    QCOMPARE(sink.bytes().toHex(), archiveOf(ArchiveFormat::Zip, SmallMembers).toHex());
}

void ArchiveWriterTest::refusesAFileThatCannotBeRead_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << "/nowhere/top.bin"
                             << "No such file or directory";
    // Opens for everyone, but has no first page.
    QTest::newRow("failing") << "/proc/self/mem"
                             << "Input/output error";
}

void ArchiveWriterTest::refusesAFileThatCannotBeRead()
{
    QFETCH(QString, path);
    QFETCH(QString, reason);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QCOMPARE(errorOf([&] { writeTo(&buffer, ArchiveFormat::Zip, {fileMember("top.bin", path)}); }),
             QString("Cannot read %1: %2").arg(path, reason));
}

void ArchiveWriterTest::refusesAFileThatChangesMeanwhile_data()
{
    QTest::addColumn<int>("newSize");

    QTest::newRow("grows") << 200001;
    QTest::newRow("shrinks") << 150000;
    QTest::newRow("is emptied") << 0;
}

void ArchiveWriterTest::refusesAFileThatChangesMeanwhile()
{
    QFETCH(int, newSize);
    const QString path = ArchivedDesign::write(m_folder.filePath("f"), QByteArray(200000, 'x'));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    const auto change = [&](qint64) { QVERIFY(QFile::resize(path, newSize)); };
    QCOMPARE(
        errorOf([&] { writeTo(&buffer, ArchiveFormat::Zip, {fileMember("f", path)}, change); }),
        QString("Cannot read %1: The file changed while it was read.").arg(path));
}

void ArchiveWriterTest::leavesTheLocaleAsItWas()
{
    const locale_t before = uselocale(nullptr);
    archiveOf(ArchiveFormat::TarGz, SmallMembers);
    QCOMPARE(uselocale(nullptr), before);
    LimitedSink failing(0, LimitedSink::Fails);
    errorOf([&] { writeTo(&failing, ArchiveFormat::Zip, SmallMembers); });
    QCOMPARE(uselocale(nullptr), before);
}

ZORV_TEST(ArchiveWriterTest)
#include "ArchiveWriterTest.moc"
