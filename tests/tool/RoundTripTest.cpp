#include "support/TestProgram.h"
#include "ToolFixture.h"

#include "fcf/FcfTarget.h"
#include "tool/recipe/RecipeJson.h"

#include <QJsonArray>
#include <QRandomGenerator>
#include <QtTest>

namespace {

constexpr int Builds = 200;

/// Letters that have been trouble somewhere: marks, separators, quotes, several bytes each.
const QStringList Letters = {
    "a", "Z", "0",  " ", ":", ": ", "-",  "--", "'",  "\"", "\\", "/", "\t",
    "ä", "Ж", "字", "😀", "[", "]",  "{}", "%%", "%1", "@",  "#",  "$", "\u00ef\u00bf\u00bd"};

class Random {
public:
    explicit Random(quint32 seed) : m_generator(seed) {}

    int upTo(int bound) { return static_cast<int>(m_generator.bounded(bound + 1)); }

    template <class List>
    auto oneOf(const List& list)
    {
        return list.at(upTo(list.size() - 1));
    }

    /// Without the marks that \p lines, a text over several lines, may not hold.
    QString text(int length, bool lines)
    {
        QString text;
        while (text.size() < length)
            text += lines && upTo(9) == 0 ? QString('\n') : oneOf(Letters);
        while (text.contains("---"))
            text.replace("---", "-.-");
        return text;
    }

    Recipe recipe()
    {
        Recipe recipe;
        recipe.author = "A" + text(upTo(20), false);
        recipe.ciNumber = "C" + text(upTo(10), false);
        recipe.module = oneOf(FcfTarget::modules());
        recipe.device = oneOf(FcfTarget::devicesOf(*recipe.module));
        recipe.configNumber = 1 + upTo(9);
        recipe.version = Version{upTo(999), upTo(999)};
        recipe.description = text(upTo(200), true).trimmed();
        recipe.functions.emplace();
        for (int count = upTo(4); count > 0; --count)
            recipe.functions->append({text(upTo(20), false), text(upTo(10), false),
                                      text(upTo(10), false), text(upTo(60), true).trimmed()});
        return recipe;
    }

    QByteArray payload() { return ToolFixture::payload(1 + upTo(upTo(3) == 0 ? 300000 : 5000)); }

private:
    QRandomGenerator m_generator;
};

} // namespace

/// What went into an image comes out of it again.
class RoundTripTest : public QObject {
    Q_OBJECT

private slots:
    void createsShowsVerifiesExtractsAndRepeats();
    void readsAFunctionOfEachOption();

private:
    void check(quint32 seed);
    void checkShown(const Recipe& recipe);
    QJsonObject show(const QString& name, const char* key)
    {
        const Run run = m_tool.run({"show", m_tool.argument(name), "--json"});
        return run.firstFile()[key].toObject();
    }

    ToolFixture m_tool;
};

void RoundTripTest::createsShowsVerifiesExtractsAndRepeats()
{
    for (quint32 seed = 0; seed < Builds; ++seed) {
        check(seed);
        if (QTest::currentTestFailed()) {
            qWarning("seed %u", seed);
            return;
        }
    }
}

void RoundTripTest::check(quint32 seed)
{
    Random random(seed);
    const Recipe recipe = random.recipe();
    const QByteArray payload = random.payload();
    const QByteArray json = RecipeJson::write(recipe);
    m_tool.write("top.bin", payload);
    m_tool.write("recipe.json", json);
    const std::string image = m_tool.argument("top.fcf");
    const Run made = m_tool.run({"create", m_tool.argument("top.bin"), "--like",
                                 m_tool.argument("recipe.json"), "--force"});
    QVERIFY2(made.code == 0, made.err);
    checkShown(recipe);

    const Run verified = m_tool.run({"verify", image, "--bin", m_tool.argument("top.bin"),
                                     "--companion", m_tool.argument("top.txt")});
    QVERIFY2(verified.code == 0, verified.out);
    QCOMPARE(m_tool.run({"verify", m_tool.argument("top.txt")}).code, 0);
    QCOMPARE(m_tool.run({"extract", image, "--output", "-"}).out, payload);
    QCOMPARE(m_tool.run({"recipe", image}).out, json);
    QCOMPARE(m_tool.run({"recipe", m_tool.argument("top.txt")}).out, json);

    const Run repeated = m_tool.run(
        {"create", m_tool.argument("top.bin"), "--like", image, "--output", "-", "--no-companion"});
    QCOMPARE(repeated.code, 0);
    QCOMPARE(repeated.out, m_tool.read("top.fcf"));
}

void RoundTripTest::checkShown(const Recipe& recipe)
{
    const QJsonObject header = show("top.fcf", "header");
    QCOMPARE(header["module"].toString(), *recipe.module);
    QCOMPARE(header["device"].toString(), *recipe.device);
    QCOMPARE(header, show("top.txt", "header"));
    QCOMPARE(header["author"].toString(), *recipe.author);
    QCOMPARE(header["ciNumber"].toString(), *recipe.ciNumber);
    QCOMPARE(header["description"].toString(), *recipe.description);
    QCOMPARE(header["configNumber"].toInt(), *recipe.configNumber);
    QCOMPARE(header["versionMinor"].toInt(), recipe.version->minor);
    QCOMPARE(header["functions"].toArray().size(), recipe.functions->size());
    for (int index = 0; index < recipe.functions->size(); ++index) {
        const QJsonObject function = header["functions"].toArray()[index].toObject();
        QCOMPARE(function["name"].toString(), recipe.functions->at(index).name);
        QCOMPARE(function["description"].toString(), recipe.functions->at(index).description);
    }
}

void RoundTripTest::readsAFunctionOfEachOption()
{
    ToolFixture tool;
    tool.write("top.bin", ToolFixture::payload(100));
    Random random(1);
    Arguments functions;
    QStringList names;
    for (int index = 0; index < 5; ++index) {
        names << random.text(30, false);
        functions = functions + Arguments{"--function", names.last().toStdString(), "a", "b", "c"};
    }
    QCOMPARE(tool.run(Arguments{"create", tool.argument("top.bin")} + ToolFixture::described() +
                      functions)
                 .code,
             0);
    const Run shown = tool.run({"show", tool.argument("top.fcf"), "--json"});
    const QJsonArray found = shown.firstFile()["header"].toObject()["functions"].toArray();
    QCOMPARE(found.size(), names.size());
    for (int index = 0; index < names.size(); ++index)
        QCOMPARE(found[index].toObject()["name"].toString(), names.at(index));
}

ZORV_TEST(RoundTripTest)
#include "RoundTripTest.moc"
