#include "ToolFixture.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QStringList Commands = {"create", "show", "verify", "extract", "recipe"};

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    return file.readAll();
}

/// The options that \p command has by its own help.
QStringList optionsOf(const QString& command)
{
    ToolFixture tool;
    const QString help = tool.run({command.toStdString(), "--help"}).out;
    QStringList options;
    auto matches =
        QRegularExpression("^  (--[a-z-]+)", QRegularExpression::MultilineOption).globalMatch(help);
    while (matches.hasNext())
        options << matches.next().captured(1);
    options.sort();
    return options;
}

} // namespace

/// What is installed along with the tool, and that it keeps up with it.
class PackagingTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void installsEverythingThatBelongsToTheTool();
    void runsWhereItWasInstalled();
    void describesEveryOptionInTheManual();
    void describesTheExitCodesInTheManual();
    void completesInBash_data();
    void completesInBash();
    void completesEveryOptionInBash();
    void completesEveryOptionInZsh();
    void completesEveryOptionInFish();
    void completesTheDevicesOfAModule_data();
    void completesTheDevicesOfAModule();
    void letsDesktopsKnowImages();

private:
    QString installed(const char* name) const { return m_prefix.filePath(name); }
    QStringList output(const QString& program, const QStringList& arguments) const;
    QStringList bashCompletion(const QStringList& words) const;
    QStringList fishCompletion(const QString& line) const;

    QTemporaryDir m_prefix;
};

void PackagingTest::initTestCase()
{
    QProcess cmake;
    cmake.start("cmake", {"--install", BUILD_FOLDER, "--prefix", m_prefix.path(), "--component",
                          "pelk-fcf"});
    QVERIFY(cmake.waitForFinished());
    QVERIFY2(cmake.exitCode() == 0, cmake.readAllStandardError());
}

QStringList PackagingTest::output(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_prefix.path());
    process.start(program, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    QStringList lines =
        QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
    lines.sort();
    return lines;
}

QStringList PackagingTest::bashCompletion(const QStringList& words) const
{
    const QString script = "source \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                           "_pelk_fcf; printf '%s\\n' \"${COMPREPLY[@]}\"";
    return output("bash", QStringList{"-c", script, "bash",
                                      installed("share/bash-completion/completions/pelk-fcf")} +
                              words);
}

QStringList PackagingTest::fishCompletion(const QString& line) const
{
    QStringList words;
    for (const QString& completion :
         output("fish", {"--no-config", "-c", "source $argv[1]; complete -C $argv[2]",
                         installed("share/fish/vendor_completions.d/pelk-fcf.fish"), line}))
        words << completion.section('\t', 0, 0);
    return words;
}

void PackagingTest::installsEverythingThatBelongsToTheTool()
{
    for (const char* const name :
         {"bin/pelk-fcf", "share/man/man1/pelk-fcf.1", "share/bash-completion/completions/pelk-fcf",
          "share/zsh/site-functions/_pelk-fcf", "share/fish/vendor_completions.d/pelk-fcf.fish",
          "share/mime/packages/pelk-fcf.xml", "share/doc/pelk-fcf/fcf-format.md",
          "share/doc/pelk-fcf/fcf.ksy", "share/doc/pelk-fcf/fcf.hexpat",
          "share/doc/pelk-fcf/pelk-fcf.md"})
        QVERIFY2(QFile::exists(installed(name)), name);
}

void PackagingTest::runsWhereItWasInstalled()
{
    QCOMPARE(output(installed("bin/pelk-fcf"), {"--version"}),
             QStringList("pelk-fcf " PROJECT_VERSION_TEXT));
}

void PackagingTest::describesEveryOptionInTheManual()
{
    QString manual = readFile(installed("share/man/man1/pelk-fcf.1"));
    manual.remove("\\fR").remove("\\fB").remove("\\fI").replace("\\-", "-");
    for (const QString& command : Commands) {
        QVERIFY2(manual.contains("\npelk-fcf " + command), qPrintable(command));
        for (const QString& option : optionsOf(command))
            QVERIFY2(manual.contains(QRegularExpression("\\n[^\\n]*" + option + "\\b")),
                     qPrintable(command + " " + option));
    }
}

void PackagingTest::describesTheExitCodesInTheManual()
{
    QString manual = readFile(installed("share/man/man1/pelk-fcf.1"));
    manual = manual.mid(manual.indexOf("EXIT STATUS"));
    for (int code = 0; code <= 4; ++code)
        QVERIFY(manual.contains(QString("\n\\fB%1\\fR\n").arg(code)));
}

void PackagingTest::completesInBash_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("commands") << QStringList{"e"} << QStringList{"extract"};
    QTest::newRow("modules") << QStringList{"create", "--module", "D"}
                             << QStringList{"DFE", "DFE2"};
    QTest::newRow("types") << QStringList{"verify", "--type", ""}
                           << QStringList{"companion", "image"};
    QTest::newRow("binaries") << QStringList{"create", "two"} << QStringList{"two words.bin"};
    QTest::newRow("images") << QStringList{"extract", "two"} << QStringList{"two words.fcf"};
    QTest::newRow("recipes") << QStringList{"create", "--like", "two"}
                             << QStringList{"two words.fcf", "two words.json"};
}

void PackagingTest::completesInBash()
{
    QFETCH(QStringList, words);
    QFETCH(QStringList, expected);
    for (const char* const name : {"two words.bin", "two words.fcf", "two words.json", "two.o"}) {
        QFile file(installed(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    QCOMPARE(bashCompletion(QStringList("pelk-fcf") + words), expected);
}

void PackagingTest::completesEveryOptionInBash()
{
    for (const QString& command : Commands)
        QCOMPARE(bashCompletion({"pelk-fcf", command, "--"}), optionsOf(command));
}

void PackagingTest::completesEveryOptionInZsh()
{
    const QString path = installed("share/zsh/site-functions/_pelk-fcf");
    output("zsh", {"--no-rcs", "-n", path});
    const QString script = readFile(path);
    const QString common = script.left(script.indexOf("_arguments"));
    for (const QString& command : Commands) {
        const int start = script.indexOf("\n    " + command + ")\n");
        QVERIFY2(start > 0, qPrintable(command));
        const QString own = common + script.mid(start, script.indexOf(";;", start) - start);
        QStringList options;
        auto matches = QRegularExpression("^ *'(?:\\*|\\(.*\\))?(--[a-z-]+)\\[",
                                          QRegularExpression::MultilineOption)
                           .globalMatch(own);
        while (matches.hasNext())
            options << matches.next().captured(1);
        options.sort();
        QCOMPARE(options, optionsOf(command));
    }
}

void PackagingTest::completesEveryOptionInFish()
{
    for (const QString& command : Commands)
        QCOMPARE(fishCompletion("pelk-fcf " + command + " --"), optionsOf(command));
    QCOMPARE(fishCompletion("pelk-fcf ver"), QStringList("verify"));
}

void PackagingTest::completesTheDevicesOfAModule_data()
{
    QTest::addColumn<QString>("module");
    QTest::addColumn<QStringList>("devices");
    QTest::newRow("DFE") << "DFE"
                         << QStringList{"Clock_Master_Device", "Interface_FPGA",
                                        "Processing_FPGA_1"};
    QTest::newRow("DFE2") << "DFE2" << QStringList{"Processing_FPGA"};
    QTest::newRow("GPM") << "GPM"
                         << QStringList{"Interface_FPGA", "Processing_FPGA_1", "Processing_FPGA_2",
                                        "Processing_FPGA_3"};
}

void PackagingTest::completesTheDevicesOfAModule()
{
    QFETCH(QString, module);
    QFETCH(QStringList, devices);
    QCOMPARE(bashCompletion({"pelk-fcf", "create", "--module", module, "--device", ""}), devices);
    QCOMPARE(fishCompletion("pelk-fcf create --module " + module + " --device "), devices);
    const QString zsh = readFile(installed("share/zsh/site-functions/_pelk-fcf"));
    const QString line = zsh.mid(zsh.indexOf("    " + module + ") devices=("));
    for (const QString& device : devices)
        QVERIFY(line.left(line.indexOf(";;")).contains(device));
}

void PackagingTest::letsDesktopsKnowImages()
{
    qputenv("XDG_DATA_DIRS", QFile::encodeName(installed("share")) + ":/usr/share");
    const QMimeDatabase database;
    QCOMPARE(database.mimeTypeForFile("top.fcf", QMimeDatabase::MatchExtension).name(),
             QString("application/x-pelk-fcf"));
    QCOMPARE(database.mimeTypeForData(ForgedImage().bytes()).name(),
             QString("application/x-pelk-fcf"));
    ForgedImage other;
    other.lineFeed = " ";
    QVERIFY(database.mimeTypeForData(other.bytes()).name() != "application/x-pelk-fcf");
}

QTEST_GUILESS_MAIN(PackagingTest)
#include "PackagingTest.moc"
