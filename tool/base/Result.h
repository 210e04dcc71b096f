#ifndef TOOL_BASE_RESULT_H
#define TOOL_BASE_RESULT_H

#include <QJsonObject>
#include <QString>

#include <tl/expected.hpp>

/// What a run of the tool ends with. Scripts rely on the numbers.
enum class ExitCode {
    Done = 0,
    /// A file is not what the format says.
    NotValid = 1,
    /// Wrong usage, or an input that is refused. Nothing was written.
    Refused = 2,
    /// A file cannot be read or written.
    CannotAccess = 3,
    /// An output exists already. Nothing was written.
    OutputExists = 4
};

/// One thing that was found wrong, or that is worth knowing.
struct Finding {
    enum Severity { Note, Warning, Error };

    Severity severity = Error;
    /// The exit code for an error; Done for notes and warnings.
    ExitCode exitCode = ExitCode::Done;
    QString file;
    /// The field of the header, or the option, that is meant; may be empty.
    QString field;
    QString reason;
    /// Bytes from the start of the file, or -1.
    qint64 offset = -1;
    /// Both as shownText(), and short enough for one line.
    QString expected;
    QString found;

    Finding& at(qint64 where);
    /// Keeps the start of both texts.
    Finding& comparing(const QString& isExpected, const QString& isFound);

    /// The reason with what was expected and found.
    QString wholeReason() const;
    /// One line, fit for a terminal whatever the file held.
    QString text() const;
    QJsonObject toJson() const;
};

/// A value, or the error for which there is none.
template <class Value>
using Result = tl::expected<Value, Finding>;

/// Nothing, or an error.
using Status = Result<void>;

/// The error that ends a run with \p exitCode, as any Result.
tl::unexpected<Finding> failure(ExitCode exitCode, const QString& file, const QString& field,
                                const QString& reason);

#endif
