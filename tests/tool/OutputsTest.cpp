#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

/// Where outputs may be, what they replace, and that nothing is touched by a refusal.
class OutputsTest : public QObject {
    Q_OBJECT

private slots:
    void refusesAnOutput_data();
    void refusesAnOutput();
    void findsABadPlaceBeforeAnythingIsOpened_data();
    void findsABadPlaceBeforeAnythingIsOpened();
    void refusesTheInputAsOutputUnderAnyName_data();
    void refusesTheInputAsOutputUnderAnyName();
    void refusesAnyOtherFileItReadsAsOutput_data();
    void refusesAnyOtherFileItReadsAsOutput();
    void keepsFilesThatAreNotItsOwn_data();
    void keepsFilesThatAreNotItsOwn();
    void replacesWhatItRecognises_data();
    void replacesWhatItRecognises();
    void replacesALinkAndNotWhatItLeadsTo();
    void warnsOfOutputsThatWillNotBelong();
};

void OutputsTest::refusesAnOutput_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("force");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("an image that exists")
        << "old.fcf" << false << "old.fcf: --output: exists already; --force replaces it" << 4;
    QTest::newRow("a companion that exists")
        << "half.fcf" << false << "half.txt: --output: exists already" << 4;
    QTest::newRow("a link into nothing")
        << "link.fcf" << false << "link.fcf: --output: exists" << 4;
    QTest::newRow("a folder") << "folder.fcf" << true << "folder.fcf: --output: is a folder" << 2;
    QTest::newRow("a pipe") << "pipe.fcf" << true << "pipe.fcf: --output: is not a file" << 2;
    QTest::newRow("a link to a device")
        << "device.fcf" << true << "device.fcf: --output: is not a file" << 2;
    QTest::newRow("another ending")
        << "image.bin" << true << "image.bin: --output: the name of an image ends with .fcf" << 2;
    QTest::newRow("a missing folder")
        << "none/a.fcf" << true << "none/a.fcf: --output: cannot be written: No such file" << 3;
    QTest::newRow("a folder that is a file")
        << "top.bin/a.fcf" << true << "a.fcf: --output: cannot be written: Not a directory" << 3;
    QTest::newRow("a folder that takes no files") << QString(UnwritableFolder) + "/a.fcf" << true
                                                  << "a.fcf: --output: cannot be written: " << 3;
    QTest::newRow("a name that is too long")
        << QString(252, 'x') + ".fcf" << true << "cannot be written: File name too long" << 3;
    QTest::newRow("a name with a line break")
        << "a\nb.fcf" << true << "fileName: holds a line break" << 2;
}

void OutputsTest::refusesAnOutput()
{
    QFETCH(QString, output);
    QFETCH(bool, force);
    QFETCH(QString, text);
    QFETCH(int, code);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    tool.write("old.fcf", "old");
    tool.write("half.txt", "old");
    QVERIFY(QFile::link("nowhere", tool.path("link.fcf")));
    QVERIFY(QFile::link("/dev/null", tool.path("device.fcf")));
    QVERIFY(QDir().mkdir(tool.path("folder.fcf")));
    QCOMPARE(::mkfifo(tool.argument("pipe.fcf").c_str(), 0600), 0);
    const QStringList before = tool.names();

    const Run run =
        tool.run(Arguments{"create", tool.argument("top.bin"), "--output", tool.argument(output)} +
                 ToolFixture::described() + (force ? Arguments{"--force"} : Arguments()));
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    QCOMPARE(run.code, code);
    QCOMPARE(tool.names(), before);
    QCOMPARE(tool.read("old.fcf"), QByteArray("old"));
    QCOMPARE(tool.read("half.txt"), QByteArray("old"));
}

void OutputsTest::findsABadPlaceBeforeAnythingIsOpened_data()
{
    QTest::addColumn<QString>("output");
    QTest::newRow("a missing folder") << "none/a.fcf";
    QTest::newRow("a name that is too long") << QString(252, 'x') + ".fcf";
    QTest::newRow("a name that is too long for its digest") << QString(245, 'x') + ".fcf";
}

void OutputsTest::findsABadPlaceBeforeAnythingIsOpened()
{
    QFETCH(QString, output);
    ToolFixture tool;
    tool.makeImage();
    const QStringList before = tool.names();
    const Run created = tool.create("top.bin", {"--digest", "--output", tool.argument(output)});
    QCOMPARE(created.code, 3);
    QVERIFY2(created.err.contains("--output: cannot be written: "), created.err);
    const std::string payload = tool.argument(output + ".sha256");
    QCOMPARE(tool.run({"extract", tool.argument("top.fcf"), "--output", payload}).code, 3);
    QCOMPARE(tool.names(), before);
}

void OutputsTest::refusesTheInputAsOutputUnderAnyName_data()
{
    QTest::addColumn<QString>("binary");
    QTest::addColumn<QString>("output");
    QTest::newRow("the same name") << "a.fcf"
                                   << "a.fcf";
    QTest::newRow("another way to it") << "a.fcf"
                                       << "./folder/../a.fcf";
    QTest::newRow("a hard link") << "a.fcf"
                                 << "hard.fcf";
    QTest::newRow("a symbolic link") << "a.fcf"
                                     << "soft.fcf";
    QTest::newRow("a symbolic link as the input") << "soft.fcf"
                                                  << "a.fcf";
    QTest::newRow("as the companion") << "b.txt"
                                      << "b.fcf";
}

void OutputsTest::refusesTheInputAsOutputUnderAnyName()
{
    QFETCH(QString, binary);
    QFETCH(QString, output);
    ToolFixture tool;
    const QByteArray bytes = ToolFixture::payload(100);
    tool.write("a.fcf", bytes);
    tool.write("b.txt", bytes);
    QVERIFY(QDir().mkdir(tool.path("folder")));
    QCOMPARE(::link(tool.argument("a.fcf").c_str(), tool.argument("hard.fcf").c_str()), 0);
    QVERIFY(QFile::link("a.fcf", tool.path("soft.fcf")));

    const Run run = tool.run(
        Arguments{"create", tool.argument(binary), "--output", tool.argument(output), "--force"} +
        ToolFixture::described());
    QVERIFY2(run.err.contains("--output: is the input itself"), run.err);
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.read(binary), bytes);

    // The same is true of what is taken out of an image.
    tool.makeImage();
    const QByteArray image = tool.read("top.fcf");
    const Run extracted = tool.run({"extract", tool.argument("top.fcf"), "--output",
                                    tool.argument("./folder/../top.fcf"), "--force"});
    QCOMPARE(extracted.code, 2);
    QCOMPARE(tool.read("top.fcf"), image);
}

void OutputsTest::refusesAnyOtherFileItReadsAsOutput_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("input");
    QTest::newRow("a description as the companion") << "--description"
                                                    << "@"
                                                    << "n.txt";
    QTest::newRow("a description as the image") << "--description"
                                                << "@"
                                                << "n.fcf";
    QTest::newRow("a description by a link") << "--description"
                                             << "@"
                                             << "link";
    QTest::newRow("a description as the digest") << "--description"
                                                 << "@"
                                                 << "n.fcf.sha256";
    QTest::newRow("a recipe by a link") << "--like"
                                        << ""
                                        << "link.json";
}

void OutputsTest::refusesAnyOtherFileItReadsAsOutput()
{
    QFETCH(QString, option);
    QFETCH(QString, before);
    QFETCH(QString, input);
    ToolFixture tool;
    const QByteArray bytes = option == "--like" ? "{ \"recipe\": 2 }" : "what the build is";
    tool.write("top.bin", ToolFixture::payload(100));
    const bool linked = input.startsWith("link");
    tool.write(linked ? "n.txt" : input, bytes);
    if (linked)
        QVERIFY(QFile::link("n.txt", tool.path(input)));
    const QStringList names = tool.names();

    const Arguments described = option == "--description"
                                    ? ToolFixture::describedWithout("--description")
                                    : ToolFixture::described();
    const Run run = tool.run(Arguments{"create", tool.argument("top.bin"), "--digest", "--force",
                                       "--output", tool.argument("n.fcf"), option.toStdString(),
                                       before.toStdString() + tool.argument(input)} +
                             described);
    QVERIFY2(run.err.contains("--output: is the input itself, \""), run.err);
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.read(input), bytes);
    QCOMPARE(tool.names(), names);
}

void OutputsTest::keepsFilesThatAreNotItsOwn_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("kind");
    const QByteArray notes = "Release notes: the spectrum is computed twice as fast.\n";
    const QByteArray digest = QByteArray(64, 'a') + "  top.fcf\n";
    QTest::newRow("notes as the companion, forced") << "top.txt" << notes << "--force"
                                                    << "companion";
    QTest::newRow("notes as the companion") << "top.txt" << notes << "--if-changed"
                                            << "companion";
    QTest::newRow("an image as the companion") << "top.txt" << ForgedImage().bytes() << "--force"
                                               << "companion";
    QTest::newRow("notes as the digest, forced") << "top.fcf.sha256" << notes << "--force"
                                                 << "digest";
    QTest::newRow("notes as the digest") << "top.fcf.sha256" << notes << "--if-changed"
                                         << "digest";
    QTest::newRow("a list as the digest") << "top.fcf.sha256" << digest + digest << "--force"
                                          << "digest";
    QTest::newRow("notes as the image") << "top.fcf" << notes << "--if-changed"
                                        << "image";
}

void OutputsTest::keepsFilesThatAreNotItsOwn()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, option);
    QFETCH(QString, kind);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4001));
    tool.write(name, bytes);
    const QStringList before = tool.names();

    Run run = tool.run(tool.createAll({option.toStdString()}));
    QCOMPARE(run.code, 2);
    const QString text = QString("/%1: --output: exists already, and is not replaced, as it is "
                                 "no %2: move it away")
                             .arg(name, kind);
    QVERIFY2(run.err.contains(text.toUtf8()), run.err);
    QCOMPARE(tool.names(), before);
    QCOMPARE(tool.read(name), bytes);

    // Without either option no message suggests one that would be refused.
    run = tool.run(tool.createAll());
    QCOMPARE(run.code, 4);
    QCOMPARE(run.err.contains("--force replaces it"), kind == "image");
}

void OutputsTest::replacesWhatItRecognises_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("option");
    ForgedImage damaged;
    damaged.text.replace("Date: ", "Dato: ");
    const QByteArray digest = QByteArray(64, 'a');
    QTest::newRow("a damaged companion") << "top.txt" << damaged.page() << "--if-changed";
    QTest::newRow("a companion that is cut") << "top.txt" << damaged.page().left(700) << "--force";
    QTest::newRow("a digest with another name")
        << "top.fcf.sha256" << digest + "  old/other.fcf\r\n"
        << "--if-changed";
    QTest::newRow("a digest with a tag") << "top.fcf.sha256"
                                         << "SHA256 (top.fcf) = " + digest << "--force";
    QTest::newRow("a damaged image") << "top.fcf" << damaged.bytes() << "--if-changed";
    QTest::newRow("nothing as the companion") << "top.txt" << QByteArray() << "--force";
    QTest::newRow("nothing as the digest") << "top.fcf.sha256" << QByteArray() << "--if-changed";
    QTest::newRow("nothing as the image") << "top.fcf" << QByteArray() << "--if-changed";
    QTest::newRow("any file as the image") << "top.fcf" << QByteArray("notes") << "--force";
}

void OutputsTest::replacesWhatItRecognises()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, option);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4001));
    tool.write(name, bytes);
    const Run run = tool.run(tool.createAll({option.toStdString()}));
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.verifyAll().code, 0);
}

void OutputsTest::replacesALinkAndNotWhatItLeadsTo()
{
    ToolFixture tool;
    tool.write("precious", "precious");
    QVERIFY(QFile::link("precious", tool.path("top.fcf")));
    QVERIFY(QFile::link("nowhere", tool.path("top.txt")));
    QCOMPARE(tool.createTop().code, 4);
    QCOMPARE(tool.createTop({"--force"}).code, 0);
    QCOMPARE(tool.read("precious"), QByteArray("precious"));
    QVERIFY(!QFileInfo(tool.path("top.fcf")).isSymLink());
    QVERIFY(!tool.exists("nowhere"));
}

void OutputsTest::warnsOfOutputsThatWillNotBelong()
{
    ToolFixture tool;
    tool.createTop({"--digest"});
    const Run run = tool.createTop({"--force", "--no-companion"});
    QCOMPARE(run.code, 0);
    const QByteArray warning = "exists, is not written, and so will not belong to the new image";
    QCOMPARE(run.err.count(warning), 2);
    QCOMPARE(tool.createTop({"--force", "--no-companion", "--strict"}).code, 2);
}

ZORV_TEST(OutputsTest)
#include "OutputsTest.moc"
