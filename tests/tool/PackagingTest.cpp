#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "support/TestFile.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QStringList Shells = {"bash", "zsh", "fish"};

/// A shell takes some tenths of a second; one that hangs is not waited for.
constexpr int ShellSeconds = 20;
constexpr int ProcessMilliseconds = 2 * ShellSeconds * 1000;

} // namespace

/// What is installed along with the tool, and that it keeps up with it.
class PackagingTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void installsEverythingThatBelongsToTheTool();
    void runsWhereItWasInstalled();
    void describesEveryCommandInTheManual();
    void describesTheExitCodesInTheManual();
    void completes_data();
    void completes();
    void completesValuesBehindAnEqualsSign_data();
    void completesValuesBehindAnEqualsSign();
    void quotesNamesWithBlanksInZsh();
    void letsDesktopsKnowImages();

private:
    QString installed(const char* name) const { return m_prefix.filePath(name); }
    QStringList output(const QString& program, const QStringList& arguments) const;
    QStringList bashCompletion(const QStringList& words) const;
    QStringList zshCompletion(const QString& line, QString* completed = nullptr) const;
    QStringList fishCompletion(const QString& line) const;
    /// What \p shell offers in place of the last of \p words, sorted.
    QStringList completion(const QString& shell, const QStringList& words) const;

    QTemporaryDir m_prefix;
};

void PackagingTest::initTestCase()
{
    QProcess cmake;
    cmake.start("cmake", {"--install", BUILD_FOLDER, "--prefix", m_prefix.path(), "--component",
                          "pelk-fcf"});
    QVERIFY(cmake.waitForFinished());
    QVERIFY2(cmake.exitCode() == 0, cmake.readAllStandardError());
    for (const char* const name : {"two words.bin", "two words.fcf", "two words.json", "two.o"})
        TestFile::write(installed(name), QByteArray());
}

/// The lines that \p program prints.
QStringList PackagingTest::output(const QString& program, const QStringList& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(m_prefix.path());
    process.start(program, arguments);
    if (!process.waitForFinished(ProcessMilliseconds)) {
        process.kill();
        process.waitForFinished();
        qFatal("%s did not end: %s", qPrintable(program), qPrintable(arguments.join(' ')));
    }
    if (process.exitCode() != 0)
        qFatal("%s: %s", qPrintable(program), process.readAllStandardError().constData());
    return QString::fromUtf8(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

QStringList PackagingTest::bashCompletion(const QStringList& words) const
{
    const QString script = "source \"$1\"; shift; COMP_WORDS=(\"$@\"); COMP_CWORD=$(($# - 1)); "
                           "_pelk_fcf; printf '%s\\n' \"${COMPREPLY[@]}\"";
    return output("bash", QStringList{"-c", script, "bash",
                                      installed("share/bash-completion/completions/pelk-fcf")} +
                              words);
}

QStringList PackagingTest::zshCompletion(const QString& line, QString* completed) const
{
    QStringList lines =
        output("zsh", {"--no-rcs", ZSH_COMPLETION, installed("share/zsh/site-functions"),
                       m_prefix.path(), QString::number(ShellSeconds), line});
    const QString last = lines.takeLast();
    if (completed)
        *completed = last;
    return lines;
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

QStringList PackagingTest::completion(const QString& shell, const QStringList& words) const
{
    const QString line = "pelk-fcf " + words.join(' ');
    QStringList offered = shell == "bash"  ? bashCompletion(QStringList("pelk-fcf") + words)
                          : shell == "zsh" ? zshCompletion(line)
                                           : fishCompletion(line);
    offered.sort();
    return offered;
}

void PackagingTest::installsEverythingThatBelongsToTheTool()
{
    for (const char* const name :
         {"bin/pelk-fcf", "share/man/man1/pelk-fcf.1", "share/bash-completion/completions/pelk-fcf",
          "share/zsh/site-functions/_pelk-fcf", "share/fish/vendor_completions.d/pelk-fcf.fish",
          "share/mime/packages/pelk-fcf.xml", "share/doc/pelk-fcf/fcf-format.md",
          "share/doc/pelk-fcf/fcf.ksy", "share/doc/pelk-fcf/fcf.hexpat",
          "share/doc/pelk-fcf/pelk-fcf.md", "share/pelk-fcf/schemas/recipe.schema.json",
          "share/pelk-fcf/schemas/result.schema.json"})
        QVERIFY2(QFile::exists(installed(name)), name);
}

void PackagingTest::runsWhereItWasInstalled()
{
    QCOMPARE(output(installed("bin/pelk-fcf"), {"--version"}),
             QStringList("pelk-fcf " PROJECT_VERSION_TEXT));
}

void PackagingTest::describesEveryCommandInTheManual()
{
    const QString manual = TestFile::read(installed("share/man/man1/pelk-fcf.1"));
    const QString commands = manual.section("SH COMMANDS", 1).section("SH OPTIONS", 0, 0);
    for (const QString& command : completion("bash", {"help", ""}))
        QVERIFY2(commands.contains("\n\\fB" + command + "\\fR "), qPrintable(command));
}

void PackagingTest::describesTheExitCodesInTheManual()
{
    QString manual = TestFile::read(installed("share/man/man1/pelk-fcf.1"));
    manual = manual.mid(manual.indexOf("EXIT STATUS"));
    for (int code = 0; code <= 4; ++code)
        QVERIFY(manual.contains(QString("\n\\fB%1\\fR\n").arg(code)));
}

void PackagingTest::completes_data()
{
    const struct {
        const char* name;
        QStringList words;
        QStringList expected;
    } rows[] = {
        {"commands",
         {""},
         {"create", "diff", "extract", "help", "list", "recipe", "show", "verify"}},
        {"commands to explain",
         {"help", ""},
         {"create", "diff", "extract", "list", "recipe", "show", "verify"}},
        {"slots", {"create", "--config", "1"}, {"1", "10"}},
        {"outputs",
         {"extract", "-o", "two"},
         {"two words.bin", "two words.fcf", "two words.json", "two.o"}},
        {"options of a command",
         {"extract", "--"},
         {"--force", "--help", "--json", "--no-companion", "--no-digest", "--offset", "--output",
          "--quiet"}},
        {"options of no command", {"--"}, {"--help", "--version"}},
        {"devices of a module",
         {"create", "--module", "DFE2", "--device", ""},
         {"Processing_FPGA"}},
        {"binaries", {"create", "two"}, {"two words.bin"}},
        {"binaries behind a version", {"create", "--version", "1.0", "two"}, {"two words.bin"}},
        {"binaries behind all options", {"create", "--", "two"}, {"two words.bin"}},
        {"images to relabel", {"create", "--relabel", "two"}, {"two words.fcf"}},
        {"images to list", {"list", "two"}, {"two words.fcf"}},
        {"recipes", {"create", "--like", "two"}, {"two words.fcf", "two words.json"}},
    };
    QTest::addColumn<QString>("shell");
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QStringList>("expected");
    for (const QString& shell : Shells) {
        for (const auto& row : rows)
            QTest::addRow("%s: %s", qPrintable(shell), row.name)
                << shell << row.words << row.expected;
    }
}

void PackagingTest::completes()
{
    QFETCH(QString, shell);
    QFETCH(QStringList, words);
    QFETCH(QStringList, expected);
    QCOMPARE(completion(shell, words), expected);
}

void PackagingTest::completesValuesBehindAnEqualsSign_data()
{
    QTest::addColumn<QString>("shell");
    for (const QString& shell : Shells)
        QTest::newRow(qPrintable(shell)) << shell;
}

void PackagingTest::completesValuesBehindAnEqualsSign()
{
    QFETCH(QString, shell);
    // Bash splits there.
    const QString equals = shell == "bash" ? " = " : "=";
    const auto offered = [&](const QString& line) {
        // Fish offers the option along with its value.
        QStringList values;
        for (const QString& value : completion(shell, line.split(' ')))
            values << value.section('=', -1);
        return values;
    };
    QCOMPARE(offered("create --module" + equals + "D"), QStringList({"DFE", "DFE2"}));
    QCOMPARE(offered("create --slot" + equals + "1"), QStringList({"1", "10"}));
    QCOMPARE(offered("create --module" + equals + "DFE2 --device" + equals + "P"),
             QStringList("Processing_FPGA"));
}

void PackagingTest::quotesNamesWithBlanksInZsh()
{
    QString completed;
    zshCompletion("pelk-fcf extract two", &completed);
    QCOMPARE(completed, QString("pelk-fcf extract two\\ words.fcf "));
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

ZORV_TEST(PackagingTest)
#include "PackagingTest.moc"
