#include "ProgramTest.h"

#include <QFile>
#include <QFileInfo>
#include <QtTest>

namespace {

/// The example of the document in \p language.
QString example(const QString& language)
{
    QFile document(DOCUMENT);
    if (!document.open(QIODevice::ReadOnly))
        qFatal("%s: %s", DOCUMENT, qPrintable(document.errorString()));
    const QString text = QString::fromUtf8(document.readAll());
    return text.section("```" + language + '\n', 1, 1).section("```", 0, 0);
}

} // namespace

/// The examples for build systems do what the document says.
class ExamplesTest : public ProgramTest {
    Q_OBJECT

private slots:
    void init();
    void makeBuildsNothingAnewThatDidNotChange();
    void cmakeBuildsAnImage();

private:
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
    Run run = runHere("make", {});
    QVERIFY2(run.code == 0, run.err);
    QCOMPARE(m_tool->run({"verify", m_tool->argument("top.fcf"), "--require-digest"}).code, 0);
    m_tool->write("top.json", m_tool->read("top.json") + "\n");
    run = runHere("make", {});
    QVERIFY2(run.code == 0, run.err);
    QVERIFY2(run.out.contains("pelk-fcf create"), run.out);
    QCOMPARE(m_tool->read("flash"), QByteArray("built\n"));
}

void ExamplesTest::cmakeBuildsAnImage()
{
    m_tool->write("CMakeLists.txt", "cmake_minimum_required(VERSION 3.10)\nproject(image NONE)\n"
                                    "configure_file(top.bin top.bin COPYONLY)\n" +
                                        example("cmake").toUtf8());
    Run run = runHere("cmake", {"-G", "Ninja", "-S", ".", "-B", "out"});
    QVERIFY2(run.code == 0, run.err);
    run = runHere("cmake", {"--build", "out"});
    QVERIFY2(run.code == 0, run.out + run.err);
    QCOMPARE(
        m_tool
            ->run({"verify", m_tool->argument("out/top.fcf"), "--bin", m_tool->argument("top.bin")})
            .code,
        0);
}

QTEST_GUILESS_MAIN(ExamplesTest)
#include "ExamplesTest.moc"
