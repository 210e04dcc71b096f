#include "FaultyFileSystem.h"
#include "VerifyingTest.h"

#include "tool/base/Text.h"

#include <QFile>
#include <QJsonArray>
#include <QtTest>

#include <unistd.h>

/// What goes wrong in pipelines and at the bench, and what the tool says about it.
class PitfallTest : public VerifyingTest {
    Q_OBJECT

private slots:
    void init();
    void refusesAnImageAsTheBinary();
    void refusesABinaryThatIsWrittenWhileItIsCopied_data();
    void refusesABinaryThatIsWrittenWhileItIsCopied();
    void extractsNothingThatTheDigestContradicts();
    void extractsNothingThatTheCompanionContradicts();
    void checksTheCompanionBesideTheImage();
    void requiresADigest();
    void takesADigestThatWasRenamedWithItsImage();
    void escapesWhatIsNotPrintableInJson();
    void warnsOfCharactersThatDoNotShow_data();
    void warnsOfCharactersThatDoNotShow();
    void writesNoBinaryDataToATerminal();
    void refusesAnOptionAsAValue_data();
    void refusesAnOptionAsAValue();
    void namesWhatIsNoFcfFile_data();
    void namesWhatIsNoFcfFile();
    void reportsAllErrorsOfABuildTogether();
    void printsAnArgumentInBracketsAsItIs();
    void namesFunctionsAmongTheLargestFields();
    void warnsOfNothingElseWhenTheDescriptionIsTooLong();
    void saysThatTheAuthorOfAnotherBuildIsBlank();
    void knowsWhereASyncWordBelongs_data();
    void knowsWhereASyncWordBelongs();
    void notesALengthThatIsNoMultipleOfFour();
    void hashesNoOldImageThatDiffers();

private:
    Run create(const Arguments& more = {})
    {
        return m_tool.run(Arguments{"create", m_tool.argument("top.bin"), "--force"} +
                          ToolFixture::described() + more);
    }
};

void PitfallTest::init()
{
    m_tool.environment = ToolFixture().environment;
    for (const QString& name : m_tool.names())
        QVERIFY(QFile::remove(m_tool.path(name)));
}

void PitfallTest::refusesAnImageAsTheBinary()
{
    m_tool.makeImage();
    QVERIFY(QFile::copy(m_tool.path("top.fcf"), m_tool.path("image.bin")));
    const Run run =
        m_tool.run(Arguments{"create", m_tool.argument("image.bin")} + ToolFixture::described());
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("image.bin: payload: is an FCF image already: extract it first"),
             run.err);
    QVERIFY(!m_tool.exists("image.fcf"));
}

void PitfallTest::refusesABinaryThatIsWrittenWhileItIsCopied_data()
{
    QTest::addColumn<bool>("replaces");
    QTest::newRow("in place") << false;
    QTest::newRow("by another file") << true;
}

void PitfallTest::refusesABinaryThatIsWrittenWhileItIsCopied()
{
    QFETCH(bool, replaces);
    m_tool.makeImage();
    const QByteArray image = m_tool.read("top.fcf");
    // The clock is read when the binary is open.
    m_tool.environment.clock = [&] {
        if (replaces)
            QFile::remove(m_tool.path("top.bin"));
        m_tool.write("top.bin", ToolFixture::payload(3999) + "!");
        return QDateTime({2024, 5, 31}, {13, 45, 0});
    };
    // A file system keeps time in steps of some milliseconds.
    QTest::qWait(20);
    const Run run = create();
    QCOMPARE(run.code, 3);
    QVERIFY2(run.err.contains("top.bin: payload: cannot be read: it was changed meanwhile"),
             run.err);
    QCOMPARE(m_tool.read("top.fcf"), image);
}

void PitfallTest::extractsNothingThatTheDigestContradicts()
{
    m_tool.makeImage();
    QCOMPARE(create({"--digest"}).code, 0);
    QByteArray image = m_tool.read("top.fcf");
    image[image.size() - 1] = static_cast<char>(image.back() ^ 1);
    m_tool.write("top.fcf", image);
    const Arguments extract{"extract", m_tool.argument("top.fcf"), "--output",
                            m_tool.argument("out.bin")};
    const Run run = m_tool.run(extract);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains("digest at offset 0: is not that of "), run.err);
    QVERIFY(!m_tool.exists("out.bin"));
    QCOMPARE(m_tool.run(extract + Arguments{"--no-digest"}).code, 0);
    QVERIFY(m_tool.exists("out.bin"));
}

void PitfallTest::extractsNothingThatTheCompanionContradicts()
{
    m_tool.makeImage();
    m_tool.write("top.txt", m_tool.read("top.txt").replace("Ann", "Eve"));
    const Arguments extract{"extract", m_tool.argument("top.fcf"), "--output",
                            m_tool.argument("out.bin")};
    const Run run = m_tool.run(extract);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.err.contains("is not the companion "), run.err);
    QVERIFY(!m_tool.exists("out.bin"));
    QCOMPARE(m_tool.run(extract + Arguments{"--no-companion"}).code, 0);
}

void PitfallTest::checksTheCompanionBesideTheImage()
{
    m_tool.makeImage();
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.fcf")}).code, 0);
    m_tool.write("top.txt", m_tool.read("top.txt").replace("Ann", "Eve"));
    const Run run = m_tool.run({"verify", m_tool.argument("top.fcf")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("header at offset 101: is not the companion "), run.out);
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.fcf"), "--no-companion"}).code, 0);
}

void PitfallTest::requiresADigest()
{
    m_tool.makeImage();
    const Arguments verify{"verify", m_tool.argument("top.fcf"), "--require-digest"};
    const Run run = m_tool.run(verify);
    QCOMPARE(run.code, 1);
    QVERIFY2(run.out.contains("digest: is required, and there is none"), run.out);
    QCOMPARE(create({"--digest"}).code, 0);
    QCOMPARE(m_tool.run(verify).code, 0);
}

void PitfallTest::takesADigestThatWasRenamedWithItsImage()
{
    m_tool.makeImage();
    QCOMPARE(create({"--digest", "--no-companion"}).code, 0);
    QVERIFY(QFile::rename(m_tool.path("top.fcf"), m_tool.path("new.fcf")));
    QVERIFY(QFile::rename(m_tool.path("top.fcf.sha256"), m_tool.path("new.fcf.sha256")));
    const Run run = m_tool.run({"verify", m_tool.argument("new.fcf")});
    QCOMPARE(run.code, 0);
    QVERIFY2(run.out.contains("new.fcf.sha256: digest: is of a file with another name"), run.out);
    m_tool.write("new.fcf", m_tool.read("new.fcf") + "x");
    QVERIFY(m_tool.run({"verify", m_tool.argument("new.fcf")})
                .out.contains("digest at offset 0: is "
                              "not that of"));
}

void PitfallTest::escapesWhatIsNotPrintableInJson()
{
    ForgedImage image;
    image.text.replace("Ann", "A\u0085\u202en\U000e0041\u3164z");
    m_tool.write("top.fcf", image.bytes());
    for (const char* const command : {"show", "recipe", "verify"}) {
        const Run run = m_tool.run({command, m_tool.argument("top.fcf"), "--json"});
        for (const char32_t character : QString::fromUtf8(run.out + run.err).toUcs4())
            QVERIFY2(isPrintable(character) || character == '\n', run.out);
        QVERIFY(!run.json().isEmpty());
    }
    const QJsonObject header = m_tool.run({"show", m_tool.argument("top.fcf"), "--json"})
                                   .json()["files"]
                                   .toArray()[0]
                                   .toObject()["header"]
                                   .toObject();
    QCOMPARE(header["author"].toString(), QString::fromUtf8("A\u0085\u202en\U000e0041\u3164z"));

    // A control character makes an image invalid, of which there is no recipe.
    image.text.replace("\u0085", "");
    m_tool.write("top.fcf", image.bytes());
    const Run recipe = m_tool.run({"recipe", m_tool.argument("top.fcf")});
    QVERIFY2(recipe.out.contains("A\\u202en\\udb40\\udc41\\u3164z"), recipe.out);
}

void PitfallTest::warnsOfCharactersThatDoNotShow_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("shown");
    QTest::newRow("a mark that turns the direction")
        << QString(QChar(0x202e)) << QByteArray("\\u202e");
    QTest::newRow("a blank without a width") << QString(QChar(0x200b)) << QByteArray("\\u200b");
    QTest::newRow("an invisible letter") << QString(QChar(0x3164)) << QByteArray("\\u3164");
    QTest::newRow("a soft hyphen") << QString(QChar(0xad)) << QByteArray("\\u00ad");
}

void PitfallTest::warnsOfCharactersThatDoNotShow()
{
    QFETCH(QString, text);
    QFETCH(QByteArray, shown);
    m_tool.makeImage();
    const Run run = create({"--function", "f" + text.toStdString(), "a", "b", "c"});
    QCOMPARE(run.code, 0);
    const QByteArray message =
        "functions[0].name: has the character " + shown + ", which is not shown as a letter";
    QVERIFY2(run.err.contains("warning: ") && run.err.contains(message), run.err);
    QVERIFY(m_tool.run({"verify", m_tool.argument("top.fcf")}).out.contains("note: "));
    QCOMPARE(create({"--strict", "--function", text.toStdString(), "a", "b", "c"}).code, 2);
}

void PitfallTest::writesNoBinaryDataToATerminal()
{
    m_tool.makeImage();
    m_tool.environment.outIsTerminal = true;
    const Run created = create({"--output", "-", "--no-companion"});
    QCOMPARE(created.code, 2);
    QVERIFY2(created.err.contains("standard output: --output: is a terminal"), created.err);
    QCOMPARE(created.out, QByteArray());
    QCOMPARE(m_tool.run({"extract", m_tool.argument("top.fcf"), "--output", "-"}).code, 2);
    QCOMPARE(m_tool.run({"show", m_tool.argument("top.fcf")}).code, 0);
}

void PitfallTest::refusesAnOptionAsAValue_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("message");
    QTest::newRow("an empty variable")
        << QStringList{"--author", "--strict"}
        << QByteArray("--author lacks a value, as \"--strict\" is an option; to give it as the "
                      "value write --author=--strict");
    QTest::newRow("a function of three texts")
        << QStringList{"--function", "a", "b", "c", "--digest"}
        << QByteArray("--function lacks a value, as \"--digest\" is an option");
    QTest::newRow("help") << QStringList{"--description", "--help"}
                          << QByteArray("--description lacks a value");
}

void PitfallTest::refusesAnOptionAsAValue()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, message);
    m_tool.write("top.bin", ToolFixture::payload(100));
    Arguments more;
    for (const QString& argument : arguments)
        more.push_back(argument.toStdString());
    const Run run = m_tool.run(Arguments{"create", m_tool.argument("top.bin")} + more);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains(message), run.err);
    // As it says.
    const Run taken =
        m_tool.run(Arguments{"create", m_tool.argument("top.bin")} +
                   Arguments{"--author=--strict", "--ci", "4", "--module", "DFE", "--device",
                             "Interface_FPGA", "--config", "1", "--version", "1.0"});
    QVERIFY2(taken.code == 0, taken.err);
    QVERIFY(m_tool.read("top.txt").contains("Author: --strict\n"));
}

void PitfallTest::namesWhatIsNoFcfFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    QTest::newRow("erased flash") << QByteArray(1024 * 1024, '\xff')
                                  << "is no FCF file: it is erased flash, 0xFF from its start";
    QTest::newRow("zeros") << QByteArray(4096, '\0')
                           << "is no FCF file: it has nothing but zeros at its start";
    QTest::newRow("something else")
        << QByteArray(4096, 'x')
        << "is no FCF file: neither the reserved words nor the beginning of the text are there";
    QTest::newRow("a few bytes") << QByteArray("bad")
                                 << "is no FCF header page: it ends before the text";
}

void PitfallTest::namesWhatIsNoFcfFile()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const Run run = verifyBytes(bytes);
    QCOMPARE(run.code, 1);
    QCOMPARE(run.finding("text")["reason"].toString(), reason);
}

void PitfallTest::reportsAllErrorsOfABuildTogether()
{
    m_tool.write("top.bin", ToolFixture::payload(100));
    const Run run = m_tool.run({"create", m_tool.argument("top.bin"), "--version", "1", "--author",
                                " ", "--config", "11", "--module", "GPM"});
    QCOMPARE(run.code, 2);
    for (const char* const message :
         {"--version: \"1\" is not two numbers", "author: is blank: give --author",
          "ciNumber: is missing: give --ci", "device: is missing: give --device",
          "configNumber: 11 is no slot"})
        QVERIFY2(run.err.contains(message), run.err);
    // What was refused is not missing as well.
    QVERIFY2(!run.err.contains("version: is missing"), run.err);
}

void PitfallTest::printsAnArgumentInBracketsAsItIs()
{
    m_tool.makeImage();
    const Run run = m_tool.run({"recipe", m_tool.argument("top.fcf"), "[b]"});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("[b]") && !run.err.contains("u0001"), run.err);
}

void PitfallTest::namesFunctionsAmongTheLargestFields()
{
    m_tool.write("top.bin", ToolFixture::payload(100));
    Arguments functions;
    for (int index = 0; index < 30; ++index)
        functions = functions + Arguments{"--function", "12345", "12345", "12345", "12345"};
    const Run run = create(functions);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("labels included, functions has 2940, description has 19, fileName "
                              "has 18 and the rest 129\n"),
             run.err);
}

void PitfallTest::warnsOfNothingElseWhenTheDescriptionIsTooLong()
{
    m_tool.write("top.bin", ToolFixture::payload(100));
    m_tool.write("notes", QByteArray(60000, 'x'));
    const Run run =
        create({"--function", "a", "b", "c", "d", "--description", "@" + m_tool.argument("notes")});
    QCOMPARE(run.code, 2);
    const Run only = m_tool.run({"create",
                                 m_tool.argument("top.bin"),
                                 "--author",
                                 "A",
                                 "--ci",
                                 "1",
                                 "--module",
                                 "DFE",
                                 "--device",
                                 "Interface_FPGA",
                                 "--config",
                                 "1",
                                 "--version",
                                 "1.0",
                                 "--function",
                                 "a",
                                 "b",
                                 "c",
                                 "d",
                                 "--description",
                                 "@" + m_tool.argument("notes")});
    QCOMPARE(only.code, 2);
    QVERIFY2(only.err.contains("too long by") && !only.err.contains("warning: "), only.err);
}

void PitfallTest::saysThatTheAuthorOfAnotherBuildIsBlank()
{
    ForgedImage image;
    image.text.replace("Ann", "");
    m_tool.write("like.fcf", image.bytes());
    m_tool.write("top.bin", ToolFixture::payload(100));
    const Run run =
        m_tool.run({"create", m_tool.argument("top.bin"), "--like", m_tool.argument("like.fcf")});
    QCOMPARE(run.code, 2);
    QVERIFY2(run.err.contains("like.fcf: author: is blank: give --author"), run.err);
    QCOMPARE(m_tool
                 .run({"create", m_tool.argument("top.bin"), "--like", m_tool.argument("like.fcf"),
                       "--author", "Ann"})
                 .code,
             0);
}

void PitfallTest::knowsWhereASyncWordBelongs_data()
{
    QTest::addColumn<QByteArray>("binary");
    QTest::addColumn<QByteArray>("warning");
    const auto word = [](const char* hex) { return QByteArray::fromHex(hex); };
    const QByteArray filler(0x20, '\xff');
    QTest::newRow("a boot image") << word("feffffea").repeated(8) + word("665599aa") + "XNLX"
                                  << QByteArray();
    QTest::newRow("swapped bytes behind dummy words")
        << filler + word("665599aa") << QByteArray("is byte-swapped: its sync word is 0x665599AA");
    QTest::newRow("swapped halfwords")
        << filler + word("5566aa99") << QByteArray("is halfword-swapped");
    QTest::newRow("swapped bytes in halfwords")
        << filler + word("99aa6655") << QByteArray("is byte-swapped in each halfword");
    QTest::newRow("swapped twice")
        << filler + word("66aa9955") << QByteArray("is bit-swapped and byte-swapped");
    QTest::newRow("behind much 0xFF")
        << QByteArray(8192, '\xff') + word("aa995566") << QByteArray();
    QTest::newRow("swapped behind much 0xFF")
        << QByteArray(8192, '\xff') + word("5599aa66") << QByteArray("is bit-swapped");
}

void PitfallTest::knowsWhereASyncWordBelongs()
{
    QFETCH(QByteArray, binary);
    QFETCH(QByteArray, warning);
    m_tool.write("top.bin", binary);
    const Run run = create();
    QCOMPARE(run.code, 0);
    QCOMPARE(run.err.contains("warning: "), !warning.isEmpty());
    QVERIFY2(run.err.contains(warning), run.err);
}

void PitfallTest::notesALengthThatIsNoMultipleOfFour()
{
    m_tool.write("top.bin", ToolFixture::payload(101));
    const Run run = create({"--json"});
    QCOMPARE(run.code, 0);
    QCOMPARE(run.finding("payload")["severity"].toString(), QString("note"));
    QCOMPARE(run.finding("payload")["reason"].toString(),
             QString("has 101 bytes, which is no multiple of 4"));
}

void PitfallTest::hashesNoOldImageThatDiffers()
{
    constexpr int Size = 8 * 1024 * 1024;
    QByteArray payload = ToolFixture::payload(Size);
    m_tool.write("top.bin", payload);
    QCOMPARE(create({"--digest"}).code, 0);

    payload[Size - 1] = static_cast<char>(~payload.at(Size - 1));
    m_tool.write("top.bin", payload);
    faults = Faults();
    const Run run = create({"--digest", "--if-changed"});
    QCOMPARE(run.code, 0);
    QVERIFY(m_tool.read("top.fcf").endsWith(payload));
    // The two payloads are compared, and the old image is not read again.
    QVERIFY2(faults.bytesRead > 2 * Size, qPrintable(QString::number(faults.bytesRead)));
    QVERIFY2(faults.bytesRead < 3 * Size, qPrintable(QString::number(faults.bytesRead)));
}

QTEST_GUILESS_MAIN(PitfallTest)
#include "PitfallTest.moc"
