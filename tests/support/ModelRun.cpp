#include "support/ModelRun.h"

#include "support/WorkFolder.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QScopedPointer>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

const unsigned SecondsAnAction = 60;
const int MillisecondsToShorten = 90000;
const int LongestSequence = 40;
/// A run of so many actions has to reach all branches.
const int ActionsOfLongRun = 20000;

void print(const QString& text)
{
    std::fprintf(stderr, "%s\n", qPrintable(text));
    std::fflush(stderr);
}

QString textOf(const Model& model, const ModelAction& action)
{
    return QString::fromLatin1("%1 %2 %3 %4")
        .arg(QLatin1String(model.kinds().at(action.kind).name))
        .arg(action.numbers[0])
        .arg(action.numbers[1])
        .arg(action.numbers[2]);
}

/// The parts of a text between semicolons.
QStringList partsOf(const QString& text)
{
    QStringList parts;
    foreach (const QString& part, text.split(QLatin1Char(';'))) {
        if (!part.trimmed().isEmpty())
            parts << part.simplified();
    }
    return parts;
}

ModelSequence parsed(const Model& model, const QString& text)
{
    ModelSequence sequence;
    foreach (const QString& part, partsOf(text)) {
        const QStringList words = part.split(QLatin1Char(' '));
        ModelAction action = {-1, {0, 0, 0}};
        const QList<Model::Kind> kinds = model.kinds();
        for (int kind = 0; kind < kinds.count(); ++kind) {
            if (words.first() == QLatin1String(kinds.at(kind).name))
                action.kind = kind;
        }
        if (action.kind < 0 || words.count() > 4)
            qFatal("no action \"%s\"", qPrintable(part));
        for (int number = 1; number < words.count(); ++number)
            action.numbers[number - 1] = static_cast<int>(words.at(number).toLongLong(nullptr, 0));
        sequence << action;
    }
    return sequence;
}

/// The sequence that runs, in a file from which it can be read when the process has crashed.
class Journal {
public:
    explicit Journal(const QString& path) : m_file(path)
    {
        if (!m_file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
            qFatal("cannot write %s", qPrintable(path));
    }

    void start()
    {
        m_file.resize(0);
        m_file.seek(0);
    }
    void add(const QString& action) { m_file.write(action.toLatin1() + "; "); }

private:
    QFile m_file;
};

/// Returns the first difference, or nothing.
QString play(Model* model, const ModelSequence& sequence, Journal* journal)
{
    journal->start();
    model->begin();
    QString difference;
    foreach (const ModelAction& action, sequence) {
        journal->add(textOf(*model, action));
        alarm(SecondsAnAction);
        difference = model->perform(action);
        if (!difference.isEmpty())
            break;
    }
    // What follows can hang too.
    alarm(SecondsAnAction);
    model->end();
    alarm(0);
    return difference;
}

/// The sequences of a file: one in a line, a comment behind "#".
QStringList sequencesOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    QStringList sequences;
    foreach (const QString& line, QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        const QString sequence = line.section(QLatin1Char('#'), 0, 0).trimmed();
        if (!sequence.isEmpty())
            sequences << sequence;
    }
    return sequences;
}

bool hasReachedAll(const Model& model, bool verbose)
{
    QStringList missing;
    foreach (const QString& branch, model.branches()) {
        if (verbose)
            print(QString::fromLatin1("%1 times %2")
                      .arg(model.reached().value(branch), 8)
                      .arg(branch));
        if (!model.reached().contains(branch))
            missing << branch;
    }
    foreach (const QString& branch, model.reached().keys()) {
        if (!model.branches().contains(branch))
            qFatal("the model does not list the branch \"%s\"", qPrintable(branch));
    }
    if (!missing.isEmpty())
        print(QLatin1String("Never reached: ") + missing.join(QLatin1String(", ")));
    return missing.isEmpty();
}

int explore(Model* model, Journal* journal, unsigned seed, int actions)
{
    std::mt19937 random(seed);
    QElapsedTimer timer;
    timer.start();
    int done = 0;
    int sequences = 0;
    while (done < actions) {
        const ModelSequence sequence = model->sequence(&random);
        const QString difference = play(model, sequence, journal);
        if (!difference.isEmpty()) {
            print(difference);
            return 1;
        }
        done += sequence.count();
        ++sequences;
    }
    print(QString::fromLatin1("%1 actions in %2 sequences from seed %3: %4 s")
              .arg(done)
              .arg(sequences)
              .arg(seed)
              .arg(double(timer.elapsed()) / 1000.0));
    const bool complete = hasReachedAll(*model, qgetenv("PELK_MODEL_VERBOSE") == "1");
    return complete || actions < ActionsOfLongRun ? 0 : 1;
}

int replay(Model* model, Journal* journal, const QStringList& sequences)
{
    foreach (const QString& sequence, sequences) {
        const QString difference = play(model, parsed(*model, sequence), journal);
        if (!difference.isEmpty()) {
            print(difference);
            return 1;
        }
    }
    return 0;
}

/// Runs this program with \p arguments, and returns whether it passed.
bool passes(const QStringList& arguments, bool quietly)
{
    QProcess process;
    process.setProcessChannelMode(quietly ? QProcess::MergedChannels : QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForFinished(-1);
    return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

/// Takes actions out of a sequence that fails, and then makes their numbers 0, for as long as it
/// still does.
QStringList shortened(QStringList actions, const QString& journal)
{
    QElapsedTimer timer;
    timer.start();
    const auto fails = [&timer, &journal](const QStringList& sequence) {
        const QString text = sequence.join(QLatin1String("; "));
        return timer.elapsed() < MillisecondsToShorten &&
               !passes(QStringList() << QLatin1String("--replay") << journal << text, true);
    };
    for (int size = (actions.count() + 1) / 2; size > 0; size /= 2) {
        for (int first = actions.count() - size; first >= 0; first -= size) {
            const QStringList fewer = actions.mid(0, first) + actions.mid(first + size);
            if (fails(fewer))
                actions = fewer;
        }
    }
    for (int index = 0; index < actions.count(); ++index) {
        for (int number = 1; number < actions.at(index).count(QLatin1Char(' ')) + 1; ++number) {
            QStringList words = actions.at(index).split(QLatin1Char(' '));
            if (words.at(number) == QLatin1String("0"))
                continue;
            words[number] = QLatin1String("0");
            QStringList simpler = actions;
            simpler[index] = words.join(QLatin1String(" "));
            if (fails(simpler))
                actions = simpler;
        }
    }
    return actions;
}

int reportFailure(const QString& journal)
{
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        return 1;
    QStringList actions = partsOf(QString::fromLatin1(file.readAll()));
    print(QString::fromLatin1("FAIL! in:\n%1").arg(actions.join(QLatin1String("; "))));
    if (qgetenv("PELK_MODEL_SHORTEN") == "0" || actions.isEmpty())
        return 1;
    actions = shortened(actions, journal);
    const QString text = actions.join(QLatin1String("; "));
    print(QString::fromLatin1(
              "Its last %1 actions fail alone, for the list of sequences:\n%2\nas this:")
              .arg(actions.count())
              .arg(text));
    passes(QStringList() << QLatin1String("--replay") << journal << text, false);
    return 1;
}

/// In the process that only looks on.
int runAll(const QString& regressions)
{
    // In memory where there is such a folder: nothing then waits for a disk.
    const QString memory = QLatin1String("/dev/shm");
    const WorkFolder folder(QFile::exists(memory) ? memory : QString());
    const QString journal = folder.path(QLatin1String("journal"));
    const QByteArray sequence = qgetenv("PELK_MODEL_SEQUENCE");
    if (!sequence.isEmpty()) {
        const QStringList replayed = QStringList() << QLatin1String("--replay") << journal
                                                   << QString::fromUtf8(sequence);
        return passes(replayed, false) ? 0 : 1;
    }

    QString seed = QString::fromLatin1(qgetenv("PELK_MODEL_SEED"));
    if (seed.isEmpty())
        seed = QString::number(QDateTime::currentMSecsSinceEpoch() % 1000000000);
    const QStringList listed = QStringList() << QLatin1String("--file") << journal << regressions;
    const QStringList random = QStringList() << QLatin1String("--explore") << journal << seed;
    return passes(listed, false) && passes(random, false) ? 0 : reportFailure(journal);
}

} // namespace

ModelSequence Model::sequence(std::mt19937* random) const
{
    const auto below = [random](int limit) {
        return static_cast<int>((*random)() % static_cast<unsigned>(limit));
    };
    const int factors[] = {0, 1, 1, 1, 5};
    const QList<Kind> all = kinds();
    QList<int> choices;
    for (int kind = 0; kind < all.count(); ++kind) {
        for (int times = all.at(kind).weight * factors[below(5)]; times > 0; --times)
            choices << kind;
    }
    ModelSequence sequence;
    for (int count = 1 + below(LongestSequence); count > 0 && !choices.isEmpty(); --count) {
        const ModelAction action = {choices.at(below(choices.count())),
                                    {below(100), below(100), below(100)}};
        sequence << action;
    }
    return sequence;
}

QString Model::difference(const QStringList& expected, const QStringList& actual)
{
    if (expected == actual)
        return QString();
    int first = 0;
    while (first < expected.count() && expected.at(first) == actual.value(first))
        ++first;
    int same = 0;
    while (same < qMin(expected.count(), actual.count()) - first &&
           expected.at(expected.count() - 1 - same) == actual.at(actual.count() - 1 - same))
        ++same;
    QStringList lines(QLatin1String("expected:"));
    lines << expected.mid(first, expected.count() - same - first) << QLatin1String("got:")
          << actual.mid(first, actual.count() - same - first);
    return lines.join(QLatin1String("\n  "));
}

int runModel(int argc, char** argv, const QString& regressions,
             Model* (*make)(const QString& folder))
{
    if (argc < 4) {
        QCoreApplication application(argc, argv);
        return runAll(regressions);
    }
    Qtilities::CoreGui::QtilitiesApplication application(argc, argv);
    const QString mode = QString::fromLocal8Bit(argv[1]);
    Journal journal(QString::fromLocal8Bit(argv[2]));
    const QString argument = QString::fromLocal8Bit(argv[3]);
    const WorkFolder folder(QFileInfo(QString::fromLocal8Bit(argv[2])).path());
    const QScopedPointer<Model> model(make(folder.path()));
    if (mode == QLatin1String("--replay"))
        return replay(model.data(), &journal, QStringList(argument));
    if (mode == QLatin1String("--file"))
        return replay(model.data(), &journal, sequencesOf(argument));
    const QByteArray actions = qgetenv("PELK_MODEL_ACTIONS");
    return explore(model.data(), &journal, argument.toUInt(),
                   actions.isEmpty() ? model->actionsOfShortRun() : actions.toInt());
}
