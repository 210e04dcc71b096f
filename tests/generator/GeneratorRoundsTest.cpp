#include "generator/FormModel.h"
#include "generator/GeneratorTest.h"

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

namespace {

/// The lines of an image that depend on the form alone: not file name, date and time.
QStringList formLines(const PlainFcf& fcf)
{
    QStringList lines;
    for (std::size_t i = 2; i < fcf.lines.size(); ++i) {
        if (i != 4 && i != 5)
            lines << QString::fromStdString(fcf.lines[i]);
    }
    return lines;
}

class RandomTexts {
public:
    explicit RandomTexts(quint32 seed) : m_random(seed) {}

    int number(int below) { return int(m_random.bounded(below)); }
    QString line(int longest)
    {
        static const QStringList pieces = {"a",        "B",
                                           "7",        " ",
                                           ":",        ": ",
                                           "-",        "--",
                                           "<",        "&amp;",
                                           "\"",       "</b>",
                                           "é",        "ж",
                                           "雷",       "🛰",
                                           "'",        "\t",
                                           "---",      "----",
                                           "Filename", "Function name: "};
        QString text;
        for (int count = number(8); count > 0; --count) {
            // The hyphens that end a record are rare, or few texts would survive at all.
            const int piece =
                number(60) == 0 ? pieces.size() - 1 - number(4) : number(pieces.size() - 4);
            text += pieces[piece];
        }
        return text.left(longest);
    }
    QString lines()
    {
        QStringList texts;
        for (int count = number(4); count >= 0; --count)
            texts << line(30);
        return texts.join('\n');
    }

private:
    QRandomGenerator m_random;
};

} // namespace

class GeneratorRoundsTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void bringsATextBack_data();
    void bringsATextBack();
    void losesWhatFollowsFourHyphensInAFunctionName();
    void losesWhatFollowsThreeHyphensInADescription();
    void keepsThreeHyphensInOtherTexts();
    void showsTheTargetThatTheUserGuideNames_data();
    void showsTheTargetThatTheUserGuideNames();
    void changesOneThingAWeekLater();
    void bringsAThousandRandomBuildsBack();

private:
    PlainFcf generate();
    FormModel form() const;
    void compareForm(const FormModel& expected);
};

/// Generates a new image, so that a thousand rounds need not wait for the question.
PlainFcf GeneratorRoundsTest::generate()
{
    QFile::remove(driver->path("top.fcf"));
    driver->click("GenerateButton");
    if (!driver->text("StatusBar").contains("Successfully"))
        qFatal("Not generated: %s", qPrintable(driver->text("StatusBar")));
    return PlainFcf::fromFile(driver->path("top.fcf").toStdString());
}

FormModel GeneratorRoundsTest::form() const
{
    FormModel shown;
    shown.module = driver->window()->getModule();
    shown.device = driver->window()->getDevice();
    shown.slot = driver->window()->getConfigNum();
    shown.versionMajor = driver->text("MajorVerEditBox");
    shown.versionMinor = driver->text("MinorVerEditBox");
    shown.author = driver->text("AuthoEditBox");
    shown.ciNumber = driver->text("CiNumEditBox");
    shown.description = driver->text("DescriptionMemo");
    shown.names = driver->functionNames();
    for (int i = 0; i < shown.names.size(); ++i) {
        driver->window()->displayFunctionInfo(i);
        shown.functions << driver->editor();
    }
    return shown;
}

void GeneratorRoundsTest::compareForm(const FormModel& expected)
{
    const FormModel shown = form();
    QCOMPARE(shown.module, expected.module);
    QCOMPARE(shown.device, expected.device);
    QCOMPARE(shown.slot, expected.slot);
    QCOMPARE(shown.versionMajor, expected.versionMajor);
    QCOMPARE(shown.versionMinor, expected.versionMinor);
    QCOMPARE(shown.author, expected.author);
    QCOMPARE(shown.ciNumber, expected.ciNumber);
    QCOMPARE(shown.description, expected.description);
    QCOMPARE(shown.names, expected.names);
    QCOMPARE(shown.functions, expected.functions);
}

void GeneratorRoundsTest::bringsATextBack_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("ciNumber");
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("functionName");
    QTest::addColumn<QString>("functionNumber");
    QTest::addColumn<QString>("functionDescription");
    const auto same = [](const char* name, const char* text) {
        const QString t = QString::fromUtf8(text);
        QTest::newRow(name) << t << t << t << t << " " + t << t;
    };
    same("plain", "R. Vos");
    same("Latin letters", "Zoë Übung");
    same("Cyrillic", "Ольга Мбеки");
    same("Arabic", "مبيكي");
    same("Chinese", "雷达前端");
    same("beyond the basic plane", "🛰 🛰");
    same("markup", "<b>&amp;</b> \"x\"");
    same("two hyphens", "a -- b");
    QTest::newRow("empty") << ""
                           << ""
                           << ""
                           << ""
                           << " 0000"
                           << "0000";
    QTest::newRow("blanks at both ends") << " a "
                                         << "a"
                                         << "a"
                                         << "a"
                                         << "  a "
                                         << "a";
    QTest::newRow("a colon") << "a:b"
                             << "a:b"
                             << "a"
                             << "a:b"
                             << " a"
                             << "a:b";
    QTest::newRow("a colon and a blank") << "a: b"
                                         << "a"
                                         << "a"
                                         << "a"
                                         << " a"
                                         << "a";
    QTest::newRow("a colon at the end") << "a:"
                                        << "a:"
                                        << "a"
                                        << "a:"
                                        << " a"
                                        << "a:";
}

void GeneratorRoundsTest::bringsATextBack()
{
    QFETCH(QString, text);
    const bool empty = text.isEmpty();
    driver->window()->setBinFile(driver->binary("top.bin", 10));
    driver->type("AuthoEditBox", "a");
    driver->type("CiNumEditBox", empty ? "1" : text);
    driver->type("DescriptionMemo", text);
    driver->upload(empty ? "name" : text, text, text, text);
    const PlainFcf first = generate();

    driver->window()->addNew();
    driver->window()->setTxtFile(driver->path("top.txt"));
    if (!empty) {
        QTEST(driver->text("CiNumEditBox"), "ciNumber");
        QTEST(form().functions[0][0], "functionName");
    }
    QTEST(driver->text("DescriptionMemo"), "description");
    QTEST(form().functions[0][3], "functionNumber");
    QTEST(form().functions[0][2], "functionDescription");

    // Reading what was written and writing it again: the lines are those of the form.
    const PlainFcf second = generate();
    QCOMPARE(formLines(second), FormModel::afterLoading(first).generatedLines());
    QVERIFY(second.payload == first.payload);
}

void GeneratorRoundsTest::losesWhatFollowsFourHyphensInAFunctionName()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->type("DescriptionMemo", "Rev: B");
    driver->upload("kept", "a", "d", "1");
    driver->upload("lost----here", "a", "d", "2");
    driver->upload("behind", "a", "d", "3");
    generate();
    driver->reopen();
    driver->window()->setTxtFile(driver->path("top.txt"));
    QVERIFY(driver->text("StatusBar").contains("successfully"));
    QCOMPARE(driver->text("DescriptionMemo"), QString("Rev"));
    QCOMPARE(driver->functionNames(), QStringList("kept"));
}

void GeneratorRoundsTest::losesWhatFollowsThreeHyphensInADescription()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->type("DescriptionMemo", "one\ntwo --- 2\nthree");
    driver->upload("function", "a", "d", "1");
    generate();
    driver->reopen();
    driver->window()->setTxtFile(driver->path("top.txt"));
    QCOMPARE(driver->text("DescriptionMemo"), QString("one"));
    // The lines behind are taken for a function, and what was one for the rest of it.
    QCOMPARE(driver->functionNames().first(), QString());
    QVERIFY(!driver->functionNames().contains("function"));
}

void GeneratorRoundsTest::keepsThreeHyphensInOtherTexts()
{
    driver->fillIn(driver->binary("top.bin", 10));
    driver->type("AuthoEditBox", "a --- b");
    driver->type("CiNumEditBox", "---");
    driver->upload("n --- m", "---", "d", "-----");
    generate();
    driver->reopen();
    driver->window()->setTxtFile(driver->path("top.txt"));
    QVERIFY(driver->text("StatusBar").contains("successfully"));
    QCOMPARE(driver->text("AuthoEditBox"), QString("a --- b"));
    QCOMPARE(driver->text("CiNumEditBox"), QString("---"));
    QCOMPARE(form().functions, QVector<QStringList>({{"n --- m", "---", "d", " -----"}}));
}

void GeneratorRoundsTest::showsTheTargetThatTheUserGuideNames_data()
{
    QTest::addColumn<QStringList>("made");
    QTest::addColumn<QStringList>("shown");
    QFile guide(QFINDTESTDATA("../../docs/guide/changing-a-build.md"));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    static const QRegularExpression row(
        "\\| (DFE|DFE2|GPM), (\\w+) \\| (DFE|DFE2|GPM), (no device|\\w+)");
    const QString text = guide.readAll();
    int rows = 0;
    for (auto match = row.globalMatch(text); match.hasNext();) {
        const QStringList cells = match.next().capturedTexts();
        QTest::newRow(qPrintable(cells[1] + ' ' + cells[2]))
            << QStringList{cells[1], cells[2]}
            << QStringList{cells[3], cells[4] == "no device" ? QString() : cells[4]};
        ++rows;
    }
    QCOMPARE(rows, 8);
}

void GeneratorRoundsTest::showsTheTargetThatTheUserGuideNames()
{
    QFETCH(QStringList, made);
    driver->fillIn(driver->binary("top.bin", 10));
    driver->window()->setModule(made[0]);
    driver->window()->setDevice(made[1]);
    driver->window()->setConfigNum(6);
    generate();
    driver->reopen();
    driver->window()->setTxtFile(driver->path("top.txt"));
    QTEST(QStringList({driver->window()->getModule(), driver->window()->getDevice()}), "shown");
    QCOMPARE(driver->window()->getConfigNum(), 6);
}

void GeneratorRoundsTest::changesOneThingAWeekLater()
{
    const QString binary = driver->binary("top.bin", 5000);
    driver->fillIn(binary);
    driver->type("DescriptionMemo", "Front end\nwith two lines");
    driver->select("FpgaComboBox", 2);
    driver->select("ConfigComboBox", 4);
    driver->upload("Chirp", "Z", "up and down", "42");
    driver->upload("Bank", "L", "64 channels", "43");
    driver->click("GenerateButton");
    const PlainFcf first = PlainFcf::fromFile(driver->path("top.fcf").toStdString());

    driver->reopen();
    driver->window()->setClock([] { return QDateTime(QDate(2026, 11, 28), QTime(10, 0, 0)); });
    driver->dialogs().choose(driver->path("top.txt"));
    driver->chooseFromFileMenu("Load");
    compareForm(FormModel::afterLoading(first));
    driver->dialogs().choose(binary);
    driver->click("btnLoad");
    driver->click("ModifyFunctionCheckBox");
    driver->dialogs().click(QMessageBox::Yes);
    driver->upload("Bank", "L", "128 channels", "43");
    driver->window()->setModule("DFE");
    driver->window()->setDevice("Clock_Master_Device");
    driver->dialogs().click(QMessageBox::Yes);
    driver->click("GenerateButton");

    const PlainFcf second = PlainFcf::fromFile(driver->path("top.fcf").toStdString());
    QVERIFY(second.numbers == first.numbers);
    QVERIFY(second.payload == first.payload);
    std::vector<std::string> expected = first.lines;
    expected[4] = "Date: 28 Nov 2026";
    expected[5] = "Time: 10:00:00";
    expected[11] = "Function CI No:  42";
    expected[17] = "Function description: 128 channels";
    QVERIFY(second.lines == expected);
}

void GeneratorRoundsTest::bringsAThousandRandomBuildsBack()
{
    const QString binary = driver->binary("top.bin", 300);
    RandomTexts random(20261121);
    int complete = 0;
    for (int round = 0; round < 1000; ++round) {
        driver->window()->addNew();
        driver->window()->setBinFile(binary);
        driver->window()->setModule(QStringList{"DFE", "DFE2", "GPM"}[random.number(3)]);
        auto* const devices = driver->find<QComboBox>("FpgaComboBox");
        devices->setCurrentIndex(random.number(devices->count()));
        driver->window()->setConfigNum(1 + random.number(10));
        driver->window()->setVersion(random.number(1000), random.number(1000));
        driver->window()->setAuthor("a" + random.line(15));
        driver->window()->setCINumber("1" + random.line(15));
        driver->window()->setDescription(random.lines());
        for (int count = random.number(5); count > 0; --count) {
            driver->find<QLineEdit>("EditFunctionName")
                ->setText(random.line(30) + QString::number(count));
            driver->find<QLineEdit>("AuthorFunctions")->setText(random.line(15));
            driver->find<QTextEdit>("DescriptionMemoFunctions")->setPlainText(random.lines());
            driver->find<QLineEdit>("CiNumberEditBoxFunctions")->setText(random.line(15));
            driver->click("UploadFunctionButton");
        }
        const PlainFcf first = generate();

        driver->window()->addNew();
        driver->window()->setModule("DFE");
        driver->window()->setTxtFile(driver->path("top.txt"));
        const FormModel expected = FormModel::afterLoading(first);
        QCOMPARE(driver->text("StatusBar").contains("successfully"), expected.complete);
        if (!expected.complete)
            continue;
        ++complete;
        compareForm(expected);
        if (QTest::currentTestFailed())
            qFatal("Round %d", round);

        const PlainFcf second = generate();
        QCOMPARE(formLines(second), expected.generatedLines());
        for (const std::size_t kept : {0u, 1u, 2u, 3u, 4u, 5u, 8u, 9u, 10u})
            QCOMPARE(second.numbers[kept], first.numbers[kept]);
        QVERIFY(second.payload == first.payload);
    }
    QVERIFY2(complete > 800, qPrintable(QString::number(complete)));
}

QTEST_MAIN(GeneratorRoundsTest)
#include "GeneratorRoundsTest.moc"
