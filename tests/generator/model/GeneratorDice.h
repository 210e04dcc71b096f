#ifndef TESTS_GENERATOR_MODEL_GENERATORDICE_H
#define TESTS_GENERATOR_MODEL_GENERATORDICE_H

#include "generator/model/GeneratorStep.h"

#include <QVector>

#include <random>

/// Makes up sequences of steps: single ones of any kind, and short scenes that lead where single
/// ones seldom come.
class GeneratorDice {
public:
    /// \p random is not owned.
    explicit GeneratorDice(std::mt19937* random) : m_random(random) {}

    /// At least \p count steps.
    QVector<Step> sequence(int count);

private:
    int below(int bound) { return static_cast<int>((*m_random)() % static_cast<quint32>(bound)); }
    bool oneIn(int times) { return below(times) == 0; }

    int text();
    int functionName();
    int companionPath();
    int binaryPath();
    quint32 plan();

    void add(Action action, int a = 0, int b = 0);
    void addAny();
    void addScene();
    void addBuild();
    void addRound();
    void addOddPath();
    void addFunctions();
    void addLoad();
    void addRemoval();
    void addTroubleOnDisk();

    std::mt19937* m_random;
    QVector<Step> m_steps;
};

#endif
