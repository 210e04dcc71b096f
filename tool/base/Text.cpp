#include "tool/base/Text.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>
#include <iterator>

const QString StandardStream = "-";
const QString StandardOutputLabel = "standard output";

namespace {

/// Letters and marks that show nothing, though Unicode does not call them format characters.
constexpr char32_t Invisible[] = {0x034F, 0x115F, 0x1160, 0x17B4, 0x17B5, 0x180B,
                                  0x180C, 0x180D, 0x180F, 0x2800, 0x3164, 0xFFA0};

QString escaped(char32_t character)
{
    QString text;
    for (const QChar unit : characterText(character))
        text += QStringLiteral("\\u%1").arg(unit.unicode(), 4, 16, QLatin1Char('0'));
    return text;
}

/// \p text with an escape for each character that is neither printable nor in \p kept.
QString withEscapes(const QString& text, const QString& kept)
{
    const auto isKept = [&kept](char32_t character) {
        return character < 0x80 && kept.contains(QChar(static_cast<ushort>(character)));
    };

    QString shown;
    for (const char32_t character : text.toUcs4()) {
        if (isPrintable(character) || isKept(character))
            shown += characterText(character);
        else if (character == '\n')
            shown += "\\n";
        else
            shown += escaped(character);
    }
    return shown;
}

bool isInvisible(char32_t character)
{
    return std::find(std::begin(Invisible), std::end(Invisible), character) != std::end(Invisible);
}

} // namespace

QString characterText(char32_t character)
{
    // QString::fromUcs4() drops a byte order mark.
    if (!QChar::requiresSurrogates(character))
        return QString(QChar(static_cast<ushort>(character)));

    return QString(QChar(QChar::highSurrogate(character))) + QChar(QChar::lowSurrogate(character));
}

bool isPrintable(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    // Format characters can turn the direction of what follows.
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Other_PrivateUse:
    case QChar::Other_Surrogate:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        // The replacement character is what a codec puts in place of bytes that are no text.
        return character != QChar::ReplacementCharacter && !isInvisible(character);
    }
}

QString shownText(const QString& text, int length)
{
    const QString shown = withEscapes(text.left(length), QString());
    return text.size() > length ? shown + "..." : shown;
}

QString shownWord(quint32 word)
{
    return "0x" + QStringLiteral("%1").arg(word, 8, 16, QLatin1Char('0')).toUpper();
}

QByteArray asPrintable(const QByteArray& json)
{
    // JSON has no other such character between its texts.
    return withEscapes(QString::fromUtf8(json), "\n").toUtf8();
}

Result<QString> decodedText(const std::string& argument, const QTextCodec* codec,
                            const QString& option)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text =
        codec->toUnicode(argument.data(), static_cast<int>(argument.size()), &state);
    if (state.invalidChars == 0 && state.remainingChars == 0)
        return text;

    return failure(ExitCode::Refused, QString(), option,
                   QStringLiteral("\"%1\" is not text in the encoding of this locale, %2")
                       .arg(shownText(text), QString::fromLatin1(codec->name())));
}

Result<QString> decodedPath(const std::string& argument, const QTextCodec* codec,
                            const QString& option)
{
    const QByteArray bytes = QByteArray::fromStdString(argument);
    QString path = QFile::decodeName(bytes);
    if (path.isEmpty())
        return failure(ExitCode::Refused, QString(), option, "the name of a file cannot be empty");

    const bool isWhole = QFile::encodeName(path) == bytes;
    // Qt takes such a name for one of its own resources.
    if (path.startsWith(QLatin1Char(':')))
        path.prepend("./");
    if (!isWhole)
        return failure(ExitCode::Refused, path, option,
                       QStringLiteral("the name is not text in the encoding of this locale, %1")
                           .arg(QString::fromLatin1(codec->name())));
    return path;
}

QByteArray encoded(const QString& text, const QTextCodec* codec)
{
    const QScopedPointer<QTextEncoder> encoder(codec->makeEncoder(QTextCodec::IgnoreHeader));
    return encoder->fromUnicode(text);
}

std::optional<qint64> byteCount(const QString& text)
{
    static const QRegularExpression size("^(?:0x([0-9a-f]{1,8})|([0-9]{1,10})([km]?))\\z",
                                         QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = size.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    if (match.capturedLength(1) > 0)
        return match.captured(1).toLongLong(nullptr, 16);

    const QString unit = match.captured(3).toUpper();
    const int shift = unit == "K" ? 10 : unit == "M" ? 20 : 0;
    return match.captured(2).toLongLong() << shift;
}
