#ifndef TOOL_CONSOLE_REPORT_H
#define TOOL_CONSOLE_REPORT_H

#include "tool/base/Result.h"
#include "tool/files/Copy.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <string>

class Findings;
class InputOpener;
struct Environment;

/// The results and messages of a run of one command.
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
    /// Whether a file that is not valid is a result, which goes to standard output.
    bool findingsAreResults = false;
    /// Whether something else is written to standard output, so that it gets no other result.
    bool outIsTaken = false;

    /// The exit code of the run, unless a more important error was found.
    ExitCode verdict = ExitCode::Done;
    /// Whether the outputs have their names, even if the result cannot be written.
    bool isInPlace = false;

    /// Keeps \p line for standard output, for people.
    void print(const QString& line) { m_lines.append(line); }

    /// Keeps \p bytes for standard output, as they are, with or without JSON.
    void printRaw(const QByteArray& bytes) { m_raw += bytes; }

    /// Writes \p row to standard output at once, so that a long run needs no memory for it: JSON as
    /// one more member of the list "files", anything else as a line.
    FileSystem::OrReason<void> stream(const QByteArray& row, const Environment& environment);

    /// Writes all that was kept, and returns the exit code.
    int finish(const Environment& environment, const InputOpener& inputs, Findings* findings) const;

private:
    bool goesToOut(const Finding& finding) const;
    QByteArray resultBytes(const Findings& findings, const Environment& environment) const;
    QString notWritten(const QString& reason) const;
    /// The findings and lines that go to standard output, or to standard error.
    QString text(const Findings& findings, bool toOut) const;
    QByteArray jsonBytes(const Findings& findings) const;
    int exitCode(const Findings& findings) const;

    const QString m_command;
    QStringList m_lines;
    QByteArray m_raw;
    bool m_isStreaming = false;
};

#endif
