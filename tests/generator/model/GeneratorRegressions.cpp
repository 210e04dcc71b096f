#include "generator/model/GeneratorRegressions.h"

namespace {

struct Line {
    const char* name;
    Step step;
};

/// The steps of one sequence follow each other under one name.
const Line Lines[] = {
    {"an open window used again", {ClickGenerate, 0, 0, 0}},
};

} // namespace

QVector<Regression> generatorRegressions()
{
    QVector<Regression> regressions;
    for (const Line& line : Lines) {
        if (regressions.isEmpty() || qstrcmp(regressions.last().name, line.name) != 0)
            regressions << Regression{line.name, QVector<Step>()};
        regressions.last().steps << line.step;
    }
    return regressions;
}
