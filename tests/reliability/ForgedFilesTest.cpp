#include "generator/FunctionEntries.h"
#include "generator/GeneratorDriver.h"
#include "reliability/Effort.h"
#include "support/TestProgram.h"
#include "tool/ToolFixture.h"

#include "fcf/FcfExactReader.h"
#include "fcf/FcfReader.h"
#include "host/app/ImageInspector.h"

#include <QCheckBox>
#include <QFile>
#include <QtTest>

#include <limits>

namespace {

/// What a load may take at most.
const qint64 MostMemory = 64 * 1024 * 1024;
/// Many times what the slowest load needs, but a fraction of what grows with the square of a text.
const double MostSeconds = 5;
/// What the process itself reads while it looks for files and counts.
const qint64 Overhead = 64 * 1024;

const char* const Record = "Function name: n\nFunction author: a\nFunction CI No: c\n"
                           "Function description: d\n---\n";

QByteArray pageOf(const QByteArray& text)
{
    ForgedImage image;
    image.text = text;
    return image.preamble() + image.lineFeed + text;
}

QByteArray replaced(QByteArray text, const char* before, const QByteArray& after)
{
    return text.replace(before, after);
}

} // namespace

/// A file may have been damaged or made on purpose. Whatever it contains, the window, the inspector
/// and the tool read a bounded part of it and go on.
class ForgedFilesTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void takesNumbersAtTheirExtremes();
    void takesATextCutAnywhere();
    void takesAnyContent_data();
    void takesAnyContent();
    void takesALineOfOneGibibyte_data();
    void takesALineOfOneGibibyte();

private:
    /// Has everything that reads images read "top.fcf". Returns what went wrong, empty for nothing.
    QString readEverywhere();
    QString load(const QString& path);
    QString runTool();
    static QString inspect(const QString& path);

    QScopedPointer<GeneratorDriver> m_driver;
    QScopedPointer<ToolFixture> m_tool;
};

void ForgedFilesTest::init()
{
    m_driver.reset(new GeneratorDriver);
    m_tool.reset(new ToolFixture);
}

QString ForgedFilesTest::load(const QString& path)
{
    m_driver->chooseFromFileMenu("Clear");
    m_driver->dialogs().clear();
    const Effort effort;
    m_driver->window()->setTxtFile(path);
    const double seconds = effort.processorSeconds();
    const qint64 read = effort.bytesRead();
    const qint64 memory = effort.peakBytes();
    if (read > FcfReader::MaximumBytes + Overhead)
        return QString("the window reads %1 bytes").arg(read);
    if (memory > MostMemory)
        return QString("the window takes %1 bytes of memory").arg(memory);
    if (seconds > MostSeconds)
        return QString("the window needs %1 seconds").arg(seconds);
    if (m_driver->dialogs().texts().size() > 2)
        return QString("the window shows %1 boxes").arg(m_driver->dialogs().texts().size());
    const QString status = m_driver->text("StatusBar");
    if (m_driver->dialogs().texts().isEmpty() && !status.contains("</font>"))
        return "the window does not show how the load ended";
    if (FunctionEntries::of(m_driver->window()).size() != 4 * m_driver->functionNames().size())
        return "the window lists other functions than it has in memory";
    return QString();
}

QString ForgedFilesTest::inspect(const QString& path)
{
    const Effort effort;
    const ImageReport report = ImageReport::of(path);
    const int letters = report.html().size() + report.text().size();
    if (effort.bytesRead() > FcfExactReader::MaximumBytes + Overhead)
        return QString("the inspector reads %1 bytes").arg(effort.bytesRead());
    if (effort.peakBytes() > MostMemory)
        return QString("the inspector takes %1 bytes of memory").arg(effort.peakBytes());
    if (letters > 1024 * 1024)
        return QString("the inspector shows %1 letters").arg(letters);
    return QString();
}

QString ForgedFilesTest::runTool()
{
    const std::string image = m_tool->argument("top.fcf");
    const std::string payload = m_tool->argument("payload");
    const Arguments runs[] = {
        {"show", image}, {"verify", image}, {"extract", image, "--output", payload}};
    for (const Arguments& arguments : runs) {
        const Effort effort;
        const Run run = m_tool->run(arguments);
        const QString command = QString::fromStdString(arguments.front());
        // 0: all is well; 1: the file is not.
        if (run.code != 0 && run.code != 1)
            return QString("%1 ends with %2").arg(command).arg(run.code);
        if (run.code == 1 && run.err.isEmpty() && run.out.isEmpty())
            return command + " gives no reason";
        if (effort.peakBytes() > MostMemory)
            return QString("%1 takes %2 bytes of memory").arg(command).arg(effort.peakBytes());
        if (run.code == 1 && m_tool->exists("payload"))
            return command + " leaves a payload of a bad image";
        QFile::remove(m_tool->path("payload"));
    }
    return QString();
}

QString ForgedFilesTest::readEverywhere()
{
    const QString path = m_tool->path("top.fcf");
    for (const QString& fault : {load(path), inspect(path), runTool()}) {
        if (!fault.isEmpty())
            return fault;
    }
    return QString();
}

void ForgedFilesTest::takesNumbersAtTheirExtremes()
{
    const qint32 extremes[] = {std::numeric_limits<qint32>::min(), -1, 0, 1, 2, 4, 8, 11,
                               std::numeric_limits<qint32>::max()};
    for (int field = 0; field < 11; ++field) {
        for (const qint32 extreme : extremes) {
            ForgedImage image;
            image.numbers[field] = extreme;
            m_tool->write("top.fcf", image.bytes());
            const QString fault = readEverywhere();
            QVERIFY2(fault.isEmpty(),
                     qPrintable(QString("number %1 is %2: %3").arg(field).arg(extreme).arg(fault)));
        }
    }
    for (const qint32 extreme : extremes) {
        ForgedImage image;
        std::fill(std::begin(image.numbers), std::end(image.numbers), extreme);
        std::fill(std::begin(image.reserved), std::end(image.reserved), quint32(extreme));
        m_tool->write("top.fcf", image.bytes());
        QCOMPARE(readEverywhere(), QString());
    }
}

void ForgedFilesTest::takesATextCutAnywhere()
{
    const ForgedImage image;
    const QByteArray page = image.page();
    const int textEnd = page.indexOf("----\n") + 5;
    for (int bytes = 0; bytes <= textEnd; ++bytes) {
        m_tool->write("top.fcf", page.left(bytes));
        const QString fault = readEverywhere();
        QVERIFY2(fault.isEmpty(), qPrintable(QString("cut at %1: %2").arg(bytes).arg(fault)));
        // The last line is one without its line feed too.
        const bool isWhole = bytes >= textEnd - 1;
        QCOMPARE(m_driver->text("StatusBar").contains("successfully"), isWhole);
        QCOMPARE(ImageReport::of(m_tool->path("top.fcf")).findings.isEmpty(), false);
    }
}

void ForgedFilesTest::takesAnyContent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isLoaded");
    const QByteArray text = ForgedImage().text;
    const QByteArray start = text.left(text.indexOf("Function name"));
    const int million = 1000 * 1000;

    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("zeros") << QByteArray(10 * million, '\0') << false;
    QTest::newRow("line feeds") << QByteArray(10 * million, '\n') << false;
    QTest::newRow("filler alone") << QByteArray("\n  \r\n ").repeated(2 * million) << false;
    QTest::newRow("a text of filler alone")
        << pageOf(QByteArray("\n  \r\n ").repeated(2 * million)) << false;
    QTest::newRow("no end mark") << pageOf(replaced(text, "----\n", "")) << false;
    QTest::newRow("end marks alone") << pageOf("----\n----\n----\n") << false;
    QTest::newRow("an end mark in the first line")
        << pageOf("Filename: ----\n" + text.mid(18)) << true;
    QTest::newRow("end marks in place of every line")
        << pageOf("Filename: " + QByteArray("----\n").repeated(100)) << true;
    QTest::newRow("a million functions")
        << pageOf(start + QByteArray(Record).repeated(million) + "----\n") << false;
    QTest::newRow("a million functions of empty lines")
        << pageOf(start + QByteArray("\n\n\n: ---\n").repeated(million) + "----\n") << false;
    QTest::newRow("as many functions as fit within the bound")
        << pageOf(start + QByteArray("\n\n\n: ---\n").repeated(FcfReader::MaximumFunctions) +
                  "----\n")
        << true;
    QTest::newRow("a million lines of description")
        << pageOf(replaced(text, "Rev B", "d" + QByteArray("\nd").repeated(million))) << true;
    QTest::newRow("as much description as fits within the bound")
        << pageOf(replaced(text, "Rev B", "d" + QByteArray("\nd").repeated(8 * million))) << true;
    QTest::newRow("a function description of one long line")
        << pageOf(replaced(text, "Spectrum", QByteArray(million, 's'))) << true;
    QTest::newRow("names of one long line")
        << pageOf(replaced(replaced(text, "fft", QByteArray(130000, 'f')), "Ann",
                           QByteArray(130000, 'a')))
        << true;
    QTest::newRow("a long line of separators")
        << pageOf(replaced(text, "Ann", QByteArray(": ").repeated(130000))) << true;
    QTest::newRow("zeros in every text")
        << pageOf(replaced(text, ": ", QByteArray(": \0x\0", 5))) << true;
    QTest::newRow("no valid UTF-8 in every text")
        << pageOf(replaced(text, ": ", ": \xff\xfe\xc0\xaf\xed\xa0\x80\xf4\x90\x80\x80\xe2\x82"))
        << true;
    QTest::newRow("lines with carriage returns") << pageOf(replaced(text, "\n", "\r\n")) << true;
    QTest::newRow("carriage returns alone") << pageOf(replaced(text, "\n", "\r")) << false;
    QTest::newRow("a byte order mark") << pageOf("\xef\xbb\xbf" + text) << true;
    QTest::newRow("UTF-16")
        << pageOf(QByteArray(reinterpret_cast<const char*>(QString(text).utf16()), 2 * text.size()))
        << false;
    QTest::newRow("marks of the right-to-left order")
        << pageOf(replaced(text, ": ", ": \xe2\x80\xae\xe2\x81\xa6\xe2\x80\x8b\xc2\xa0")) << true;
    QTest::newRow("line and paragraph separators")
        << pageOf(replaced(text, ": ", ": \xe2\x80\xa8\xe2\x80\xa9\x0b\x0c\x1c\x85")) << true;
    QTest::newRow("markup in every text")
        << pageOf(replaced(text, ": ", ": <img src='/dev/zero'><b>&lt;</b><script>")) << true;
    QTest::newRow("formats and escapes in every text")
        << pageOf(replaced(text, ": ", ": %1%n%s\x1b[2J\x1b]0;x\x07\\")) << true;
}

void ForgedFilesTest::takesAnyContent()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, isLoaded);
    m_tool->write("top.fcf", bytes);
    bytes.clear();
    QCOMPARE(readEverywhere(), QString());
    QCOMPARE(m_driver->text("StatusBar").contains("successfully"), isLoaded);
    // A window that has read this still works.
    m_driver->chooseFromFileMenu("Clear");
    m_driver->find<QCheckBox>("ModifyFunctionCheckBox")->setChecked(false);
    m_driver->fillIn(m_driver->binary("next.bin", 100));
    m_driver->click("GenerateButton");
    QVERIFY(m_driver->text("StatusBar").contains("Successfully generated"));
}

void ForgedFilesTest::takesALineOfOneGibibyte_data()
{
    QTest::addColumn<QByteArray>("start");
    const QByteArray text = ForgedImage().text;
    QTest::newRow("in place of everything") << QByteArray();
    for (const char* const line : {"Filename: ", "Author: ", "Description: ", "Function name: ",
                                   "Function CI No: ", "Function description: "})
        QTest::newRow(line) << pageOf(text.left(text.indexOf(line) + int(qstrlen(line))));
}

void ForgedFilesTest::takesALineOfOneGibibyte()
{
    QFETCH(QByteArray, start);
    m_tool->write("top.fcf", start);
    QVERIFY(QFile::resize(m_tool->path("top.fcf"), start.size() + (1LL << 30)));
    QCOMPARE(readEverywhere(), QString());
    QVERIFY(!m_driver->text("StatusBar").contains("successfully"));
    QVERIFY(!ImageReport::of(m_tool->path("top.fcf")).findings.isEmpty());
    QCOMPARE(m_tool->run({"verify", m_tool->argument("top.fcf")}).code, 1);
}

ZORV_WINDOW_TEST(ForgedFilesTest)
#include "ForgedFilesTest.moc"
