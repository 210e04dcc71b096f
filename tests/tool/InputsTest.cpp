#include "ProgramTest.h"
#include "support/TestProgram.h"

#include "tool/check/Findings.h"
#include "tool/check/NewImageChecker.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <unistd.h>

/// The files that are read: names of all kinds, what is no file, and what changes meanwhile.
class InputsTest : public ProgramTest {
    Q_OBJECT

private slots:
    void takesNamesOfAllKinds_data();
    void takesNamesOfAllKinds();
    void takesANameThatBeginsWithAColon();
    void printsNoControlCharacterOfAPath();
    void readsANamedPipe();
    void refusesABinary_data();
    void refusesABinary();
    void knowsTheLargestBinary();
    void refusesABinaryThatChangesMeanwhile_data();
    void refusesABinaryThatChangesMeanwhile();
};

void InputsTest::takesNamesOfAllKinds_data()
{
    QTest::addColumn<QString>("name");
    for (const char* const name :
         {"two words", " blanks ", "it's", "\"quoted\"", "$HOME `x`", "back\\slash", "Grün",
          "Карта",     "字節",     "😀",    "-dash",      "--force",   "[a,b]",       "{}",
          "%1",        "*?",       "a:b",  "a: b",       "~",         "tab\there",   "verify"})
        QTest::newRow(name) << QString::fromUtf8(name);
}

void InputsTest::takesNamesOfAllKinds()
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
    const QJsonObject shown = run({"show", "--json", image}).firstFile();
    QCOMPARE(shown["header"].toObject()["fileName"].toString(), name + ".fcf");
}

void InputsTest::takesANameThatBeginsWithAColon()
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

void InputsTest::printsNoControlCharacterOfAPath()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    const QString folder = "a\x1b[2J\tb";
    QVERIFY(QDir(tool.path("")).mkdir(folder));
    const QByteArray shown = tool.path("a\\u001b[2J\\u0009b/top").toUtf8();
    const Arguments output{"--output", tool.argument(folder + "/top.fcf"), "--digest"};
    Run run = tool.create("top.bin", output);
    QCOMPARE(run.code, 0);
    QCOMPARE(run.out, shown + ".fcf\n" + shown + ".txt\n" + shown + ".fcf.sha256\n");
    run = tool.create("top.bin", output + Arguments{"--if-changed"});
    QCOMPARE(run.out, shown + ".fcf: unchanged\n" + shown + ".txt: unchanged\n" + shown +
                          ".fcf.sha256: unchanged\n");
    run = tool.run({"extract", tool.argument(folder + "/top.fcf"), "--output",
                    tool.argument(folder + "/top.bin")});
    QCOMPARE(run.out, shown + ".bin\n");
    QCOMPARE(tool.read(folder + "/top.bin"), tool.read("top.bin"));
}

void InputsTest::readsANamedPipe()
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

void InputsTest::refusesABinary_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("missing") << "none.bin"
                             << "none.bin: BIN: cannot be read: No such file" << 3;
    QTest::newRow("empty") << "empty.bin"
                           << "empty.bin: binFileSize: the binary is empty" << 2;
    QTest::newRow("a folder") << "folder.bin"
                              << "folder.bin: BIN: cannot be read: it is a folder" << 3;
    QTest::newRow("a device") << "device.bin"
                              << "device.bin: BIN: cannot be read: it is a device" << 3;
    QTest::newRow("a link to nothing") << "link.bin"
                                       << "link.bin: BIN: cannot be read: No such file" << 3;
    QTest::newRow("a link to itself") << "loop.bin"
                                      << "loop.bin: BIN: cannot be read: Too many levels" << 3;
    QTest::newRow("2 GiB less a page") << "huge.bin"
                                       << "huge.bin: binFileSize: the binary is too "
                                          "large: a size field holds no more than "
                                          "2147481535 bytes"
                                       << 2;
    QTest::newRow("a name without .bin")
        << "top.dat"
        << "top.dat: --output: is missing: only a name that ends with .bin" << 2;
    QTest::newRow("standard input without an output")
        << "-"
        << "standard input: --output: is missing" << 2;
}

void InputsTest::refusesABinary()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(int, code);
    ToolFixture tool;
    tool.in = ToolFixture::payload(100);
    tool.write("top.dat", ToolFixture::payload(100));
    tool.write("empty.bin", QByteArray());
    QVERIFY(QDir().mkdir(tool.path("folder.bin")));
    QVERIFY(QFile::link("/dev/zero", tool.path("device.bin")));
    QVERIFY(QFile::link("nothing", tool.path("link.bin")));
    QVERIFY(QFile::link("loop.bin", tool.path("loop.bin")));
    tool.write("huge.bin", ToolFixture::payload(100));
    QCOMPARE(::truncate(tool.argument("huge.bin").c_str(), 2147483648L - 2112), 0);
    const QStringList before = tool.names();

    const std::string binary = name == "-" ? "-" : tool.argument(name);
    const Run run = tool.run(Arguments{"create", binary, "--force"} + ToolFixture::described());
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    QCOMPARE(run.code, code);
    QCOMPARE(tool.names(), before);
}

void InputsTest::knowsTheLargestBinary()
{
    Findings findings;
    NewImageChecker(&findings, "a.bin").checkBinarySize(2147483647 - 2112);
    QVERIFY(!findings.hasErrors());
    NewImageChecker(&findings, "a.bin").checkBinarySize(2147483648 - 2112);
    QVERIFY(findings.exitCode() == ExitCode::Refused);
}

void InputsTest::refusesABinaryThatChangesMeanwhile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isAnotherFile");
    QTest::addColumn<QByteArray>("reason");
    const QByteArray other = ToolFixture::payload(3999) + '!';
    QTest::newRow("shorter") << ToolFixture::payload(3999) << false
                             << QByteArray("the payload ends after 3999 of 4000 bytes");
    QTest::newRow("longer") << ToolFixture::payload(4001) << false
                            << QByteArray("the payload is longer than its 4000 bytes");
    QTest::newRow("written in place") << other << false << QByteArray("it was changed meanwhile");
    QTest::newRow("another file") << other << true << QByteArray("it was changed meanwhile");
}

void InputsTest::refusesABinaryThatChangesMeanwhile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isAnotherFile);
    QFETCH(QByteArray, reason);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray image = tool.read("top.fcf");
    const QStringList before = tool.names();

    // The clock is read when the binary is open.
    tool.setAge({"top.bin"}, 60);
    tool.environment.clock = [&] {
        if (isAnotherFile)
            QFile::remove(tool.path("top.bin"));
        tool.write("top.bin", bytes);
        return QDateTime({2024, 5, 31}, {13, 45, 0});
    };
    const Run run = tool.run(tool.createAll({"--force"}));
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("/top.bin: payload: cannot be read: " + reason), run.err);
    QCOMPARE(tool.names(), before);
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.bin"), bytes);
}

ZORV_TEST(InputsTest)
#include "InputsTest.moc"
