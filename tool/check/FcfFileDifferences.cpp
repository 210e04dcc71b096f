#include "tool/check/FcfFileDifferences.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFile.h"
#include "tool/files/FileCompare.h"
#include "tool/recipe/HeaderJson.h"

#include <QJsonObject>

const QString FcfFileDifferences::Payload = "payload";

namespace {

/// What differs, beside the fields and the payload.
namespace Place {
const QString Kind = "kind";
const QString Reserved = "reserved";
const QString Text = "text";
const QString Filler = "filler";
const QString Padding = "padding";
} // namespace Place

/// Adds the values of both files, if they differ.
void add(const QString& field, const QString& a, const QString& b, QJsonArray* differences)
{
    if (a != b)
        differences->append(QJsonObject{{"field", field}, {"a", a}, {"b", b}});
}

QString kindOf(const FcfFile& fcf)
{
    return fcf.file.size() > fcf.page.bytes ? "image" : "companion";
}

void addReservedWords(const FcfFile& a, const FcfFile& b, QJsonArray* differences)
{
    const QVector<quint32> wordsA = a.page.reading.reservedWords;
    const QVector<quint32> wordsB = b.page.reading.reservedWords;
    for (int index = 0; index < qMin(wordsA.size(), wordsB.size()); ++index)
        add(QStringLiteral("%1[%2]").arg(Place::Reserved).arg(index), shownWord(wordsA.at(index)),
            shownWord(wordsB.at(index)), differences);
}

/// A part of a page beside what the generator writes there. Two parts that are as it writes them
/// differ in nothing but the fields of the header.
struct Part {
    QByteArray bytes;
    QByteArray written;
    /// Bytes from the start of the file.
    int offset = 0;
};

QString shownPart(const Part& part)
{
    if (part.bytes == part.written)
        return "as the generator writes it";

    const int first = FileCompare::firstDifference(part.bytes, part.written);
    return QStringLiteral("%1 in place of %2 at offset %3")
        .arg(FileCompare::byteAt(part.bytes, first), FileCompare::byteAt(part.written, first))
        .arg(part.offset + first);
}

void addPart(const QString& field, const Part& a, const Part& b, QJsonArray* differences)
{
    const bool areRegular = a.bytes == a.written && b.bytes == b.written;
    if (!areRegular && a.bytes != b.bytes)
        differences->append(
            QJsonObject{{"field", field}, {"a", shownPart(a)}, {"b", shownPart(b)}});
}

Part textOf(const HeaderPage& page, const QByteArray& bytes, QTextCodec* codec)
{
    const int start = FcfLayout::PreambleBytes;
    return {bytes.mid(start, page.reading.textEnd - start),
            FcfWriter(codec).compose(page.reading.header).mid(start), start};
}

Part fillerOf(const HeaderPage& page, const QByteArray& bytes, QTextCodec* codec)
{
    const int start = page.reading.textEnd;
    return {bytes.mid(start), FcfWriter(codec).fillerFor(start), start};
}

QString shownBytes(qint64 bytes) { return QStringLiteral("%1 bytes").arg(bytes); }

} // namespace

QStringList FcfFileDifferences::otherNames()
{
    return {Place::Kind, Place::Reserved, Place::Text, Place::Filler, Payload, Place::Padding};
}

Result<QJsonArray> FcfFileDifferences::find(const FcfFile& a, const FcfFile& b, QTextCodec* codec)
{
    const auto bytesA = a.file.bytesAt(0, a.page.bytes);
    if (!bytesA)
        return tl::unexpected<Finding>(bytesA.error());
    const auto bytesB = b.file.bytesAt(0, b.page.bytes);
    if (!bytesB)
        return tl::unexpected<Finding>(bytesB.error());

    QJsonArray differences;
    add(Place::Kind, kindOf(a), kindOf(b), &differences);
    for (const auto& field : HeaderJson::differences(a.page.reading.header, b.page.reading.header))
        differences.append(field);
    addReservedWords(a, b, &differences);

    addPart(Place::Text, textOf(a.page, *bytesA, codec), textOf(b.page, *bytesB, codec),
            &differences);
    addPart(Place::Filler, fillerOf(a.page, *bytesA, codec), fillerOf(b.page, *bytesB, codec),
            &differences);
    add(Place::Padding, shownBytes(a.page.fillerBytes), shownBytes(b.page.fillerBytes),
        &differences);
    return differences;
}
