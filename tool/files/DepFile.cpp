#include "tool/files/DepFile.h"

#include <QFile>

namespace {

/// \p path as in a rule: blanks and number signs with a backslash, before which others are doubled,
/// and dollar signs doubled.
QByteArray escaped(const QString& path)
{
    QByteArray text;
    int backslashes = 0;
    for (const char character : QFile::encodeName(path)) {
        if (character == ' ' || character == '#')
            text += QByteArray(backslashes + 1, '\\');
        else if (character == '$')
            text += '$';

        text += character;
        backslashes = character == '\\' ? backslashes + 1 : 0;
    }
    return text;
}

} // namespace

Result<QByteArray> DepFile::rule(const QString& target, const QStringList& inputs)
{
    for (const QString& path : QStringList(target) + inputs) {
        if (path.contains(QLatin1Char('\n')))
            return failure(ExitCode::Refused, path, "--depfile",
                           "has a line break in its name, which no rule can have");
    }

    QByteArray rule = escaped(target) + ':';
    for (const QString& input : inputs)
        rule += " \\\n  " + escaped(input);
    return rule + '\n';
}
