#include "tool/base/Text.h"

#include <QFile>
#include <QTextCodec>

const QString StandardStream = QStringLiteral("-");
const QString StandardOutputLabel = QStringLiteral("standard output");

namespace {

bool isHarmful(QChar character)
{
    switch (character.category()) {
    case QChar::Other_Control:
    // Format characters can turn the direction of what follows.
    case QChar::Other_Format:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return true;
    default:
        // What stands for bytes that are no text.
        return character == QChar::ReplacementCharacter;
    }
}

} // namespace

QString shownText(const QString& text, int length)
{
    QString shown;
    for (const QChar character : text.left(length)) {
        if (character == QLatin1Char('\n'))
            shown += QStringLiteral("\\n");
        else if (isHarmful(character))
            shown += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            shown += character;
    }
    return text.size() > length ? shown + QStringLiteral("...") : shown;
}

Result<QString> textOf(const std::string& argument, const QTextCodec* codec, const QString& option)
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

Result<QString> pathOf(const std::string& argument, const QTextCodec* codec, const QString& option)
{
    const QByteArray bytes = QByteArray::fromStdString(argument);
    QString path = QFile::decodeName(bytes);
    if (path.isEmpty())
        return failure(ExitCode::Refused, QString(), option,
                       QStringLiteral("the name of a file cannot be empty"));
    const bool isWhole = QFile::encodeName(path) == bytes;
    // Qt takes such a name for one of its own resources.
    if (path.startsWith(QLatin1Char(':')))
        path.prepend(QStringLiteral("./"));
    if (isWhole)
        return path;
    return failure(ExitCode::Refused, path, option,
                   QStringLiteral("the name is not text in the encoding of this locale, %1")
                       .arg(QString::fromLatin1(codec->name())));
}

QByteArray encoded(const QString& text, const QTextCodec* codec)
{
    const QScopedPointer<QTextEncoder> encoder(codec->makeEncoder(QTextCodec::IgnoreHeader));
    return encoder->fromUnicode(text);
}
