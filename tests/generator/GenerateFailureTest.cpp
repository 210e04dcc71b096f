#include "generator/GeneratorTest.h"
#include "support/TestProgram.h"

#include "support/FullDisk.h"
#include "support/PlainFcf.h"

#include <QDir>
#include <QFile>
#include <QPushButton>
#include <QtTest>

namespace {

/// While it lives, no file can be opened again, not even one that \p path has been opened as.
class NoMoreFiles {
public:
    explicit NoMoreFiles(const QString& path)
    {
        getrlimit(RLIMIT_NOFILE, &m_before);
        // All numbers below the file's own are taken: it has the lowest that was free.
        rlimit limit = m_before;
        const QDir open("/proc/self/fd");
        for (const QString& number :
             open.entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System)) {
            if (QFile::symLinkTarget(open.filePath(number)) == path)
                limit.rlim_cur = number.toUInt();
        }
        setrlimit(RLIMIT_NOFILE, &limit);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &m_before); }

private:
    Q_DISABLE_COPY(NoMoreFiles)

    rlimit m_before{};
};

} // namespace

class GenerateFailureTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void failsForABinaryThatCannotBeRead();
    void failsOnAFullDisk_data();
    void failsOnAFullDisk();
    void showsTheTotalsOfAHeaderThatTheDiskDidNotTake();
    void failsOnAFullDiskAtEveryByteOfTheHeaderPage();
    void failsOnAFullDevice_data();
    void failsOnAFullDevice();
    void failsForACompanionThatKeepsNothing();
    void namesAnImageThatCannotBeOpenedAgain_data();
    void namesAnImageThatCannotBeOpenedAgain();
    void logsWhichTooLargeFileCannotBeDeleted_data();
    void logsWhichTooLargeFileCannotBeDeleted();
    void logsBothTooLargeFilesTheCompanionFirst();

private:
    void expectFailure();
};

/// Presses Generate and expects the red text, a closed window and no announcement.
void GenerateFailureTest::expectFailure()
{
    QSignalSpy created(driver->window(), &PelkFcfGenerator::newFilesCreated);
    driver->click("GenerateButton");
    QCOMPARE(driver->text("StatusBar"), QString(Red));
    QVERIFY(!driver->window()->isVisible());
    QCOMPARE(created.count(), 0);
    for (const QString& line : driver->log())
        QVERIFY2(line.startsWith("8 "), qPrintable(line));
}

void GenerateFailureTest::failsForABinaryThatCannotBeRead()
{
    QVERIFY(QFile::link("/proc/self/mem", driver->path("top.bin")));
    driver->window()->setBinFile(driver->path("top.bin"));
    driver->type("AuthoEditBox", "a");
    driver->type("CiNumEditBox", "1");
    expectFailure();
    QVERIFY2(driver->log().last().contains("Input/output error"), qPrintable(driver->log().last()));
}

void GenerateFailureTest::failsOnAFullDisk_data()
{
    QTest::addColumn<int>("bytes");
    // Where the image made from the same form ends.
    GeneratorDriver other;
    other.fillIn(other.binary("top.bin", 100003));
    other.click("GenerateButton");
    const int wholeImage = int(QFileInfo(other.path("top.fcf")).size());
    QVERIFY(wholeImage >= 2112 + 100003);
    QTest::newRow("nothing fits") << 0;
    QTest::newRow("the preamble fits") << 64;
    QTest::newRow("the text fits, the filler does not") << 500;
    QTest::newRow("the header page lacks a byte") << 2111;
    QTest::newRow("the header page fits, the payload does not") << 2117;
    QTest::newRow("the payload lacks a byte") << wholeImage - 1;
    QTest::newRow("the payload lacks most of it") << 30000;
}

void GenerateFailureTest::failsOnAFullDisk()
{
    QFETCH(int, bytes);
    driver->fillIn(driver->binary("top.bin", 100003));
    driver->dialogs().clear();
    {
        const FullDisk limit(static_cast<rlim_t>(bytes));
        expectFailure();
    }
    QCOMPARE(driver->log().size(), 1);
    QVERIFY2(driver->log()[0].contains("File too large"), qPrintable(driver->log()[0]));
    QCOMPARE(QFileInfo(driver->path("top.fcf")).size(), qint64(bytes));
}

void GenerateFailureTest::showsTheTotalsOfAHeaderThatTheDiskDidNotTake()
{
    driver->fillIn(driver->binary("top.bin", 5000));
    {
        const FullDisk limit(100);
        expectFailure();
    }
    QCOMPARE(driver->text("finalSize"), QString("7112 bytes"));
    QCOMPARE(driver->text("finalPages"), QString("4 pages"));
    QCOMPARE(driver->text("finalBlocks"), QString("0 blocks"));
    // Both headers are written as far as they go; the first failure is the one that is reported.
    QCOMPARE(driver->log().size(), 1);
    QVERIFY2(driver->log()[0].contains(driver->path("top.fcf") + "\" is not complete"),
             qPrintable(driver->log()[0]));
    QCOMPARE(driver->content(driver->path("top.fcf")).size(), 100);
    QCOMPARE(driver->content(driver->path("top.txt")).size(), 100);
}

void GenerateFailureTest::failsOnAFullDiskAtEveryByteOfTheHeaderPage()
{
    driver->fillIn(driver->binary("top.bin", 10));
    const QString image = driver->path("top.fcf");
    for (rlim_t bytes = 0; bytes < 2112; ++bytes) {
        QFile::remove(image);
        QFile::remove(driver->path("top.txt"));
        const FullDisk limit(bytes);
        driver->window()->saveTofile(driver->path("top.bin"));
        QCOMPARE(driver->text("StatusBar"), QString(Red));
    }
    QFile::remove(image);
    driver->window()->saveTofile(driver->path("top.bin"));
    QCOMPARE(driver->text("StatusBar"), QString(Green));
}

void GenerateFailureTest::failsOnAFullDevice_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("the image") << "top.fcf";
    QTest::newRow("the companion") << "top.txt";
}

void GenerateFailureTest::failsOnAFullDevice()
{
    QFETCH(QString, file);
    driver->fillIn(driver->binary("top.bin", 10));
    QVERIFY(QFile::link("/dev/full", driver->path(file)));
    if (file == "top.fcf")
        driver->dialogs().click(QMessageBox::Yes);
    expectFailure();
    QCOMPARE(driver->log(), QStringList("8 Pelk FCF Generator: \"" + driver->path(file) +
                                        "\" is not complete: No space left on device."));
}

void GenerateFailureTest::failsForACompanionThatKeepsNothing()
{
    driver->fillIn(driver->binary("top.bin", 10));
    QVERIFY(QFile::link("/dev/null", driver->path("top.txt")));
    expectFailure();
    QVERIFY2(driver->log().last().contains("it has 0 bytes, but"),
             qPrintable(driver->log().last()));
}

void GenerateFailureTest::namesAnImageThatCannotBeOpenedAgain_data()
{
    QTest::addColumn<int>("textEnd");
    QTest::newRow("for its filler") << 500;
    QTest::newRow("for its payload, behind a header that needs no filler") << 2112;
}

void GenerateFailureTest::namesAnImageThatCannotBeOpenedAgain()
{
    QFETCH(int, textEnd);
    driver->fillIn(driver->binary("top.bin", 10));
    const int others = 65 + int(qstrlen("Filename: top.fcf\nCI No: \nAuthor: R. Vos\n"
                                        "Date: 21 Nov 2026\nTime: 09:05:07\nDescription: \n"
                                        "---\n----\n"));
    driver->window()->setCINumber(QString(textEnd - others, 'x'));
    std::unique_ptr<NoMoreFiles> limit;
    driver->window()->setClock([&] {
        // Read once all three files are open.
        if (!limit)
            limit = std::make_unique<NoMoreFiles>(driver->path("top.fcf"));
        return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7));
    });
    driver->dialogs().clear();
    driver->dialogs().click(QMessageBox::Ok);
    expectFailure();
    limit.reset();
    QCOMPARE(driver->dialogs().texts(), QStringList("can't open " + driver->path("top.fcf")));
    QCOMPARE(driver->content(driver->path("top.fcf")).size(), textEnd);
}

void GenerateFailureTest::logsWhichTooLargeFileCannotBeDeleted_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("the image") << "top.fcf";
    QTest::newRow("the companion") << "top.txt";
}

void GenerateFailureTest::logsWhichTooLargeFileCannotBeDeleted()
{
    QFETCH(QString, file);
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setCINumber(QString(3000, 'x'));
    const QString kept = driver->path(file);
    driver->dialogs().click(QMessageBox::Ok);
    driver->dialogs().inspect([&](QWidget*) {
        // A folder in its place is no file to delete.
        QVERIFY(QFile::remove(kept));
        QVERIFY(QDir().mkpath(kept));
    });
    expectFailure();
    QCOMPARE(driver->log().size(), 1);
    const QString start = "8 Pelk FCF Generator: \"" + kept + "\" cannot be deleted: ";
    QVERIFY2(driver->log().first().startsWith(start), qPrintable(driver->log().first()));
    QVERIFY(!driver->exists(driver->path(file == "top.fcf" ? "top.txt" : "top.fcf")));
}

void GenerateFailureTest::logsBothTooLargeFilesTheCompanionFirst()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setCINumber(QString(3000, 'x'));
    const QStringList files = {driver->path("top.txt"), driver->path("top.fcf")};
    driver->dialogs().click(QMessageBox::Ok);
    driver->dialogs().inspect([&](QWidget*) {
        for (const QString& file : files)
            QVERIFY(QFile::remove(file) && QDir().mkpath(file));
    });
    expectFailure();
    QCOMPARE(driver->log().size(), 2);
    for (int i = 0; i < 2; ++i)
        QVERIFY2(driver->log()[i].contains('"' + files[i] + "\" cannot be deleted: "),
                 qPrintable(driver->log()[i]));
}

ZORV_WINDOW_TEST(GenerateFailureTest)
#include "GenerateFailureTest.moc"
