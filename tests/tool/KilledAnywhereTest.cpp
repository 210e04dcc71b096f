#include "FaultyFileSystem.h"
#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QMap>
#include <QtTest>

namespace {

using Contents = QMap<QString, QByteArray>;

Contents contentsOf(const ToolFixture& tool)
{
    Contents contents;
    for (const QString& name : tool.names())
        contents[name] = tool.read(name);
    return contents;
}

} // namespace

/// A run gets a signal before any of its writes and changes of names, and another one follows.
class KilledAnywhereTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { faults = Faults(); }
    void leavesWholeFilesOnly_data();
    void leavesWholeFilesOnly();

private:
    static void verifyLeft(const Contents& old, const Contents& left, const Contents& made);
};

void KilledAnywhereTest::leavesWholeFilesOnly_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("hasUnnamedFiles");
    QTest::addColumn<bool>("replaces");
    const struct {
        const char* name;
        int signal;
    } signals_[] = {{"killed", SIGKILL}, {"interrupted", SIGINT}};
    for (const auto& signal : signals_) {
        for (const bool hasUnnamedFiles : {true, false}) {
            for (const bool replaces : {true, false})
                QTest::addRow("%s, %s, %s", signal.name, hasUnnamedFiles ? "unnamed" : "named",
                              replaces ? "replacing" : "new")
                    << signal.signal << hasUnnamedFiles << replaces;
        }
    }
}

/// Each output is as it was, or as a run that nothing ends makes it; the image comes last.
void KilledAnywhereTest::verifyLeft(const Contents& old, const Contents& left, const Contents& made)
{
    for (const QString& name : allNames()) {
        const QByteArray bytes = left.value(name);
        QVERIFY2(bytes == old.value(name) || bytes == made.value(name), qPrintable(name));
        if (left.value("top.fcf") == made.value("top.fcf"))
            QVERIFY2(bytes == made.value(name), qPrintable(name));
    }
}

void KilledAnywhereTest::leavesWholeFilesOnly()
{
    QFETCH(int, signal);
    QFETCH(bool, hasUnnamedFiles);
    QFETCH(bool, replaces);
    const Arguments force = replaces ? Arguments{"--force"} : Arguments();
    int changes = 0;
    for (bool ended = true; ended; ++changes) {
        ToolFixture tool;
        tool.write("top.bin", ToolFixture::payload(4000));
        if (replaces)
            QCOMPARE(tool.run(tool.createAll()).code, 0);
        tool.write("top.bin", ToolFixture::payload(3999) + "!");
        const Contents old = contentsOf(tool);
        faults.hasNoUnnamedFiles = !hasUnnamedFiles;
        faults.signal = signal;
        faults.signalledChange = changes;
        ended = tool.runKilled(tool.createAll(force), signal);
        faults = Faults();
        const Contents left = contentsOf(tool);
        QCOMPARE(tool.run(tool.createAll({"--force"})).code, 0);
        verifyLeft(old, left, contentsOf(tool));
        // Only a kill leaves a name, where files have names or between the two steps that replace.
        for (const QString& name : left.keys())
            QVERIFY2(allNames().contains(name) ||
                         (signal == SIGKILL && name.startsWith(".pelk-fcf-")),
                     qPrintable(name));
        if (hasUnnamedFiles)
            QCOMPARE(tool.names(), allNames());
        QCOMPARE(tool.verifyAll().code, 0);
    }
    QVERIFY(changes > 6);
}

ZORV_TEST(KilledAnywhereTest)
#include "KilledAnywhereTest.moc"
