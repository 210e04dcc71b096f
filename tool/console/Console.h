#ifndef TOOL_CONSOLE_CONSOLE_H
#define TOOL_CONSOLE_CONSOLE_H

#include "tool/files/Copy.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <functional>
#include <optional>

class QIODevice;
class QTextCodec;

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

#endif
