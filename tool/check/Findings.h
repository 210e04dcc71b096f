#ifndef TOOL_CHECK_FINDINGS_H
#define TOOL_CHECK_FINDINGS_H

#include "tool/base/Result.h"

#include <QJsonArray>
#include <QList>

#include <optional>

/// The findings of a run, in the order in which they were made.
class Findings {
public:
    /// A finding that names no file is about \p file.
    void setSubject(const QString& file) { m_subject = file; }

    void add(const Finding& finding);
    /// These return references that are valid until the next finding is added.
    Finding& error(ExitCode exitCode, const QString& file, const QString& field,
                   const QString& reason);
    /// Adds the error that an input, or the argument of the option \p field, is refused.
    Finding& refuse(const QString& file, const QString& field, const QString& reason);
    Finding& warning(const QString& file, const QString& field, const QString& reason);
    Finding& note(const QString& file, const QString& field, const QString& reason);

    /// The value of \p result; if there is none its error is added.
    template <class Value>
    std::optional<Value> valueOf(Result<Value> result)
    {
        if (result)
            return std::move(*result);
        add(result.error());
        return std::nullopt;
    }

    /// Adds the error of \p status if there is one. Returns whether there is none.
    bool accept(const Status& status);

    /// Makes every warning a refusal.
    void promoteWarnings();

    void dropNotes();

    const QList<Finding>& list() const { return m_list; }
    int count() const { return static_cast<int>(m_list.size()); }
    bool hasErrors() const { return exitCode() != ExitCode::Done; }
    /// The most important exit code of the findings from index \p first on: a refusal comes before
    /// a file that cannot be accessed, then an output that exists, then a file that is not valid.
    ExitCode exitCode(int first = 0) const;
    static ExitCode moreImportant(ExitCode one, ExitCode other);
    QJsonArray toJson() const;

private:
    QString m_subject;
    QList<Finding> m_list;
};

#endif
