#include "support/TestProgram.h"
#include "ToolFixture.h"

#include <QFile>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QtTest>

namespace {

/// PELK_FCF_MUTATIONS asks for more.
constexpr int Mutations = 500;

/// Bytes that have a meaning in some page.
const QList<QByteArray> Pieces = {"---\n",
                                  "----\n",
                                  "\n",
                                  "Filename: ",
                                  "\r\n",
                                  "\xff\xff\xff\xff",
                                  "\xe2\x80\xae",
                                  "\xc3",
                                  ": ",
                                  QByteArray(4, '\0'),
                                  "Function name: ",
                                  QByteArray("\x80\0\0\0", 4)};

/// \p image with a few changes at places of which most are in the header page.
QByteArray mutated(QByteArray image, QRandomGenerator* random)
{
    for (int changes = 1 + random->bounded(6); changes > 0; --changes) {
        const int end = random->bounded(8) == 0 ? image.size() : qMin(image.size(), 400);
        const int at = random->bounded(end + 1);
        switch (random->bounded(6)) {
        case 0:
            image.truncate(random->bounded(4) == 0 ? at : image.size());
            break;
        case 1:
            image.insert(at, Pieces.at(random->bounded(Pieces.size())));
            break;
        case 2:
            image.remove(at, random->bounded(40));
            break;
        case 3:
            image.append(random->bounded(3000), random->bounded(2) == 0 ? '\xff' : '\0');
            break;
        default:
            if (at < image.size())
                image[at] = static_cast<char>(random->bounded(256));
        }
    }
    return image;
}

} // namespace

/// Damaged images go through every command that reads one: it ends with one of its codes and, as
/// JSON, with one whole object.
class MutationTest : public QObject {
    Q_OBJECT

private slots:
    void everyCommandSurvivesDamagedImages();
};

void MutationTest::everyCommandSurvivesDamagedImages()
{
    ToolFixture tool;
    tool.makeImage();
    const QByteArray image = ForgedImage().bytes();
    const std::string path = tool.argument("x.fcf");
    const QList<Arguments> commands = {
        {"show", path},
        {"show", path, "--check"},
        {"show", path, "--field", "version"},
        {"verify", path},
        {"verify", path, "--bin", tool.argument("top.bin"), "--swap", "bytes"},
        {"list", path},
        {"list", path, "--digest"},
        {"recipe", path},
        {"extract", path, "--output", tool.argument("out"), "--force"},
        {"diff", path, tool.argument("top.fcf")},
        {"create", tool.argument("top.bin"), "--like", path, "--output", tool.argument("y.fcf"),
         "--force"}};
    const int count = qEnvironmentVariableIsSet("PELK_FCF_MUTATIONS")
                          ? qEnvironmentVariableIntValue("PELK_FCF_MUTATIONS")
                          : Mutations;
    QRandomGenerator random(1);
    QMap<int, int> codes;
    for (int mutation = 0; mutation < count; ++mutation) {
        const QByteArray bytes = mutated(image, &random);
        QFile::remove(tool.path("x.fcf"));
        tool.write("x.fcf", bytes);
        for (const Arguments& command : commands) {
            const Run run = tool.run(command + Arguments{"--json"});
            ++codes[run.code];
            const QByteArray what = QByteArray::number(mutation) + ' ' +
                                    QByteArray::fromStdString(command.front()) + ": " + run.err;
            QVERIFY2(run.code >= 0 && run.code <= 4, what);
            QJsonParseError error;
            const QJsonDocument document = QJsonDocument::fromJson(run.out, &error);
            QVERIFY2(error.error == QJsonParseError::NoError && document.isObject(), what);
            QCOMPARE(document.object()["exitCode"].toInt(-1), run.code);
        }
    }
    for (auto code = codes.cbegin(); code != codes.cend(); ++code)
        qInfo("exit code %d: %d of %d runs", code.key(), code.value(),
              count * int(commands.size()));
}

ZORV_TEST(MutationTest)
#include "MutationTest.moc"
