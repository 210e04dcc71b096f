#include "ProgramTest.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QtTest>

#include <sys/resource.h>

namespace {

/// More than fits in a pipe.
constexpr int LargePayload = 4 * 1024 * 1024;

/// A process that can write no more than this much into any file, as on a full disk.
class LimitedProcess : public QProcess {
public:
    explicit LimitedProcess(rlim_t fileBytes) : m_fileBytes(fileBytes) {}

protected:
    void setupChildProcess() override
    {
        const struct rlimit limit = {m_fileBytes, m_fileBytes};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

private:
    rlim_t m_fileBytes;
};

} // namespace

/// The program itself, from outside.
class BlackBoxTest : public ProgramTest {
    Q_OBJECT

private slots:
    void endsWithEachExitCode();
    void takesNamesOfAllKinds_data();
    void takesNamesOfAllKinds();
    void takesANameThatBeginsWithAColon();
    void worksThroughPipes();
    void readsANamedPipe();
    void readsAFileOnStandardInputFromItsPosition();
    void confusesNoFileWithAClosedStream_data();
    void confusesNoFileWithAClosedStream();
    void isCheckedBySha256sum();
    void obeysSourceDateEpoch();
    void writesTheTimeAlikeInEveryLocale();
    void takesADateAndTimeInEveryTimeZone();
    void refusesAnInputAsStandardOutput_data();
    void refusesAnInputAsStandardOutput();
    void leavesNothingOnAFullDisk_data();
    void leavesNothingOnAFullDisk();
    void reportsThatStandardOutputIsFull();
    void saysThatTheFilesAreInPlaceWhenTheResultIsLost();
    void reportsThatNobodyReadsStandardOutput();
};

void BlackBoxTest::endsWithEachExitCode()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    tool.write("bad.fcf", "bad");
    QCOMPARE(run(create(tool, "top.bin")).code, 0);
    QCOMPARE(run({"verify", tool.path("bad.fcf")}).code, 1);
    QCOMPARE(run({"verify", "--nonsense"}).code, 2);
    QCOMPARE(run(create(tool, "top.bin", {"--config", "11"})).code, 2);
    QCOMPARE(run(create(tool, "none.bin")).code, 3);
    QCOMPARE(run(create(tool, "top.bin")).code, 4);
    QCOMPARE(run({"--help"}).code, 0);
}

void BlackBoxTest::takesNamesOfAllKinds_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name :
         {"two words", " blanks ", "it's", "\"quoted\"", "$HOME `x`", "back\\slash", "Grün",
          "Карта",     "字節",     "😀",    "-dash",      "--force",   "[a,b]",       "{}",
          "%1",        "*?",       "a:b",  "a: b",       "~",         "tab\there",   "verify"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void BlackBoxTest::takesNamesOfAllKinds()
{
    QFETCH(QString, name);
    ToolFixture tool;
    QVERIFY(QDir().mkdir(tool.path(name)));
    tool.write(name + "/" + name + ".bin", ToolFixture::payload(100));
    QProcess process;
    process.setWorkingDirectory(tool.path(name));
    const auto runHere = [&process](QStringList arguments) {
        process.start(PELK_FCF, arguments);
        return finished(&process);
    };
    // From within the folder, where a name can look like an option.
    QStringList arguments = create(tool, "x", {"--digest"});
    arguments.removeAt(1);
    Run result = runHere(arguments + QStringList({"--", name + ".bin"}));
    QVERIFY2(result.code == 0, result.err);
    QVERIFY(tool.exists(name + "/" + name + ".fcf"));
    const QString image = tool.path(name + "/" + name + ".fcf");
    result = run({"verify", image, "--bin", tool.path(name + "/" + name + ".bin"), "--companion",
                  tool.path(name + "/" + name + ".txt")});
    QVERIFY2(result.code == 0, result.out + result.err);
    QVERIFY(!result.out.contains("holds no checksum"));
    QCOMPARE(run({"extract", image, "--output", tool.path(name + "/x")}).code, 0);
    const QJsonObject shown =
        run({"show", "--json", image}).json()["files"].toArray()[0].toObject();
    QCOMPARE(shown["header"].toObject()["fileName"].toString(), name + ".fcf");
}

void BlackBoxTest::takesANameThatBeginsWithAColon()
{
    ToolFixture tool;
    tool.makeImage();
    QProcess process;
    process.setWorkingDirectory(tool.path("."));
    process.start("sh", {"-c",
                         "cp top.bin :c.bin && \"$0\" create :c.bin --like top.fcf --digest && "
                         "\"$0\" verify :c.fcf --bin :c.bin --companion :c.txt",
                         PELK_FCF});
    const Run run = finished(&process);
    QVERIFY2(run.code == 0, run.err);
    QVERIFY2(run.out.endsWith(":c.fcf: valid\n"), run.out);
}

void BlackBoxTest::worksThroughPipes()
{
    ToolFixture tool;
    const QByteArray payload = ToolFixture::payload(300000);
    tool.write("top.bin", payload);
    QStringList arguments = create(tool, "top.bin", {"--output", tool.path("a.fcf"), "--quiet"});
    arguments[1] = "-";
    QCOMPARE(run(arguments, payload).code, 0);
    const QByteArray image = tool.read("a.fcf");
    QCOMPARE(run({"extract", "-", "--output", "-"}, image).out, payload);
    QCOMPARE(run({"verify", "-", "--type", "image"}, image).code, 0);
    QCOMPARE(run({"verify", "-", "--type", "image"}, image.chopped(1)).code, 1);
    const Run streamed =
        run({"create", tool.path("top.bin"), "--like", "-", "--output", "-", "--no-companion"},
            run({"recipe", "-"}, image).out);
    QCOMPARE(streamed.code, 0);
    QCOMPARE(streamed.out.right(payload.size()), payload);
    QCOMPARE(run(arguments, QByteArray()).code, 2);
}

void BlackBoxTest::readsANamedPipe()
{
    ToolFixture tool;
    tool.write("all", ToolFixture::payload(300000));
    QProcess process;
    process.setWorkingDirectory(tool.path("."));
    process.start("sh", QStringList{"-c", "mkfifo top.bin && { cat all >top.bin & } && exec \"$@\"",
                                    "sh", PELK_FCF} +
                            create(tool, "top.bin"));
    const Run run = finished(&process);
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("top.fcf").right(300000), ToolFixture::payload(300000));
}

void BlackBoxTest::readsAFileOnStandardInputFromItsPosition()
{
    ToolFixture tool;
    const QByteArray payload = ToolFixture::payload(3000);
    tool.write("both", QByteArray(1000, 'x') + payload);
    const auto runOn = [&](const QString& output, const QStringList& more) {
        QStringList arguments = create(tool, "x", more + QStringList{"--output", output});
        arguments[1] = "-";
        QProcess process;
        const QString script = "exec <\"$1\"; shift; "
                               "dd bs=1000 count=1 of=/dev/null status=none; exec \"$@\"";
        process.start("sh",
                      QStringList{"-c", script, "sh", tool.path("both"), PELK_FCF} + arguments);
        return finished(&process);
    };
    const Run made = runOn(tool.path("top.fcf"), {});
    QVERIFY2(made.code == 0, made.err);
    QCOMPARE(tool.read("top.fcf").right(payload.size()), payload);
    QCOMPARE(tool.read("top.fcf").size(), tool.read("top.txt").size() + payload.size());
    // It is an input as any other.
    QVERIFY(QFile::link("both", tool.path("both.fcf")));
    const Run refused = runOn(tool.path("both.fcf"), {"--force"});
    QCOMPARE(refused.code, 2);
    QVERIFY2(refused.err.contains("is the input itself, \"standard input\""), refused.err);
}

void BlackBoxTest::confusesNoFileWithAClosedStream_data()
{
    QTest::addColumn<QString>("closed");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("err");
    const QStringList extract{"extract", "top.fcf", "--output", "-"};
    QTest::newRow("input") << "<&-" << QStringList{"verify", "-", "--type", "image"} << 3
                           << QByteArray("standard input: FILE: cannot be read: Bad file "
                                         "descriptor");
    QTest::newRow("input that is not read")
        << "<&-" << QStringList{"show", "top.fcf"} << 0 << QByteArray();
    QTest::newRow("output") << ">&-" << extract << 3
                            << QByteArray("standard output: --output: cannot be written: Bad file "
                                          "descriptor");
    QTest::newRow("output of a result") << ">&-" << QStringList{"show", "top.fcf"} << 3
                                        << QByteArray("standard output: cannot be written: Bad");
    QTest::newRow("messages") << "2>&-" << QStringList{"verify", "none.fcf"} << 3 << QByteArray();
    QTest::newRow("all") << "<&- >&- 2>&-" << extract << 3 << QByteArray();
}

void BlackBoxTest::confusesNoFileWithAClosedStream()
{
    QFETCH(QString, closed);
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QFETCH(QByteArray, err);
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    QProcess process;
    process.setWorkingDirectory(tool.path("."));
    process.start("sh", QStringList{"-c", "exec \"$@\" " + closed, "sh", PELK_FCF} + arguments);
    const Run run = finished(&process);
    QCOMPARE(run.code, code);
    QVERIFY2(run.err.contains(err), run.err);
    QCOMPARE(tool.read("top.fcf"), image);
}

void BlackBoxTest::isCheckedBySha256sum()
{
    ToolFixture tool;
    tool.write("a\\b c.bin", ToolFixture::payload(100));
    QCOMPARE(run(create(tool, "a\\b c.bin", {"--digest"})).code, 0);
    QProcess process;
    process.setWorkingDirectory(tool.path("."));
    process.start("sha256sum", {"-c", "--strict", "a\\b c.fcf.sha256"});
    QCOMPARE(finished(&process).code, 0);
    // What sha256sum wrote is as good.
    process.start("sha256sum", {"a\\b c.fcf"});
    tool.write("a\\b c.fcf.sha256", finished(&process).out);
    const Run verified = run({"verify", tool.path("a\\b c.fcf")});
    QCOMPARE(verified.code, 0);
    QVERIFY(!verified.out.contains("holds no checksum"));
}

void BlackBoxTest::obeysSourceDateEpoch()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TZ", "America/New_York");
    environment.insert("SOURCE_DATE_EPOCH", "1717163100");
    QCOMPARE(run(create(tool, "top.bin", {"--date-format", "iso"}), {}, environment).code, 0);
    QVERIFY(tool.read("top.txt").contains("\nDate: 2024-05-31\nTime: 13:45:00\n"));
    environment.insert("SOURCE_DATE_EPOCH", "yesterday");
    const Run refused = run(create(tool, "top.bin", {"--force"}), {}, environment);
    QCOMPARE(refused.code, 2);
    QVERIFY(refused.err.contains("SOURCE_DATE_EPOCH: \"yesterday\" is not a number"));
}

void BlackBoxTest::writesTheTimeAlikeInEveryLocale()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("SOURCE_DATE_EPOCH", "1717163100");
    for (const char* const locale : {"ar_SA.UTF-8", "fa_IR.UTF-8", "de_DE.UTF-8"}) {
        environment.insert("LC_ALL", locale);
        const Run run = this->run(create(tool, "top.bin", {"--date-format", "iso", "--force"}), {},
                                  environment);
        QVERIFY2(run.code == 0, run.err);
        QVERIFY2(tool.read("top.txt").contains("\nDate: 2024-05-31\nTime: 13:45:00\n"), locale);
    }
}

void BlackBoxTest::refusesAnInputAsStandardOutput_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    QTest::newRow("extract in place") << "extract top.fcf --output - 1<>top.fcf"
                                      << "top.fcf";
    QTest::newRow("extract its own input") << "extract - --output - <top.fcf 1<>top.fcf"
                                           << "top.fcf";
    QTest::newRow("show behind it") << "show top.fcf >>top.fcf"
                                    << "top.fcf";
    QTest::newRow("recipe behind it") << "recipe top.txt >>top.txt"
                                      << "top.txt";
    QTest::newRow("create in place") << "create top.bin --like top.fcf --no-companion --output - "
                                        "1<>top.bin"
                                     << "top.bin";
    QTest::newRow("create elsewhere") << "create top.bin --like top.fcf --output new.fcf >>top.bin"
                                      << "top.bin";
    QTest::newRow("extract elsewhere") << "extract top.fcf --output new.bin >>top.fcf"
                                       << "top.fcf";
    QTest::newRow("create behind it") << "create top.bin --like top.fcf --no-companion --output - "
                                         ">>top.bin"
                                      << "top.bin";
}

void BlackBoxTest::refusesAnInputAsStandardOutput()
{
    QFETCH(QString, command);
    QFETCH(QString, file);
    ToolFixture tool;
    tool.makeImage();
    const QByteArray bytes = tool.read(file);
    QProcess process;
    process.setWorkingDirectory(tool.path("."));
    process.start("sh", {"-c", "\"$0\" " + command, PELK_FCF});
    const Run run = finished(&process);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("is the input itself, \""), run.err);
    QVERIFY2(run.err.contains("error: standard output: "), run.err);
    QCOMPARE(tool.names(), QStringList({"top.bin", "top.fcf", "top.txt"}));
    QCOMPARE(tool.read(file), bytes);
}

void BlackBoxTest::takesADateAndTimeInEveryTimeZone()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // Where clocks are put forward at two o'clock that night.
    environment.insert("TZ", "EST5EDT,M3.2.0,M11.1.0");
    const Run run = this->run(
        create(tool, "top.bin", {"--date-format", "iso", "--date-time", "2024-03-10T02:30:00"}), {},
        environment);
    QVERIFY2(run.code == 0, run.err);
    QVERIFY(tool.read("top.txt").contains("\nDate: 2024-03-10\nTime: 02:30:00\n"));
}

void BlackBoxTest::leavesNothingOnAFullDisk_data()
{
    QTest::addColumn<int>("bytes");
    QTest::newRow("no room at all") << 0;
    QTest::newRow("room for a part of the page") << 1000;
    QTest::newRow("room for the page") << 2112;
    QTest::newRow("room for all but a byte") << 2117 + 299999 - 5;
}

void BlackBoxTest::leavesNothingOnAFullDisk()
{
    QFETCH(int, bytes);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(300000));
    for (const bool replacing : {false, true}) {
        if (replacing)
            tool.write("top.fcf", "old");
        const QStringList before = tool.names();
        LimitedProcess process(static_cast<rlim_t>(bytes));
        process.start(PELK_FCF,
                      create(tool, "top.bin", replacing ? QStringList{"--force"} : QStringList()));
        const Run failed = finished(&process);
        QCOMPARE(failed.code, 3);
        QVERIFY2(failed.err.contains("top.fcf: --output: cannot be written: File too large"),
                 failed.err);
        QCOMPARE(tool.names(), before);
        if (replacing)
            QCOMPARE(tool.read("top.fcf"), QByteArray("old"));
    }
}

void BlackBoxTest::reportsThatStandardOutputIsFull()
{
    ToolFixture tool;
    tool.makeImage();
    const QString image = tool.path("top.fcf");
    for (const QStringList& arguments :
         {QStringList{"show", image}, QStringList{"recipe", image}, QStringList{"verify", image},
          QStringList{"extract", image, "--output", "-"},
          create(tool, "top.bin", {"--output", "-", "--no-companion"}), QStringList{"--help"}}) {
        QProcess process;
        process.setStandardOutputFile("/dev/full");
        process.start(PELK_FCF, arguments);
        const Run failed = finished(&process);
        QVERIFY2(failed.code == 3, qPrintable(arguments.first()));
        QVERIFY2(failed.err.contains("cannot be written: No space left on device"), failed.err);
    }
}

void BlackBoxTest::saysThatTheFilesAreInPlaceWhenTheResultIsLost()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QProcess process;
    process.setStandardOutputFile("/dev/full");
    process.start(PELK_FCF, create(tool, "top.bin"));
    const Run failed = finished(&process);
    QCOMPARE(failed.code, 3);
    QVERIFY2(failed.err.contains("No space left on device; the files are in place"), failed.err);
    QCOMPARE(run({"verify", tool.path("top.fcf")}).code, 0);
}

void BlackBoxTest::reportsThatNobodyReadsStandardOutput()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(LargePayload));
    QCOMPARE(run(create(tool, "top.bin")).code, 0);
    QProcess process;
    process.start("sh", {"-c", "\"$0\" extract \"$1\" --output - 2>\"$2\" | head -c 1 >/dev/null",
                         PELK_FCF, tool.path("top.fcf"), tool.path("err")});
    finished(&process);
    QVERIFY2(tool.read("err").contains("cannot be written: Broken pipe"), tool.read("err"));
}

QTEST_GUILESS_MAIN(BlackBoxTest)
#include "BlackBoxTest.moc"
