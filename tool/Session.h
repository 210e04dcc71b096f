#ifndef TOOL_SESSION_H
#define TOOL_SESSION_H

#include "tool/FileSystem.h"
#include "tool/Findings.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <string>
#include <vector>

class QIODevice;
class QTextCodec;

/// The world outside a run, so that a test can be it. Owns nothing.
struct Environment {
    QIODevice* in = nullptr;
    QIODevice* out = nullptr;
    QIODevice* err = nullptr;
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
    /// Called before each step of putting outputs in place, with the step's name.
    std::function<void(const char*)> beforeStep = [](const char*) {};
};

/// A file that a run reads, so that no output takes its place.
struct ReadFile {
    FileSystem::Identity identity;
    /// What messages call it.
    QString label;
};

/// One run of one command: what it was told in general, and what it has to say.
///
/// Results go to standard output, messages to standard error; as JSON, all of it goes to standard
/// output as one object, and the messages to standard error as well.
class Session {
public:
    /// Raised whenever a name in the JSON changes its meaning or goes away.
    static constexpr int SchemaVersion = 1;

    Session(Environment* environment, const char* command);

    Environment& environment() { return *m_environment; }
    QTextCodec* codec() const { return m_environment->codec; }

    Findings findings;
    /// Every file that was opened for reading, whatever for.
    std::vector<ReadFile> inputs;
    /// What the command adds to the JSON.
    QJsonObject result;
    bool json = false;
    /// Whether neither progress nor notes are wanted.
    bool quiet = false;
    /// Whether a file that is not valid is what was asked for, and so goes to standard output.
    bool findingsAreResults = false;
    /// Whether standard output is taken by something else, so that it gets no other result.
    bool outIsTaken = false;

    /// Whether standard input is still to be had; it can be read once.
    bool takeStandardInput()
    {
        const bool free = !m_inIsTaken;
        m_inIsTaken = true;
        return free;
    }

    /// The input with \p identity, or null.
    const ReadFile* inputWith(const std::optional<FileSystem::Identity>& identity) const;

    /// The input that standard output would write into, or null.
    const ReadFile* inputAtOut() const;

    /// Keeps \p line for standard output, for people.
    void print(const QString& line) { m_lines.append(line); }

    /// Keeps \p bytes for standard output, as they are, with or without JSON.
    void printRaw(const QByteArray& bytes) { m_raw += bytes; }

    /// \p argument as text, or nothing, with a refusal, if it is none in this locale.
    std::optional<QString> text(const std::string& argument, const QString& field);

    /// \p argument as the name of a file, or nothing, with a refusal, if it cannot be one.
    std::optional<QString> path(const std::string& argument, const QString& field);

    /// Writes all that was kept, and returns what the run ends with.
    int finish();

private:
    bool goesToOut(const Finding& finding) const;
    void writeMessages();
    QByteArray outBytes() const;
    QByteArray encoded(const QString& text) const;

    Environment* m_environment;
    const char* m_command;
    QStringList m_lines;
    QByteArray m_raw;
    bool m_inIsTaken = false;
};

/// What a message says of an output that is \p input.
QString isInput(const ReadFile& input);

/// "-", the name of standard input and standard output.
extern const QString StandardStream;

/// What messages call standard output.
extern const QString StandardOutputLabel;

#endif
