#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QtTest>

namespace {

/// The example of the document in \p language with the given \p number, from 1 on.
QString example(const QString& language, int number = 1)
{
    QFile document(DOCUMENT);
    if (!document.open(QIODevice::ReadOnly))
        qFatal("%s: %s", DOCUMENT, qPrintable(document.errorString()));
    const QString text = QString::fromUtf8(document.readAll());
    return text.section("```" + language + '\n', number, number).section("```", 0, 0);
}

/// The steps of an example for a build server that a shell runs.
QString shellSteps(const QString& yaml)
{
    QString steps;
    static const QRegularExpression step("^ *- (?:run: )?(pelk-fcf .*)$",
                                         QRegularExpression::MultilineOption);
    for (auto matches = step.globalMatch(yaml); matches.hasNext();)
        steps += matches.next().captured(1) + '\n';
    return steps;
}

} // namespace

/// The examples of the document do what it says, and the schemas fit.
class ExamplesTest : public ProgramTest {
    Q_OBJECT

private slots:
    void init();
    void makeBuildsNothingAnewThatDidNotChange();
    void makeKnowsAllThatWasRead();
    void cmakeBuildsAnImage_data();
    void cmakeBuildsAnImage();
    void buildServersMakeACheckedImage_data();
    void buildServersMakeACheckedImage();
    void toolsSignAnImage_data();
    void toolsSignAnImage();
    void resultsFollowTheirSchema();
    void recipesFollowTheirSchema();

private:
    Run checkSchema(const QString& schema, const QStringList& names);
    Run runHere(const QString& program, const QStringList& arguments);

    std::unique_ptr<ToolFixture> m_tool;
};

void ExamplesTest::init()
{
    m_tool = std::make_unique<ToolFixture>();
    m_tool->makeImage();
    m_tool->write("top.json", m_tool->run({"recipe", m_tool->argument("top.fcf")}).out);
    QVERIFY(QFile::remove(m_tool->path("top.fcf")) && QFile::remove(m_tool->path("top.txt")));
}

Run ExamplesTest::runHere(const QString& program, const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", QFileInfo(PELK_FCF).path() + ':' + environment.value("PATH"));
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(m_tool->path("."));
    process.start(program, arguments);
    return finished(&process);
}

void ExamplesTest::makeBuildsNothingAnewThatDidNotChange()
{
    // What depends on the image counts how often it was built.
    m_tool->write("Makefile",
                  "all: flash\nflash: top.fcf\n\techo built >> flash\n" + example("make").toUtf8());
    const auto make = [this] {
        const Run run = runHere("make", {});
        return run.code == 0 ? run.out : "failed: " + run.err;
    };
    QVERIFY(make().contains("pelk-fcf create"));
    QCOMPARE(m_tool->run({"verify", m_tool->argument("top.fcf"), "--require-digest"}).code, 0);

    // An input that was touched makes the tool run once more, and changes nothing.
    for (const char* const name : {"top.bin", "top.json"}) {
        m_tool->setAge(m_tool->names(), 3600);
        m_tool->setAge({name}, 10);
        const QByteArray out = make();
        QVERIFY2(out.contains("pelk-fcf create"), out);
        QCOMPARE(make().contains("pelk-fcf create"), false);
    }
    QCOMPARE(m_tool->read("flash"), QByteArray("built\n"));
}

void ExamplesTest::makeKnowsAllThatWasRead()
{
    m_tool->write("notes.txt", "first");
    QByteArray recipe = m_tool->read("top.json");
    recipe.replace("\"description\": \"Rev B\"", "\"descriptionFile\": \"notes.txt\"");
    m_tool->write("top.json", recipe);
    m_tool->write("Makefile", example("make").toUtf8());
    QCOMPARE(runHere("make", {}).code, 0);

    m_tool->write("notes.txt", "second");
    // Newer than all that was made of it, whatever differences the file system sees.
    m_tool->setAge({"notes.txt"}, -2);
    const Run run = runHere("make", {});
    QVERIFY2(run.out.contains("pelk-fcf create"), run.out + run.err);
    QCOMPARE(m_tool->run({"show", m_tool->argument("top.fcf"), "--field", "description"}).out,
             QByteArray("second\n"));
}

void ExamplesTest::cmakeBuildsAnImage_data()
{
    QTest::addColumn<QString>("generator");
    QTest::newRow("Ninja") << "Ninja";
    QTest::newRow("Makefiles") << "Unix Makefiles";
}

void ExamplesTest::cmakeBuildsAnImage()
{
    QFETCH(QString, generator);
    m_tool->write("notes.txt", "first");
    QByteArray recipe = m_tool->read("top.json");
    recipe.replace("\"description\": \"Rev B\"", "\"descriptionFile\": \"notes.txt\"");
    m_tool->write("top.json", recipe);
    m_tool->write("CMakeLists.txt", "cmake_minimum_required(VERSION 3.21)\nproject(image NONE)\n"
                                    "configure_file(top.bin top.bin COPYONLY)\n" +
                                        example("cmake").toUtf8());
    Run run = runHere("cmake", {"-G", generator, "-S", ".", "-B", "out"});
    QVERIFY2(run.code == 0, run.err);
    run = runHere("cmake", {"--build", "out"});
    QVERIFY2(run.code == 0, run.out + run.err);
    const std::string image = m_tool->argument("out/top.fcf");
    QCOMPARE(m_tool->run({"verify", image, "--bin", m_tool->argument("top.bin")}).code, 0);

    m_tool->write("notes.txt", "second");
    // Newer than all that was made of it, whatever differences the file system sees.
    m_tool->setAge({"notes.txt"}, -2);
    run = runHere("cmake", {"--build", "out"});
    QVERIFY2(run.code == 0, run.out + run.err);
    QCOMPARE(m_tool->run({"show", image, "--field", "description"}).out, QByteArray("second\n"));
}

void ExamplesTest::buildServersMakeACheckedImage_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("GitLab CI") << 1;
    QTest::newRow("GitHub Actions") << 2;
}

void ExamplesTest::buildServersMakeACheckedImage()
{
    QFETCH(int, number);
    const QString steps = shellSteps(example("yaml", number));
    QCOMPARE(steps.count('\n'), 2);
    const Run run = runHere("sh", {"-ec", steps});
    QVERIFY2(run.code == 0, run.err);
    QVERIFY2(run.out.endsWith("top.fcf: valid\n"), run.out);
    for (const char* const name : {"top.fcf", "top.txt", "top.fcf.sha256"})
        QVERIFY(m_tool->exists(name));
}

void ExamplesTest::toolsSignAnImage_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("signature");
    QTest::newRow("OpenSSL") << "openssl"
                             << "top.fcf.sig";
    QTest::newRow("GnuPG") << "gpg"
                           << "top.fcf.asc";
    QTest::newRow("Minisign") << "minisign"
                              << "top.fcf.minisig";
}

void ExamplesTest::toolsSignAnImage()
{
    QFETCH(QString, program);
    QFETCH(QString, signature);
    if (program != "openssl" && QStandardPaths::findExecutable(program).isEmpty())
        QSKIP("is not installed");
    m_tool->makeImage();
    QVERIFY(QDir().mkdir(m_tool->path("keys")));
    QFile::setPermissions(m_tool->path("keys"),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    // GnuPG leaves a process that would go on.
    QString before = "export GNUPGHOME=$PWD/keys\n";
    if (program == "gpg")
        before += "trap 'gpgconf --kill gpg-agent' EXIT\n"
                  "gpg --batch --passphrase '' --quick-generate-key Ann default default never\n";
    const QString steps = example("sh " + program);
    QVERIFY(steps.contains(program + ' '));
    Run run = runHere("sh", {"-ec", before + steps});
    QVERIFY2(run.code == 0, run.err);
    QVERIFY(m_tool->exists(signature));
    // The last line, which checks, finds another image out.
    m_tool->write("top.fcf", m_tool->read("top.fcf") + "x");
    run = runHere("sh", {"-ec", "export GNUPGHOME=$PWD/keys\n" +
                                    steps.split('\n', Qt::SkipEmptyParts).last()});
    if (program == "gpg")
        runHere("sh", {"-c", "GNUPGHOME=$PWD/keys gpgconf --kill gpg-agent"});
    QVERIFY(run.code != 0);
}

/// Checks the files \p names against the schema, all at once.
Run ExamplesTest::checkSchema(const QString& schema, const QStringList& names)
{
    // Not one that is there for something else, which may lack the module.
    QStringList arguments{"-W", "ignore", "-m", "jsonschema"};
    for (const QString& name : names)
        arguments << "-i" << name;
    return runHere("/usr/bin/python3", arguments + QStringList(SCHEMAS "/" + schema));
}

void ExamplesTest::resultsFollowTheirSchema()
{
    m_tool->makeImage();
    m_tool->write("other.fcf", ForgedImage().bytes());
    const std::string image = m_tool->argument("top.fcf");
    const std::string other = m_tool->argument("other.fcf");
    const std::string binary = m_tool->argument("top.bin");
    m_tool->write("bad.fcf", "bad");
    const QList<Arguments> commands = {
        m_tool->createAll({"--force", "--swap", "bits"}),
        m_tool->createAll(),
        {"create", binary, "--author"},
        {"show", image, "--check"},
        {"show", image, "--field", "version"},
        {"list", m_tool->argument(".")},
        {"list", m_tool->argument("none")},
        {"verify", image, other, m_tool->argument("top.txt")},
        {"verify", image, "--bin", binary, "--swap", "bits"},
        {"extract", other, "--output", m_tool->argument("out.bin")},
        {"recipe", image},
        {"recipe", "--check", m_tool->argument("top.json")},
        {"diff", image, other},
        {"diff", image, image},
        {"nonsense"},
    };
    QStringList names;
    for (const Arguments& command : commands) {
        names << QString("%1.result").arg(names.size());
        m_tool->write(names.last(), m_tool->run(command + Arguments{"--json"}).out);
    }
    const Run run = checkSchema("result.schema.json", names);
    QVERIFY2(run.code == 0, run.out + run.err);
    m_tool->write("wrong", m_tool->read("0.result").replace("\"companion\"", "\"files\""));
    QVERIFY(checkSchema("result.schema.json", {"wrong"}).code != 0);
}

void ExamplesTest::recipesFollowTheirSchema()
{
    m_tool->write("document.json", example("json").toUtf8());
    m_tool->write("file.json", "{\"$schema\": \"x\", \"recipe\": 2, \"descriptionFile\": \"a\"}");
    const Run run = checkSchema("recipe.schema.json", {"top.json", "document.json", "file.json"});
    QVERIFY2(run.code == 0, run.out + run.err);
    for (const char* const wrong : {"{\"recipe\": 2, \"autor\": \"Ann\"}", "{\"recipe\": 1}",
                                    "{\"recipe\": 2, \"version\": {\"major\": 1, \"minor\": 2}}"}) {
        m_tool->write("wrong", wrong);
        QVERIFY2(checkSchema("recipe.schema.json", {"wrong"}).code != 0, wrong);
    }
}

ZORV_TEST(ExamplesTest)
#include "ExamplesTest.moc"
