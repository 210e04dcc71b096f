#include "generator/model/GeneratorRun.h"

#include "generator/model/GeneratorDice.h"
#include "generator/model/GeneratorWindow.h"
#include "generator/PelkFcfGenerator.h"

#include <OrvanticCore/DesignManager.h>

#include <QApplication>
#include <QDialog>
#include <QDir>

using OrvanticCore::DesignManager;

namespace {

const int StepsOfSequence = 24;

} // namespace

QDateTime momentOf(int number)
{
    // Days that some locales write longer or shorter than the day behind them.
    static const int Days[][2] = {{9, 10}, {31, 10}, {29, 9}, {31, 12}};
    const int pair = number / 2;
    const int* const day = Days[pair % 4];
    const QDate date(2026 + pair / 4, day[1], day[0]);
    // Two of three builds go on past midnight.
    const QTime time = pair % 3 == 2 ? QTime(12, 34, pair % 60) : QTime(23, 59, 58);
    return QDateTime(date, time).addSecs(number % 2 * 3);
}

GeneratorRun::GeneratorRun(const QString& folder)
    : Model(folder), m_step(), m_modelReactions(0), m_windowReactions(0), m_modelReadings(0),
      m_windowReadings(0)
{
    m_model.clock = [this] { return momentOf(m_modelReadings++); };
    m_model.observe = [this](const QString& event) { expect(event); };
    m_model.answer = [this](const QString& box) { return answerBox(box); };
    m_model.choose = [this](const QString& dialog) { return chooseFile(dialog); };
    m_model.currentUserName = DesignManager::instance()->currentUserName();
    qApp->installEventFilter(this);
    connect(Logger::instance(), SIGNAL(newPriorityMessage(Logger::MessageType, QString)),
            SLOT(noteMessage(Logger::MessageType, QString)));
}

GeneratorRun::~GeneratorRun() { qApp->removeEventFilter(this); }

QList<Model::Kind> GeneratorRun::kinds() const
{
    QList<Kind> kinds;
    for (int action = 0; action < ActionCount; ++action)
        kinds << Kind{nameOf(static_cast<Action>(action)), 1};
    return kinds;
}

ModelSequence GeneratorRun::sequence(std::mt19937* random) const
{
    ModelSequence sequence;
    for (const Step& step : GeneratorDice(random).sequence(StepsOfSequence))
        sequence << ModelAction{step.action, {step.a, step.b, static_cast<int>(step.plan)}};
    return sequence;
}

void GeneratorRun::begin()
{
    m_model.disk = DiskModel();
    m_model.disk.root = folder() + QLatin1String("/run");
    QDir().mkdir(m_model.disk.root);
    QDir::setCurrent(m_model.disk.root);
    m_model.exists = false;
    m_model.form = GeneratorState();
    m_modelReadings = 0;
    m_windowReadings = 0;
    makeInitialFiles();
}

void GeneratorRun::end()
{
    delete m_window;
    QDir::setCurrent(QDir::rootPath());
    WorkingFolder::remove(m_model.disk.root);
}

void GeneratorRun::makeInitialFiles()
{
    for (const char* folder : {"a.bin.d", "a.fcf.d", "a.txt.d", "b.bin.d"}) {
        m_model.disk.add(QLatin1String(folder), DiskEntry(DiskEntry::Folder));
        QDir().mkdir(QLatin1String(folder));
    }
    for (int number = 0; number < 11; ++number)
        writeFile(path(number), binaryOf(BinaryKinds * (number + 3) - 2));
    writeFile(QLatin1String("old.txt"), companionOf(32));
    writeFile(QLatin1String("older.txt.fcf"), companionOf(55));
}

QString GeneratorRun::perform(const ModelAction& action)
{
    m_step.action = static_cast<Action>(action.kind);
    m_step.a = action.numbers[0];
    m_step.b = action.numbers[1];
    m_step.plan = static_cast<quint32>(action.numbers[2]);
    m_expected.clear();
    m_seen.clear();
    m_choices.clear();
    m_modelReactions = 0;
    m_windowReactions = 0;

    if (m_step.action >= MakeBinary) {
        takeOfDisk();
    } else {
        if (!m_model.exists && m_step.action != NewWindow) {
            open(false);
            showAgain();
            foldFunctions();
        }
        if (m_model.exists && m_model.form.isVisible)
            leaveWidgets();
        if (m_step.action < SetModule)
            takeOfPerson();
        else
            takeOfProgram();
    }
    m_model.endAction();
    deletePosted();
    expect(QLatin1String("afterwards"));
    see(QLatin1String("afterwards"));
    countBranches();
    return findDifference();
}

void GeneratorRun::expect(const QString& event)
{
    Observation observation;
    observation.event = event;
    if (m_model.exists)
        observation.state = m_model.form;
    if (!m_model.form.isVisible)
        observation.state.focus = NoWidget;
    for (auto entry = m_model.disk.entries.constBegin(); entry != m_model.disk.entries.constEnd();
         ++entry)
        observation.files.insert(entry.key(), WorkingFolder::stateOf(entry.value()));
    m_expected << observation;
    if (event.startsWith(QLatin1String("signal")))
        reactOnModel(Reaction(m_step.plan, m_modelReactions++).deed);
}

void GeneratorRun::see(const QString& event)
{
    Observation observation;
    observation.event = event;
    if (m_window)
        observation.state = GeneratorWindow(m_window).state();
    observation.files = WorkingFolder::files(m_model.disk.root);
    m_seen << observation;
}

void GeneratorRun::noteFiles(const QStringList& files)
{
    see(QString::fromLatin1("signal newFilesCreated(%1)").arg(files.join(QLatin1String(", "))));
    reactOnWindow(Reaction(m_step.plan, m_windowReactions++).deed);
}

void GeneratorRun::noteMessage(Logger::MessageType type, const QString& text)
{
    see(QString::fromLatin1("log %1 \"%2\"").arg(type).arg(text));
}

void GeneratorRun::deletePosted()
{
    // As the event loop does that is running: of this window alone, or of all that is left.
    for (int round = 0; round < 3; ++round)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QString GeneratorRun::findDifference()
{
    for (int i = 0; i < qMax(m_expected.size(), m_seen.size()); ++i) {
        const Observation expected = i < m_expected.size() ? m_expected.at(i) : Observation();
        Observation seen = i < m_seen.size() ? m_seen.at(i) : Observation();
        // Where a dialog starts without a file is not promised.
        if (expected.event.endsWith(QLatin1String(" at ?")))
            seen.event = seen.event.section(QLatin1String(" at "), 0, -2) + QLatin1String(" at ?");
        const QString moment = QString::fromLatin1("at %1\n").arg(expected.event);
        if (expected.event != seen.event)
            return QString::fromLatin1("expected %1\n   found %2\n")
                .arg(expected.event, seen.event);
        const QString files = WorkingFolder::difference(expected.files, seen.files);
        if (!(expected.state == seen.state)) {
            QString text = moment;
            const QStringList left = expected.state.lines();
            const QStringList right = seen.state.lines();
            for (int line = 0; line < left.size(); ++line) {
                if (left.at(line) != right.at(line))
                    text += QString::fromLatin1("expected %1\n   found %2\n")
                                .arg(left.at(line), right.at(line));
            }
            return text + files;
        }
        if (!files.isEmpty())
            return moment + files;
    }
    return m_model.exists == !m_window.isNull() ? QString()
                                                : QString::fromLatin1("the window lives or not\n");
}

void GeneratorRun::countBranches()
{
    for (const Observation& observation : m_expected) {
        QString event = observation.event;
        if (event == QLatin1String("afterwards")) {
            // By its status line.
            event = m_model.exists ? m_model.form[StatusBar].text : QString::fromLatin1("gone");
        }
        // Without what differs between runs.
        event.remove(m_model.disk.root + QLatin1Char('/'));
        for (QChar& letter : event) {
            if (letter.isDigit())
                letter = QLatin1Char('#');
        }
        Model::reach(event.toLatin1().constData());
    }
}

#include "moc_GeneratorRun.cpp"
