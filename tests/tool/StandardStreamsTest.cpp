#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QtTest>

namespace {

/// More than fits in a pipe.
constexpr int LargePayload = 4 * 1024 * 1024;

} // namespace

/// Standard input and output: pipes, files, closed and full ones.
class StandardStreamsTest : public ProgramTest {
    Q_OBJECT

private slots:
    void worksThroughPipes();
    void readsAFileOnStandardInputFromItsPosition();
    void confusesNoFileWithAClosedStream_data();
    void confusesNoFileWithAClosedStream();
    void refusesAnInputAsStandardOutput_data();
    void refusesAnInputAsStandardOutput();
    void reportsThatStandardOutputIsFull();
    void saysThatTheFilesAreInPlaceWhenTheResultIsLost();
    void reportsThatNobodyReadsStandardOutput();
};

void StandardStreamsTest::worksThroughPipes()
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

void StandardStreamsTest::readsAFileOnStandardInputFromItsPosition()
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

void StandardStreamsTest::confusesNoFileWithAClosedStream_data()
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

void StandardStreamsTest::confusesNoFileWithAClosedStream()
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

void StandardStreamsTest::refusesAnInputAsStandardOutput_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("file");
    QTest::newRow("extract in place") << "extract top.fcf --output - 1<>top.fcf"
                                      << "top.fcf";
    QTest::newRow("extract its own input") << "extract - --output - <top.fcf 1<>top.fcf"
                                           << "top.fcf";
    QTest::newRow("show behind it") << "show top.fcf >>top.fcf"
                                    << "top.fcf";
    QTest::newRow("list behind it") << "list . >>top.fcf"
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

void StandardStreamsTest::refusesAnInputAsStandardOutput()
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

void StandardStreamsTest::reportsThatStandardOutputIsFull()
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

void StandardStreamsTest::saysThatTheFilesAreInPlaceWhenTheResultIsLost()
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

void StandardStreamsTest::reportsThatNobodyReadsStandardOutput()
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

ZORV_TEST(StandardStreamsTest)
#include "StandardStreamsTest.moc"
