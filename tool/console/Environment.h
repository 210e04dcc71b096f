#ifndef TOOL_CONSOLE_ENVIRONMENT_H
#define TOOL_CONSOLE_ENVIRONMENT_H

#include <QByteArray>
#include <QDateTime>

#include <functional>
#include <optional>

class QIODevice;
class QTextCodec;

/// What is outside of a run, so that a test can replace it. No pointer is owned.
struct Environment {
    QIODevice* in = nullptr;
    QIODevice* out = nullptr;
    QIODevice* err = nullptr;
    bool outIsTerminal = false;
    /// Progress is shown on a terminal alone.
    bool errIsTerminal = false;
    /// The local time.
    std::function<QDateTime()> clock = &QDateTime::currentDateTime;
    /// A time in milliseconds that only ever grows.
    std::function<qint64()> milliseconds;
    /// The value of SOURCE_DATE_EPOCH, when it is set.
    std::optional<QByteArray> sourceDateEpoch;
    /// The encoding of arguments, texts in headers and messages.
    QTextCodec* codec = nullptr;
};

#endif
