#ifndef TOOL_CONSOLE_CONSOLE_H
#define TOOL_CONSOLE_CONSOLE_H

#include "tool/base/Result.h"
#include "tool/files/Copy.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QIODevice;
class QTextCodec;
class Findings;
class Inputs;
struct ReadFile;

/// The world outside a run, so that a test can be it. Owns nothing.
struct Environment {
    QIODevice* in = nullptr;
    QIODevice* out = nullptr;
    QIODevice* err = nullptr;
    bool outIsTerminal = false;
    /// Whether progress is welcome on `err`.
    bool errIsTerminal = false;
    /// The local time.
    std::function<QDateTime()> clock = &QDateTime::currentDateTime;
    /// A time in milliseconds that only ever grows.
    std::function<qint64()> milliseconds;
    /// SOURCE_DATE_EPOCH, when it is set.
    std::optional<QByteArray> sourceDateEpoch;
    /// Of arguments, texts in headers and messages.
    QTextCodec* codec = nullptr;
};

/// Shows a person at a terminal how far a run has come, once it takes longer than a second. Nobody
/// else sees any of it.
namespace Progress {

/// For a total that nobody knows yet.
constexpr qint64 Unknown = -1;

/// What to call with each part of \p total bytes in the course of what \p label says. It clears
/// what it showed when its last copy is destroyed. \p environment does not become its own.
CopyObserver observer(const Environment* environment, const QString& label, qint64 total);

} // namespace Progress

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
