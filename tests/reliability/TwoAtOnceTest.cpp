#include "generator/GeneratorDriver.h"
#include "generator/GeneratorTest.h"
#include "support/PlainFcf.h"
#include "support/TestProgram.h"
#include "tool/ToolFixture.h"

#include <QFile>
#include <QtTest>

/// Two windows, or a window and the tool, that make an image of one binary at the same time. In the
/// end it is that of one of them, or who was disturbed says so.
class TwoAtOnceTest : public QObject {
    Q_OBJECT

private slots:
    void init();

    void replacesWhatTheToolMadeAfterTheQuestionOnly_data();
    void replacesWhatTheToolMadeAfterTheQuestionOnly();
    void endsInRedWhenTheToolReplacesItsFiles();
    void endsInRedWhenAnotherWindowWritesItsFiles();

private:
    /// Has the tool make an image of the binary, in place of any that is there.
    void createByTool();
    /// Empty when the tool finds nothing wrong with the image, its companion and its binary.
    QByteArray verified();

    QScopedPointer<GeneratorDriver> m_driver;
    QScopedPointer<ToolFixture> m_tool;
    QString m_binary;
};

void TwoAtOnceTest::init()
{
    m_driver.reset(new GeneratorDriver);
    m_tool.reset(new ToolFixture);
    m_binary = m_driver->write("top.bin", ToolFixture::payload(5000));
    m_driver->fillIn(m_binary);
}

void TwoAtOnceTest::createByTool()
{
    const Run run = m_tool->run(Arguments{"create", m_binary.toStdString(), "--force"} +
                                ToolFixture::described());
    QVERIFY2(run.code == 0, run.err);
}

QByteArray TwoAtOnceTest::verified()
{
    const auto path = [this](const char* name) { return m_driver->path(name).toStdString(); };
    const Run run = m_tool->run(
        {"verify", path("top.fcf"), "--companion", path("top.txt"), "--bin", path("top.bin")});
    return run.code == 0 ? QByteArray() : run.out + run.err;
}

void TwoAtOnceTest::replacesWhatTheToolMadeAfterTheQuestionOnly_data()
{
    QTest::addColumn<bool>("replaced");
    QTest::newRow("yes") << true;
    QTest::newRow("no") << false;
}

void TwoAtOnceTest::replacesWhatTheToolMadeAfterTheQuestionOnly()
{
    QFETCH(bool, replaced);
    m_driver->write("top.fcf", "old");
    QByteArray ofTheTool;
    // While the question is open.
    m_driver->dialogs().inspect([this, &ofTheTool](QWidget*) {
        createByTool();
        ofTheTool = m_driver->content(m_driver->path("top.fcf"));
    });
    m_driver->dialogs().click(replaced ? QMessageBox::Yes : QMessageBox::No);
    m_driver->click("GenerateButton");
    QCOMPARE(m_driver->text("StatusBar"),
             QString(replaced ? GeneratorTest::Green : GeneratorTest::Red));
    QCOMPARE(m_driver->content(m_driver->path("top.fcf")) == ofTheTool, !replaced);
    QCOMPARE(verified(), QByteArray());
}

void TwoAtOnceTest::endsInRedWhenTheToolReplacesItsFiles()
{
    // The clock is read once all three files are open.
    bool wasRun = false;
    m_driver->window()->setClock([this, &wasRun] {
        if (!wasRun)
            createByTool();
        wasRun = true;
        return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7));
    });
    m_driver->click("GenerateButton");
    QVERIFY(wasRun);
    QCOMPARE(m_driver->text("StatusBar"), QString(GeneratorTest::Red));
    QCOMPARE(m_driver->log().size(), 1);
    // The tool's files are whole.
    QCOMPARE(verified(), QByteArray());
}

void TwoAtOnceTest::endsInRedWhenAnotherWindowWritesItsFiles()
{
    PelkFcfGenerator other;
    other.setBinFile(m_binary);
    other.setAuthor("another");
    other.setCINumber("2");
    bool wasRun = false;
    m_driver->window()->setClock([&] {
        if (!wasRun) {
            m_driver->dialogs().click(QMessageBox::Yes);
            other.updateConfigData();
        }
        wasRun = true;
        return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7));
    });
    m_driver->click("GenerateButton");
    QVERIFY(m_driver->dialogs().allGiven());
    QCOMPARE(other.findChild<QLabel*>("StatusBar")->text(), QString(GeneratorTest::Green));
    QCOMPARE(m_driver->text("StatusBar"), QString(GeneratorTest::Red));
    QVERIFY2(m_driver->log().constLast().contains("top.fcf\" is not complete: it has "),
             qPrintable(m_driver->log().constLast()));
}

ZORV_WINDOW_TEST(TwoAtOnceTest)
#include "TwoAtOnceTest.moc"
