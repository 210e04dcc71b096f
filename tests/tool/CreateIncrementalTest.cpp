#include "FaultyFileSystem.h"
#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QFile>
#include <QFileInfo>
#include <QtTest>

/// What build systems need: files that stay as they are, and lists of what was read.
class CreateIncrementalTest : public QObject {
    Q_OBJECT

private slots:
    void leavesUnchangedFilesUntouched();
    void replacesWhatChanged_data();
    void replacesWhatChanged();
    void addsWhatIsMissingBesideAnUnchangedImage_data();
    void addsWhatIsMissingBesideAnUnchangedImage();
    void takesWhatIsRightBesideAnUnchangedImage_data();
    void takesWhatIsRightBesideAnUnchangedImage();
    void hashesNoOldImageThatDiffers();
    void listsWhatItReads();
    void listsAnImageThatItIsLikeButNotItself();
    void refusesADepFileInTheWay_data();
    void refusesADepFileInTheWay();
};

void CreateIncrementalTest::leavesUnchangedFilesUntouched()
{
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(tool.create("top.bin", {"--if-changed", "--digest"}).code, 0);
    const auto stamps = [&tool] {
        QStringList all;
        for (const char* const name : {"top.fcf", "top.txt", "top.fcf.sha256"})
            all << QFileInfo(tool.path(name)).lastModified().toString(Qt::ISODateWithMs);
        return all;
    };
    tool.setAge(tool.names(), 3600);
    const QStringList before = stamps();
    tool.environment.clock = [] { return QDateTime({2030, 1, 1}, {0, 0, 0}); };
    const Run run = tool.create("top.bin", {"--if-changed", "--digest"});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.contains("top.fcf: unchanged\n"), run.out);
    const Run quiet = tool.create("top.bin", {"--if-changed", "--digest", "--quiet"});
    QCOMPARE(quiet.code, 0);
    QCOMPARE(quiet.out + quiet.err, QByteArray());
    QCOMPARE(stamps(), before);
    const QJsonObject json = tool.create("top.bin", {"--if-changed", "--digest", "--json"}).json();
    QVERIFY(!json["changed"].toBool(true));
    QCOMPARE(json["header"].toObject()["time"].toString(), QString("13:45:00"));
}

void CreateIncrementalTest::replacesWhatChanged_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("options");
    QTest::newRow("the binary") << "top.bin" << ToolFixture::payload(4001) << QStringList();
    QTest::newRow("a byte of it") << "top.bin" << ToolFixture::payload(3999) + "!" << QStringList();
    QTest::newRow("the companion") << "top.txt" << ForgedImage().page() << QStringList();
    QTest::newRow("the digest") << "top.fcf.sha256" << QByteArray(64, 'a') + "  top.fcf\n"
                                << QStringList();
    QTest::newRow("the image") << "top.fcf" << ForgedImage().bytes() << QStringList();
    QTest::newRow("a function") << "other" << QByteArray()
                                << QStringList{"--function", "a", "b", "c", "d"};
    QTest::newRow("the padding") << "other" << QByteArray() << QStringList{"--pad-to", "page"};
}

void CreateIncrementalTest::replacesWhatChanged()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, bytes);
    QFETCH(QStringList, options);
    ToolFixture tool;
    tool.makeImage();
    QCOMPARE(tool.create("top.bin", {"--force", "--digest"}).code, 0);
    tool.write(name, bytes);
    const Run run =
        tool.create("top.bin", Arguments{"--if-changed", "--digest"} + toArguments(options));
    QVERIFY2(run.code == 0, run.err);
    const QByteArray written = name == "top.bin" || name == "other" ? "top.fcf" : name.toUtf8();
    QVERIFY2(run.out.contains('/' + written + '\n'), run.out);
    QCOMPARE(tool.verifyAll().code, 0);
}

void CreateIncrementalTest::addsWhatIsMissingBesideAnUnchangedImage_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::newRow("the companion") << QStringList("top.txt");
    QTest::newRow("the digest") << QStringList("top.fcf.sha256");
    QTest::newRow("both") << QStringList{"top.txt", "top.fcf.sha256"};
}

void CreateIncrementalTest::addsWhatIsMissingBesideAnUnchangedImage()
{
    QFETCH(QStringList, missing);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const QByteArray image = tool.read("top.fcf");
    const QByteArray companion = tool.read("top.txt");
    tool.setAge({"top.fcf"}, 3600);
    const QDateTime stamp = QFileInfo(tool.path("top.fcf")).lastModified();
    for (const QString& name : missing)
        QVERIFY(QFile::remove(tool.path(name)));

    // A companion of the time of this run would not be that of the image.
    tool.environment.clock = [] { return QDateTime({2030, 1, 1}, {0, 0, 0}); };
    const Run run = tool.run(tool.createAll({"--if-changed", "--strict"}));
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(tool.read("top.fcf"), image);
    QCOMPARE(tool.read("top.txt"), companion);
    QCOMPARE(QFileInfo(tool.path("top.fcf")).lastModified(), stamp);
    QCOMPARE(tool.verifyAll().code, 0);

    QVERIFY2(run.out.contains("top.fcf: unchanged\n"), run.out);
    for (const QString& name : {QString("top.txt"), QString("top.fcf.sha256")})
        QCOMPARE(run.out.contains('/' + name.toUtf8() + '\n'), missing.contains(name));
}

void CreateIncrementalTest::takesWhatIsRightBesideAnUnchangedImage_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("wrong");
    QTest::newRow("a digest") << QStringList() << "top.fcf.sha256";
    QTest::newRow("a companion") << QStringList{"--digest", "--no-companion"} << "top.txt";
}

void CreateIncrementalTest::takesWhatIsRightBesideAnUnchangedImage()
{
    QFETCH(QStringList, options);
    QFETCH(QString, wrong);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool.run(tool.createAll()).code, 0);
    const Arguments arguments = Arguments{"--if-changed", "--strict"} + toArguments(options);

    const QByteArray right = tool.read(wrong);
    Run run = tool.create("top.bin", arguments);
    QVERIFY2(run.code == 0, run.err);

    // One of another form is as right, and one of another image is not.
    if (wrong.endsWith(".sha256")) {
        tool.write(wrong, right.left(64) + " *out/top.fcf\n");
        QCOMPARE(tool.create("top.bin", arguments).code, 0);
    }
    QByteArray other = right;
    other.replace(wrong.endsWith(".txt") ? "Ann" : right.left(1),
                  wrong.endsWith(".txt") ? "Bob" : "x");
    tool.write(wrong, other);
    run = tool.create("top.bin", arguments);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("will not belong to the new image"), run.err);
    QCOMPARE(tool.read(wrong), other);
}

void CreateIncrementalTest::hashesNoOldImageThatDiffers()
{
    ToolFixture tool;
    constexpr int Size = 8 * 1024 * 1024;
    QByteArray payload = ToolFixture::payload(Size);
    tool.write("top.bin", payload);
    QCOMPARE(tool.create("top.bin", {"--force", "--digest"}).code, 0);

    payload[Size - 1] = static_cast<char>(~payload.at(Size - 1));
    tool.write("top.bin", payload);
    faults = Faults();
    const Run run = tool.create("top.bin", {"--force", "--digest", "--if-changed"});
    QCOMPARE(run.code, 0);
    QVERIFY(tool.read("top.fcf").endsWith(payload));
    // The two payloads are compared, and the old image is not read again.
    QVERIFY2(faults.bytesRead > 2 * Size, qPrintable(QString::number(faults.bytesRead)));
    QVERIFY2(faults.bytesRead < 3 * Size, qPrintable(QString::number(faults.bytesRead)));
}

void CreateIncrementalTest::listsWhatItReads()
{
    ToolFixture tool;
    tool.makeImage();
    QVERIFY(QFile::rename(tool.path("top.bin"), tool.path("a $b #c.bin")));
    tool.write("notes.txt", "notes");
    tool.write("r.json", "{\"recipe\": 2, \"author\": \"Ann\", \"ciNumber\": \"42\", \"module\": "
                         "\"DFE\", \"device\": \"Interface_FPGA\", \"configNumber\": 1, "
                         "\"version\": \"1.0\", \"descriptionFile\": \"notes.txt\"}");
    const QByteArray folder = QByteArray::fromStdString(tool.argument("")) + '/';
    const Arguments create{
        "create", tool.argument("a $b #c.bin"), "--output",  tool.argument("x y.fcf"),
        "--like", tool.argument("r.json"),      "--depfile", tool.argument("x.d")};
    Run run = tool.run(create);
    QVERIFY2(run.code == 0, run.err);
    const QByteArray inputs = " \\\n  " + folder + "r.json \\\n  " + folder + "notes.txt \\\n  " +
                              folder + "a\\ $$b\\ \\#c.bin\n";
    QCOMPARE(tool.read("x.d"), folder + "x\\ y.fcf:" + inputs);

    // It is written again when nothing else is, as the inputs may have changed.
    QVERIFY(QFile::remove(tool.path("x.d")));
    run = tool.run(create + Arguments{"--if-changed", "--depfile-target", "stamp"});
    QVERIFY2(run.out.contains("x y.fcf: unchanged"), run.out);
    QCOMPARE(tool.read("x.d"), "stamp:" + inputs);
}

void CreateIncrementalTest::listsAnImageThatItIsLikeButNotItself()
{
    ToolFixture tool;
    tool.makeImage();
    QVERIFY(QFile::copy(tool.path("top.fcf"), tool.path("old.fcf")));
    tool.write("notes.txt", "notes");
    const auto inputs = [&](const char* like) {
        const Run run = tool.run({"create", tool.argument("top.bin"), "--like", tool.argument(like),
                                  "--force", "--description", "@" + tool.argument("notes.txt"),
                                  "--depfile", tool.argument("top.d")});
        return run.code == 0 ? tool.read("top.d") : run.err;
    };
    const QByteArray folder = QByteArray::fromStdString(tool.argument("")) + '/';
    const QByteArray other = inputs("old.fcf");
    QCOMPARE(other.count("old.fcf"), 1);
    QCOMPARE(other.count("top.fcf"), 1);
    const QByteArray own = inputs("top.fcf");
    QCOMPARE(own.count("top.fcf"), 1);
    QVERIFY(own.startsWith(folder + "top.fcf:"));
    QVERIFY2(own.contains(folder + "notes.txt") && own.contains(folder + "top.bin"), own);
}

void CreateIncrementalTest::refusesADepFileInTheWay_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("the binary") << "top.bin";
    QTest::newRow("the image") << "new.fcf";
    QTest::newRow("the companion") << "new.txt";
    QTest::newRow("the digest") << "./new.fcf.sha256";
    QTest::newRow("a folder") << ".";
}

void CreateIncrementalTest::refusesADepFileInTheWay()
{
    QFETCH(QString, file);
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(4000));
    const Run run = tool.create(
        "top.bin", {"--output", tool.argument("new.fcf"), "--depfile", tool.argument(file)});
    QCOMPARE(run.code, 2);
    QCOMPARE(tool.names(), QStringList("top.bin"));
    QCOMPARE(tool.read("top.bin"), ToolFixture::payload(4000));
}

ZORV_TEST(CreateIncrementalTest)
#include "CreateIncrementalTest.moc"
