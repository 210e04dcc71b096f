#ifndef TESTS_SUPPORT_MODELRUN_H
#define TESTS_SUPPORT_MODELRUN_H

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <random>

/// One action of a sequence: which kind, and numbers from which it takes its choices. They are of 0
/// to 99 where the model does not make up its own sequences.
struct ModelAction {
    int kind;
    int numbers[3];

    /// \p number brought into 0 to \p choices - 1.
    int choice(int number, int choices) const { return numbers[number] % choices; }
};

typedef QList<ModelAction> ModelSequence;

/// A model and the real thing, which get the same actions and must look the same after each.
///
/// Every action is harmless in every state, so that any action can be left out of a sequence.
class Model {
public:
    /// A kind of action, and how often it is taken compared with the others.
    struct Kind {
        const char* name;
        int weight;
    };

    /// \p folder is empty, the model's own, and removed after it.
    explicit Model(const QString& folder) : m_folder(folder) {}
    virtual ~Model() {}

    virtual QList<Kind> kinds() const = 0;

    /// What sequences have to come by; a long run that never did fails.
    virtual QStringList branches() const = 0;

    /// Makes up a sequence. In each some kinds of actions are left out, and some come often.
    virtual ModelSequence sequence(std::mt19937* random) const;

    /// The actions of a run in every ./test, which takes about three seconds.
    virtual int actionsOfShortRun() const = 0;

    /// Makes everything new; end() takes it away.
    virtual void begin() = 0;
    virtual void end() = 0;

    /// Does \p action in the model and in reality. Returns how they differ then, or nothing.
    virtual QString perform(const ModelAction& action) = 0;

    QString folder() const { return m_folder; }

    QMap<QString, int> reached() const { return m_reached; }

protected:
    void reach(const char* branch) { ++m_reached[QString::fromLatin1(branch)]; }

    /// The lines of \p expected and \p actual where they differ, or nothing.
    static QString difference(const QStringList& expected, const QStringList& actual);

private:
    Q_DISABLE_COPY(Model)
    QString m_folder;
    QMap<QString, int> m_reached;
};

/// Runs the sequences of the file \p regressions, and then random ones. Returns the exit code of
/// the program, whose model \p make makes in a folder.
///
/// Everything runs in processes of their own: a sequence that ends in a crash, or in an action that
/// takes more than a minute, is found, shortened and printed like another one that fails. These
/// variables of the environment change the run:
/// - PELK_MODEL_ACTIONS: how many actions;
/// - PELK_MODEL_SEED: where the random numbers start, as a failure prints it;
/// - PELK_MODEL_SEQUENCE: a sequence as a failure prints it, which is all that runs then;
/// - PELK_MODEL_SHORTEN=0: a failure is not made shorter;
/// - PELK_MODEL_VERBOSE=1: how often each branch was reached.
int runModel(int argc, char** argv, const QString& regressions,
             Model* (*make)(const QString& folder));

#endif
