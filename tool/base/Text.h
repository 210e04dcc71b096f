#ifndef TOOL_BASE_TEXT_H
#define TOOL_BASE_TEXT_H

#include "tool/base/Result.h"

#include <QString>

#include <optional>
#include <string>

class QTextCodec;

/// "-", the name of standard input and standard output.
extern const QString StandardStream;

/// What messages call standard output.
extern const QString StandardOutputLabel;

/// A text of the one \p character.
QString characterText(char32_t character);

/// Whether a terminal shows \p character and does nothing else: false for control characters, marks
/// that turn the direction of text, invisible letters and unknown characters.
bool isPrintable(char32_t character);

/// \p json, in UTF-8, with an escape for everything that is not printable.
QByteArray asPrintable(const QByteArray& json);

/// With this length shownText() cuts nothing.
constexpr int WholeText = 1 << 30;

/// \p text with everything escaped that a terminal would act on or could not show, and cut behind
/// \p length characters.
QString shownText(const QString& text, int length = 120);

/// \p word as in 0xFFFFFFFF.
QString shownWord(quint32 word);

/// The argument of \p option as text, unless it is none in the encoding of \p codec.
Result<QString> decodedText(const std::string& argument, const QTextCodec* codec,
                            const QString& option);

/// The argument of \p option as the name of a file, unless it cannot be one.
Result<QString> decodedPath(const std::string& argument, const QTextCodec* codec,
                            const QString& option);

/// \p text as \p codec writes it, without a byte order mark.
QByteArray encoded(const QString& text, const QTextCodec* codec);

/// The bytes that \p text means: a decimal number, or one of 1024 or 1024 * 1024 bytes with K or M,
/// or a hexadecimal number with 0x. Nothing if it is none.
std::optional<qint64> byteCount(const QString& text);

#endif
