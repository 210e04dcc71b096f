#ifndef TOOL_CONSOLE_REPORT_H
#define TOOL_CONSOLE_REPORT_H

#include "tool/base/Result.h"
#include "tool/files/FileSystem.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

class Findings;
class Inputs;
struct Environment;
struct ReadFile;

/// What a run of one command has to say.
///
/// Results go to standard output, messages to standard error; as JSON, all of it goes to standard
/// output as one object, and the messages to standard error as well.
class Report {
public:
    /// Raised whenever a name in the JSON changes its meaning or goes away.
    static constexpr int SchemaVersion = 2;

    explicit Report(const std::string& command) : m_command(QString::fromStdString(command)) {}

    /// What the command adds to the JSON.
    QJsonObject result;
    bool json = false;
    /// Whether neither progress nor notes are wanted.
    bool quiet = false;
    /// Whether a file that is not valid is what was asked for, and so goes to standard output.
    bool findingsAreResults = false;
    /// Whether standard output is taken by something else, so that it gets no other result.
    bool outIsTaken = false;

    /// What the run ends with, unless an error says more.
    ExitCode verdict = ExitCode::Done;
    /// Whether the outputs are in place, whatever becomes of the result.
    bool isInPlace = false;

    /// Keeps \p line for standard output, for people.
    void print(const QString& line) { m_lines.append(line); }

    /// Keeps \p bytes for standard output, as they are, with or without JSON.
    void printRaw(const QByteArray& bytes) { m_raw += bytes; }

    /// Writes \p row to standard output at once: JSON as one more member of the list "files",
    /// anything else as a line. What goes on for long needs no memory this way.
    FileSystem::OrReason<void> stream(const QByteArray& row, const Environment& environment);

    /// Writes all that was kept, and returns what the run ends with.
    int finish(const Environment& environment, const Inputs& inputs, Findings* findings) const;

private:
    bool goesToOut(const Finding& finding) const;
    /// All of it that goes to standard output, or to standard error.
    QString text(const Findings& findings, bool toOut) const;
    QByteArray jsonBytes(const Findings& findings) const;
    int exitCode(const Findings& findings) const;

    const QString m_command;
    QStringList m_lines;
    QByteArray m_raw;
    bool m_isStreaming = false;
};

/// The reason against an output that is \p input.
QString isInput(const ReadFile& input);

#endif
