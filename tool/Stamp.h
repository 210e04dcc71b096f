#ifndef TOOL_STAMP_H
#define TOOL_STAMP_H

#include <QDateTime>
#include <QString>

#include <optional>

class Session;
struct FcfHeader;

/// Where the date and the time of an image come from, and how they are written.
struct Stamp {
    /// The --date-time that was given.
    std::optional<QString> dateTime;
    /// The --date-format that was given.
    std::optional<QString> dateFormat;

    /// Stamps \p header: with --date-time, else with SOURCE_DATE_EPOCH in UTC, else with the clock.
    /// Whatever is malformed is refused, used or not.
    void apply(FcfHeader* header, Session* session) const;

private:
    std::optional<QDateTime> given(Session* session) const;
    static std::optional<QDateTime> sourceDate(Session* session);
};

#endif
