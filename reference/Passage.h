#ifndef REFERENCE_PASSAGE_H
#define REFERENCE_PASSAGE_H

#include <QList>
#include <QString>

/// A passage of a committed file that follows from tables of the program.
struct Passage {
    /// Seen from the folder of the project.
    QString file;
    /// Its name in the line that marks it.
    QString name;
    /// Whole lines.
    QString text;
};

/// The descriptions of the format, for people and for other programs.
QList<Passage> formatPassages();

/// The JSON schemas of recipes and results.
QList<Passage> schemaPassages();

/// The manual page of the tool.
QList<Passage> manualPassages();

/// The completions of the tool's arguments.
QList<Passage> completionPassages();

/// What \p write makes of each of \p items, one behind the other.
template <class Items, class Write>
QString each(const Items& items, Write write)
{
    QString text;
    for (const auto& item : items)
        text += write(item);
    return text;
}

#endif
