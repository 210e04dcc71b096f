// Long random sequences through the real generator window, compared with the model of its rules.

#include "generator/model/GeneratorDice.h"
#include "generator/model/GeneratorRegressions.h"
#include "generator/model/GeneratorRun.h"
#include "generator/model/GeneratorWindow.h"
#include "generator/PelkFcfGenerator.h"

#include <QApplication>
#include <QTextCodec>
#include <QtTest>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

const int StepsOfSequence = 24;

int numberFrom(const char* variable, int otherwise)
{
    const QByteArray text = qgetenv(variable);
    return text.isEmpty() ? otherwise : text.toInt();
}

int seed() { return numberFrom("PELK_MODEL_SEED", 1); }

/// Another locale, time zone and codec of texts for each seed.
void changeSurroundings()
{
    static const char* const Locales[] = {"C", "de_DE.UTF-8", "en_US.UTF-8", "ja_JP.UTF-8",
                                          "ar_EG.UTF-8"};
    static const char* const Zones[] = {"Asia/Kathmandu", "America/St_Johns", "Pacific/Auckland"};
    const std::size_t number = static_cast<std::size_t>(qAbs(seed()));
    if (qgetenv("QT_QPA_PLATFORM").isEmpty())
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // A day: many steps take longer than Qt gives a function.
    if (qgetenv("QTEST_FUNCTION_TIMEOUT").isEmpty())
        qputenv("QTEST_FUNCTION_TIMEOUT", "86400000");
    qputenv("LC_ALL", "");
    qputenv("LANG", "C.UTF-8");
    qputenv("LC_TIME", Locales[number % 5]);
    qputenv("TZ", Zones[number % 3]);
}

/// \p steps without what is not needed to fail.
QVector<Step> shortened(GeneratorRun* run, QVector<Step> steps)
{
    for (int length = qMax(1, steps.size() / 2); length >= 1; length /= 2) {
        for (int start = steps.size() - length; start >= 0; --start) {
            QVector<Step> fewer = steps;
            fewer.remove(start, qMin(length, fewer.size() - start));
            if (!run->play(fewer).isEmpty())
                steps = fewer;
            start = qMin(start, steps.size() - length + 1);
        }
    }
    for (int i = 0; i < steps.size(); ++i) {
        int Step::*const numbers[] = {&Step::a, &Step::b};
        for (int Step::*const number : numbers) {
            QVector<Step> simpler = steps;
            simpler[i].*number = 0;
            if (!run->play(simpler).isEmpty())
                steps = simpler;
        }
        QVector<Step> simpler = steps;
        simpler[i].plan = 0;
        if (!run->play(simpler).isEmpty())
            steps = simpler;
    }
    return steps;
}

} // namespace

class GeneratorModelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesTheStepsOf_data();
    void takesTheStepsOf();
    void takesRandomSteps();
    void takesTheStepsOfAFile();
    void stampsTheLocalTimeByItself();

private:
    void report(const QVector<Step>& steps);

    GeneratorRun m_run;
};

void GeneratorModelTest::takesTheStepsOf_data()
{
    QTest::addColumn<int>("number");
    const QVector<Regression> regressions = generatorRegressions();
    for (int number = 0; number < regressions.size(); ++number)
        QTest::newRow(regressions.at(number).name) << number;
}

void GeneratorModelTest::takesTheStepsOf()
{
    QFETCH(int, number);
    const QString found = m_run.play(generatorRegressions().at(number).steps);
    QVERIFY2(found.isEmpty(), found.toUtf8().constData());
}

void GeneratorModelTest::takesRandomSteps()
{
    const int actions = numberFrom("PELK_MODEL_ACTIONS", 600);
    GeneratorDice dice(static_cast<quint32>(seed()));
    for (int taken = 0; taken < actions;) {
        const QVector<Step> steps = dice.sequence(StepsOfSequence);
        taken += steps.size();
        if (m_run.play(steps).isEmpty())
            continue;
        report(steps);
        QFAIL("the window and its model differ");
    }
    if (qgetenv("PELK_MODEL_BRANCHES").isEmpty())
        return;
    for (auto branch = m_run.reached().constBegin(); branch != m_run.reached().constEnd(); ++branch)
        std::printf("%8d %s\n", branch.value(), branch.key().toUtf8().constData());
}

void GeneratorModelTest::takesTheStepsOfAFile()
{
    const QByteArray name = qgetenv("PELK_MODEL_STEPS");
    if (name.isEmpty())
        return;
    QFile file(QFile::decodeName(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QVector<Step> steps = parsed(file.readAll());
    if (m_run.play(steps).isEmpty())
        return;
    report(steps);
    QFAIL("the window and its model differ");
}

void GeneratorModelTest::stampsTheLocalTimeByItself()
{
    const QString folder = WorkingFolder::make();
    const QString binary = folder + QLatin1String("/top.bin");
    WorkingFolder::write(binary, "payload");
    PelkFcfGenerator window;
    window.setBinFile(binary);
    const QDateTime before = QDateTime::currentDateTime();
    window.saveTofile(binary);
    const QDateTime after = QDateTime::currentDateTime();

    QFile companion(folder + QLatin1String("/top.txt"));
    QVERIFY(companion.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = companion.readAll().split('\n');
    WorkingFolder::remove(folder);
    const QTime time =
        QTime::fromString(QString::fromLatin1(lines.at(5)), QLatin1String("'Time: 'HH:mm:ss"));
    QVERIFY(before.date() != after.date() ||
            (time >= before.time().addMSecs(-999) && time <= after.time()));
}

void GeneratorModelTest::report(const QVector<Step>& steps)
{
    const QVector<Step> fewest = shortened(&m_run, steps);
    const QByteArray found = m_run.play(fewest).toUtf8();
    std::fprintf(stderr, "The window and its model differ after\n%s%s\n",
                 printed(fewest).constData(), found.constData());
}

int main(int argc, char** argv)
{
    changeSurroundings();
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    QTextCodec::setCodecForLocale(
        QTextCodec::codecForName(seed() % 4 == 3 ? "ISO-8859-1" : "UTF-8"));
    GeneratorModelTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "GeneratorModelTest.moc"
