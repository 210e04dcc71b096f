#include "ProgramTest.h"
#include "support/TestProgram.h"

#include <QtTest>

#include <memory>
#include <vector>

namespace {

constexpr int Writers = 4;
constexpr int Rounds = 20;

} // namespace

/// Several runs at once for the same outputs.
class ConcurrencyTest : public ProgramTest {
    Q_OBJECT

private slots:
    void letsOneRunAfterTheOtherWrite();
};

void ConcurrencyTest::letsOneRunAfterTheOtherWrite()
{
    ToolFixture tool;
    for (int writer = 0; writer < Writers; ++writer)
        tool.write(QString("%1.bin").arg(writer), ToolFixture::payload(100000 * (writer + 1)));
    const QString image = tool.path("top.fcf");
    for (int round = 0; round < Rounds; ++round) {
        std::vector<std::unique_ptr<QProcess>> processes;
        for (int writer = 0; writer < Writers; ++writer) {
            processes.push_back(std::make_unique<QProcess>());
            processes.back()->start(PELK_FCF, create(tool, QString("%1.bin").arg(writer),
                                                     {"--force", "--digest", "--output", image}));
        }
        for (const auto& process : processes) {
            const Run run = finished(process.get());
            QVERIFY2(run.code == 0, run.err);
        }
        const Run verified = run({"verify", image, "--companion", tool.path("top.txt")});
        QVERIFY2(verified.code == 0, verified.out);
        QCOMPARE(tool.names(), QStringList({"0.bin", "1.bin", "2.bin", "3.bin", "top.fcf",
                                            "top.fcf.sha256", "top.txt"}));
    }
}

ZORV_TEST(ConcurrencyTest)
#include "ConcurrencyTest.moc"
