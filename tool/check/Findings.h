#ifndef TOOL_CHECK_FINDINGS_H
#define TOOL_CHECK_FINDINGS_H

#include "tool/base/Result.h"

#include <QJsonArray>
#include <QList>

#include <optional>

/// The findings of a run, in the order in which they were made.
class Findings {
public:
    /// Whatever is found without a file is about \p file.
    void setSubject(const QString& file) { m_subject = file; }

    void add(const Finding& finding);
    /// The references are valid until the next finding is added.
    Finding& error(ExitCode exitCode, const QString& file, const QString& field,
                   const QString& reason);
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
    bool hasErrors() const { return exitCode() != ExitCode::Done; }
    /// Of several errors, from the finding with index \p first on, the one that says most about the
    /// run: a refusal before a file that cannot be accessed, that before an output that exists,
    /// that before a file that is not valid.
    ExitCode exitCode(int first = 0) const;
    static ExitCode weightier(ExitCode one, ExitCode other);
    QJsonArray toJson() const;

private:
    QString m_subject;
    QList<Finding> m_list;
};

#endif
