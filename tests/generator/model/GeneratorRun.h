#ifndef TESTS_GENERATOR_MODEL_GENERATORRUN_H
#define TESTS_GENERATOR_MODEL_GENERATORRUN_H

#include "generator/model/GeneratorModel.h"
#include "generator/model/GeneratorStep.h"
#include "support/ModelRun.h"

#include <QtilitiesLogging/Logger.h>

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QVector>

class PelkFcfGenerator;
class QDialog;

/// Takes steps with the real window and with the model, each in a folder of its own, and compares
/// everything that can be noticed of both after each step and at each box, signal and log line.
class GeneratorRun : public QObject, public Model {
    Q_OBJECT

    // As the logger's signal has it.
    typedef Qtilities::Logging::Logger Logger;

public:
    explicit GeneratorRun(const QString& folder);
    ~GeneratorRun() override;

    QList<Kind> kinds() const override;
    /// Each box, log line and result that has come by so far.
    QStringList branches() const override { return reached().keys(); }
    ModelSequence sequence(std::mt19937* random) const override;
    int actionsOfShortRun() const override { return 600; }
    void begin() override;
    void end() override;
    QString perform(const ModelAction& action) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void answerDialog();
    void noteFiles(const QStringList& files);
    void noteMessage(Logger::MessageType type, const QString& text);

private:
    /// Has the model do \p rule and the window \p operation, with the same \p values.
    template <typename Rule, typename Operation, typename... Values>
    void both(Rule rule, Operation operation, const Values&... values);
    void takeOfPerson();
    void takeTyping();
    void takeClick();
    void takeChoice();
    void takeOfProgram();
    void takeSetter();
    void takeFileCall(const QString& file);
    void takeOfDisk();
    QString findDifference();
    void countBranches();

    // The world of the model.
    void expect(const QString& event);
    GeneratorModel::Answer answerBox(const QString& box);
    QString chooseFile(const QString& dialog);
    void reactOnModel(Reaction::Deed deed);

    // The world of the window.
    void see(const QString& event);
    void seeDialog();
    void reactOnWindow(Reaction::Deed deed);
    void answerBox(Reaction::Answer answer);
    void deletePosted();

    void open(bool deletesItself);
    void showAgain();
    /// Gives the focus to a widget that no rule is about.
    void leaveWidgets();
    void foldFunctions();
    /// Shows the window and its functions where that is needed to use the widget. Returns whether
    /// a person can use it.
    bool reach(WidgetName name);
    void reachWindow();
    void press(WidgetName name, void (GeneratorModel::*rule)());
    void enter(WidgetName name, const QString& text);
    void choose(WidgetName name, int row);
    void fitPage(int excess);
    void trigger(const char* action, void (GeneratorModel::*rule)());
    QString path(int number) const;
    QString absolutePath(int number) const;
    void writeFile(const QString& file, const QByteArray& bytes);
    void makeInitialFiles();

    GeneratorModel m_model;
    QPointer<PelkFcfGenerator> m_window;
    QPointer<QDialog> m_dialog;
    Step m_step;
    QVector<Observation> m_expected;
    QVector<Observation> m_seen;
    QStringList m_choices;
    int m_modelReactions;
    int m_windowReactions;
    int m_modelReadings;
    int m_windowReadings;
};

/// The moment of reading \p number of the clock of a run.
QDateTime momentOf(int number);

#endif
