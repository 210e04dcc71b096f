#ifndef TOOL_FINDINGS_H
#define TOOL_FINDINGS_H

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QString>

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

/// One thing that was found wrong, or worth a word.
struct Finding {
    enum Severity { Note, Warning, Error };

    Severity severity = Note;
    /// What the run ends with on account of an error; Done for anything less.
    ExitCode exitCode = ExitCode::Done;
    QString file;
    /// The field of the header, or the option, that it is about; may be empty.
    QString field;
    /// Bytes from the start of the file, or -1.
    qint64 offset = -1;
    /// Both as shownText(), no longer than a line can take.
    QString expected;
    QString found;
    QString reason;

    Finding& at(qint64 where);
    /// Of texts out of a file only the start is kept.
    Finding& comparing(const QString& isExpected, const QString& isFound);

    /// One line, fit for a terminal whatever the file held.
    QString text() const;
    QJsonObject toJson() const;
};

/// The findings of a run, in the order in which they were made.
class Findings {
public:
    /// Whatever is found without a file is about \p file.
    void setSubject(const QString& file) { m_subject = file; }

    /// The references hold until the next finding is added.
    Finding& error(ExitCode exitCode, const QString& file, const QString& field,
                   const QString& reason);
    Finding& warning(const QString& file, const QString& field, const QString& reason);
    Finding& note(const QString& file, const QString& field, const QString& reason);

    /// Makes every warning a refusal.
    void promoteWarnings();

    void dropNotes();

    const QList<Finding>& list() const { return m_list; }
    bool hasErrors() const { return exitCode() != ExitCode::Done; }
    /// Of several errors, from the finding with index \p first on, the one that says most about the
    /// run: a refusal before a file that cannot be accessed, that before an output that exists,
    /// that before a file that is not valid.
    ExitCode exitCode(int first = 0) const;
    QJsonArray toJson() const;

private:
    Finding& add(Finding::Severity severity, const QString& file, const QString& field,
                 const QString& reason);

    QString m_subject;
    QList<Finding> m_list;
};

/// \p text with everything escaped that a terminal would act on or could not show, and cut behind
/// \p length characters.
QString shownText(const QString& text, int length = 120);

#endif
