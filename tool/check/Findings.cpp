#include "tool/check/Findings.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace {

/// The most important one is the first.
constexpr ExitCode Precedence[] = {ExitCode::Refused, ExitCode::CannotAccess,
                                   ExitCode::OutputExists, ExitCode::NotValid};

} // namespace

void Findings::add(const Finding& finding)
{
    m_list.append(finding);
    if (finding.file.isEmpty())
        m_list.last().file = m_subject;
}

bool Findings::accept(const Status& status)
{
    if (!status)
        add(status.error());
    return status.has_value();
}

Finding& Findings::error(ExitCode exitCode, const QString& file, const QString& field,
                         const QString& reason)
{
    add(failure(exitCode, file, field, reason).value());
    return m_list.last();
}

Finding& Findings::refuse(const QString& file, const QString& field, const QString& reason)
{
    return error(ExitCode::Refused, file, field, reason);
}

Finding& Findings::warning(const QString& file, const QString& field, const QString& reason)
{
    Finding& finding = error(ExitCode::Done, file, field, reason);
    finding.severity = Finding::Warning;
    return finding;
}

Finding& Findings::note(const QString& file, const QString& field, const QString& reason)
{
    Finding& finding = error(ExitCode::Done, file, field, reason);
    finding.severity = Finding::Note;
    return finding;
}

void Findings::promoteWarnings()
{
    for (Finding& finding : m_list) {
        if (finding.severity != Finding::Warning)
            continue;
        finding.severity = Finding::Error;
        finding.exitCode = ExitCode::Refused;
    }
}

void Findings::dropNotes()
{
    const auto isNote = [](const Finding& finding) { return finding.severity == Finding::Note; };
    m_list.erase(std::remove_if(m_list.begin(), m_list.end(), isNote), m_list.end());
}

ExitCode Findings::exitCode(int first) const
{
    return std::accumulate(m_list.begin() + first, m_list.end(), ExitCode::Done,
                           [](ExitCode code, const Finding& finding) {
                               return moreImportant(code, finding.exitCode);
                           });
}

ExitCode Findings::moreImportant(ExitCode one, ExitCode other)
{
    const auto rank = [](ExitCode code) {
        return std::find(std::begin(Precedence), std::end(Precedence), code);
    };
    return rank(one) < rank(other) ? one : other;
}

QJsonArray Findings::toJson() const
{
    QJsonArray array;
    for (const Finding& finding : m_list)
        array.append(finding.toJson());
    return array;
}
