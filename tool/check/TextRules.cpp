#include "tool/check/TextRules.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfReader.h"
#include "fcf/FcfWriter.h"
#include "tool/base/Text.h"

#include <QBuffer>
#include <QStringList>
#include <QTextCodec>

#include <algorithm>

namespace {

using TextRules::Breach;

constexpr int LargestTextsNamed = 3;

struct NamedText {
    QString field;
    QString value;
    /// Whether the value may go on over several lines.
    bool hasLines;
    /// Whether the value is where a reader looks for the end of the text.
    bool opensFunction;
};

template <class Record, int Count>
void appendTexts(const FcfLayout::TextField<Record> (&fields)[Count], const Record& record,
                 int function, QVector<NamedText>* texts)
{
    for (const auto& field : fields) {
        const bool opensFunction = function >= 0 && &field == fields;
        texts->append({TextRules::fieldName(field.name, function), record.*field.value,
                       field.hasLines, opensFunction});
    }
}

QVector<NamedText> textsOf(const FcfHeader& header)
{
    QVector<NamedText> texts;
    appendTexts(FcfLayout::HeaderTexts, header, -1, &texts);
    for (int function = 0; function < header.functions.size(); ++function)
        appendTexts(FcfLayout::FunctionTexts, header.functions.at(function), function, &texts);
    return texts;
}

/// A text field of a form breaks a line at the separators too.
bool isLineBreak(QChar character)
{
    return character == QLatin1Char('\n') || character == QLatin1Char('\r') ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

QString brokenRecord(const NamedText& text)
{
    for (const QChar character : text.value) {
        if (character == QLatin1Char('\n') && text.hasLines)
            continue;
        if (character == QLatin1Char('\r'))
            return "holds a carriage return, at which a form breaks the line";
        if (isLineBreak(character))
            return "holds a line break, at which a reader would lose the rest";
        if (character.category() == QChar::Other_Control && character != QLatin1Char('\t'))
            return QStringLiteral("holds the control character %1")
                .arg(shownText(QString(character)));
    }

    const char* const mark = text.opensFunction ? FcfLayout::TextEnd : FcfLayout::RecordEnd;
    const bool mayEndEarly = text.hasLines || text.opensFunction;
    if (mayEndEarly && text.value.contains(QLatin1String(mark)))
        return QStringLiteral("holds \"%1\", at which a reader would lose the rest")
            .arg(QLatin1String(mark));
    return QString();
}

/// The texts of \p header for which \p rule has a reason.
template <class Rule>
QVector<Breach> breaches(const FcfHeader& header, Rule rule)
{
    QVector<Breach> found;
    for (const NamedText& text : textsOf(header)) {
        const QString reason = rule(text);
        if (!reason.isEmpty())
            found.append({text.field, reason, text.value});
    }
    return found;
}

/// QTextCodec::canEncode() misses half a letter at the end of a text.
bool canEncode(const QTextCodec* codec, const QString& text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    codec->fromUnicode(text.constData(), static_cast<int>(text.size()), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

/// What a form makes of \p header.
FcfHeader asShown(const FcfHeader& header, QTextCodec* codec)
{
    QByteArray page = FcfWriter(codec).compose(header);
    QBuffer device(&page);
    device.open(QIODevice::ReadOnly);
    return FcfReader::read(&device, codec).header;
}

} // namespace

QString TextRules::fieldName(const char* field, int function)
{
    const QString name = QLatin1String(field);
    return function < 0 ? name : QStringLiteral("functions[%1].%2").arg(function).arg(name);
}

QVector<Breach> TextRules::brokenRecords(const FcfHeader& header)
{
    return breaches(header, &brokenRecord);
}

QVector<Breach> TextRules::swallowedFunctions(const FcfHeader& header)
{
    return breaches(header, [](const NamedText& text) {
        return text.value.contains('\n' + QLatin1String(FcfLayout::FunctionTexts[0].prefix))
                   ? "holds a line that begins like a function; the mark before it may be damaged"
                   : QString();
    });
}

QVector<Breach> TextRules::unprintable(const FcfHeader& header)
{
    return breaches(header, [](const NamedText& text) {
        for (const char32_t character : text.value.toUcs4()) {
            // Controls and line separators are no part of a text at all.
            const QChar::Category category = QChar::category(character);
            if (!isPrintable(character) && category != QChar::Other_Control &&
                category != QChar::Separator_Line && category != QChar::Separator_Paragraph)
                return QStringLiteral("has the character %1, which is not shown as a letter")
                    .arg(shownText(characterText(character)));
        }
        return QString();
    });
}

QVector<Breach> TextRules::notEncodable(const FcfHeader& header, const QTextCodec* codec)
{
    return breaches(header, [codec](const NamedText& text) {
        return canEncode(codec, text.value)
                   ? QString()
                   : QStringLiteral("cannot be encoded in this locale's %1")
                         .arg(QString::fromLatin1(codec->name()));
    });
}

QVector<Breach> TextRules::lostInForm(const FcfHeader& header, QTextCodec* codec)
{
    const QVector<NamedText> written = textsOf(header);
    const QVector<NamedText> shown = textsOf(asShown(header, codec));
    QVector<Breach> breaches;
    for (int index = 0; index < qMin(written.size(), shown.size()); ++index) {
        const QString value = shown.at(index).value.trimmed();
        if (value != written.at(index).value.trimmed())
            breaches.append({written.at(index).field,
                             QStringLiteral("the generator window would load no more of it than "
                                            "\"%1\"")
                                 .arg(shownText(value)),
                             written.at(index).value});
    }
    return breaches;
}

QString TextRules::largestShares(const FcfHeader& header, QTextCodec* codec)
{
    const FcfWriter writer(codec);
    const auto all = writer.compose(header).size();

    QVector<QPair<qint64, QString>> shares;
    for (const auto& field : FcfLayout::HeaderTexts) {
        const QString line = QLatin1String(field.prefix) + header.*field.value + QLatin1Char('\n');
        shares.append({encoded(line, codec).size(), QLatin1String(field.name)});
    }
    FcfHeader withoutFunctions = header;
    withoutFunctions.functions.clear();
    shares.append({all - writer.compose(withoutFunctions).size(), "functions"});

    std::stable_sort(shares.begin(), shares.end(),
                     [](const auto& left, const auto& right) { return left.first > right.first; });

    qint64 rest = all;
    QStringList largest;
    for (const auto& [bytes, field] : shares.mid(0, LargestTextsNamed)) {
        largest << QStringLiteral("%1 has %2").arg(field).arg(bytes);
        rest -= bytes;
    }
    return QStringLiteral("%1 and the rest %2").arg(largest.join(", ")).arg(rest);
}
