#include "FaultyFileSystem.h"
#include "ToolFixture.h"

#include <QFile>
#include <QMap>
#include <QtTest>

namespace {

const QStringList Outputs = {"top.fcf", "top.fcf.sha256", "top.txt"};

using Contents = QMap<QString, QByteArray>;

Contents contentsOf(const ToolFixture& tool)
{
    Contents contents;
    for (const QString& name : tool.names())
        contents[name] = tool.read(name);
    return contents;
}

/// Which of the outputs create writes with \p options.
QStringList written(const QStringList& options)
{
    QStringList names("top.fcf");
    if (options.contains("--digest"))
        names << "top.fcf.sha256";
    if (!options.contains("--no-companion"))
        names << "top.txt";
    return names;
}

} // namespace

/// A run is killed before any write or change of names, and another one follows.
class KilledAnywhereTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { faults = Faults(); }
    void losesNothing_data();
    void losesNothing();

private:
    static void prepare(ToolFixture* tool, const QStringList& before, bool otherHeader);
    void losesNothing(bool otherHeader);
    static Arguments create(const ToolFixture& tool, const QStringList& options);
};

void KilledAnywhereTest::losesNothing_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QStringList>("nextOptions");
    QTest::addColumn<bool>("nextSucceeds");
    QTest::addColumn<bool>("hasLinks");
    const QList<QStringList> options = {{"--force", "--digest"}, {"--force", "--no-companion"}};
    const QList<QStringList> befores = {Outputs, {}, {"top.txt"}, {"top.fcf"}};
    for (const QStringList& before : befores) {
        for (const QStringList& first : options) {
            for (const QStringList& next : options) {
                for (const bool succeeds : {true, false}) {
                    for (const bool hasLinks : {true, false})
                        QTest::addRow("%s; %s, %s %s%s", qPrintable(before.join(' ')),
                                      qPrintable(first.last()), qPrintable(next.last()),
                                      succeeds ? "succeeds" : "fails", hasLinks ? "" : ", no links")
                            << before << first << next << succeeds << hasLinks;
                }
            }
        }
    }
}

/// Leaves the files \p before of an image of "top.bin", which is another one from then on, with
/// another header or the same.
void KilledAnywhereTest::prepare(ToolFixture* tool, const QStringList& before, bool otherHeader)
{
    tool->write("top.bin", ToolFixture::payload(4000));
    QCOMPARE(tool->run(tool->createAll()).code, 0);
    for (const QString& name : Outputs) {
        if (!before.contains(name))
            QVERIFY(QFile::remove(tool->path(name)));
    }
    tool->write("top.bin", ToolFixture::payload(3999) + (otherHeader ? "!!" : "!"));
}

Arguments KilledAnywhereTest::create(const ToolFixture& tool, const QStringList& options)
{
    Arguments arguments = Arguments{"create", tool.argument("top.bin")} + ToolFixture::described();
    for (const QString& option : options)
        arguments.push_back(option.toStdString());
    return arguments;
}

void KilledAnywhereTest::losesNothing()
{
    losesNothing(false);
    losesNothing(true);
}

void KilledAnywhereTest::losesNothing(bool otherHeader)
{
    QFETCH(QStringList, before);
    QFETCH(QStringList, options);
    QFETCH(QStringList, nextOptions);
    QFETCH(bool, nextSucceeds);
    QFETCH(bool, hasLinks);
    int changes = 0;
    for (bool killed = true; killed; ++changes) {
        ToolFixture tool;
        prepare(&tool, before, otherHeader);
        const Contents old = contentsOf(tool);
        faults.hasNoLink = !hasLinks;
        faults.killedBeforeChange = changes;
        killed = tool.runSignalled(create(tool, options), -1);
        faults.killedBeforeChange = -1;
        const Contents between = contentsOf(tool);
        const bool followed = between.contains("top.fcf") && between["top.fcf"] != old["top.fcf"];
        QVERIFY(killed || followed);

        faults.syncsNoFolder = !nextSucceeds;
        const Run next = tool.run(create(tool, nextOptions));
        QCOMPARE(next.code, nextSucceeds ? 0 : 3);
        faults = Faults();
        const Contents now = contentsOf(tool);
        for (const QString& name : now.keys())
            QVERIFY2(name == "top.bin" || Outputs.contains(name), qPrintable(name));
        for (const QString& name : Outputs) {
            const bool isNew = nextSucceeds && written(nextOptions).contains(name);
            const bool wasNew = followed && written(options).contains(name);
            // Without links nobody can tell who put a file where nothing was.
            const bool isUnknown = !hasLinks && !before.contains(name) && !followed;
            if (!isNew && !wasNew && !isUnknown)
                QVERIFY2(now.value(name) == old.value(name),
                         qPrintable(QString("%1 before change %2").arg(name).arg(changes)));
        }
        if (nextSucceeds || followed) {
            tool.in = now["top.fcf"];
            QCOMPARE(tool.run({"verify", "-", "--type", "image", "--bin", tool.argument("top.bin")})
                         .code,
                     0);
        }
    }
    QVERIFY(changes > 3);
}

QTEST_GUILESS_MAIN(KilledAnywhereTest)
#include "KilledAnywhereTest.moc"
