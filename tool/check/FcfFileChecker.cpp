#include "tool/check/FcfFileChecker.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "tool/base/Text.h"
#include "tool/check/FcfFile.h"
#include "tool/check/Findings.h"
#include "tool/check/HeaderPage.h"
#include "tool/check/PayloadKind.h"
#include "tool/check/TextRules.h"
#include "tool/files/FileCompare.h"
#include "tool/files/Filler.h"
#include "tool/files/InputFile.h"

#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <iterator>

namespace {

const FcfLayout::NumberField& numberOf(qint32 FcfHeader::*value)
{
    for (const auto& field : FcfLayout::Numbers) {
        if (field.value == value)
            return field;
    }
    Q_UNREACHABLE();
}

/// The codes of all modules, or of the devices of the module \p moduleCode, for messages.
QStringList codes(std::optional<qint32> moduleCode = std::nullopt)
{
    QStringList codes;
    for (const auto& target : FcfTarget::Targets) {
        if (!moduleCode || target.moduleCode == moduleCode)
            codes << QString::number(moduleCode ? target.deviceCode : target.moduleCode);
    }
    codes.removeDuplicates();
    return codes;
}

qint64 offsetOf(const HeaderPage& page, const QString& field)
{
    for (const FcfSpan& span : page.reading.spans) {
        if (TextRules::fieldName(span.field, span.function) == field)
            return span.offset;
    }
    return -1;
}

qint32 FcfSizes::*const SizeFields[] = {&FcfSizes::totalPages, &FcfSizes::totalBlocks,
                                        &FcfSizes::totalSize,  &FcfSizes::binPages,
                                        &FcfSizes::binBlocks,  &FcfSizes::binFileSize};

/// Whether all sizes in \p header are those of one payload.
bool haveOneLength(const FcfHeader& header)
{
    const qint64 bytes = header.binFileSize;
    if (bytes <= 0 || bytes > NewImageChecker::LargestBinary)
        return false;

    const FcfSizes sizes = PelkFcfGeneratorFileInfo().measure(bytes);
    return std::all_of(std::begin(SizeFields), std::end(SizeFields),
                       [&](const auto field) { return header.*field == sizes.*field; });
}

/// "1 byte is" or "2 bytes are".
QString counted(qint64 bytes, const char* verbOfOne, const char* verbOfMany)
{
    return bytes == 1 ? QStringLiteral("1 byte %1").arg(QLatin1String(verbOfOne))
                      : QStringLiteral("%1 bytes %2").arg(bytes).arg(QLatin1String(verbOfMany));
}

} // namespace

QList<Finding> FcfFileChecker::errorsOf(const FcfFile& fcf, QTextCodec* codec)
{
    // An image that was cut off behind its header is as long as a companion.
    const bool isImage = fcf.file.path().endsWith(".fcf") || fcf.file.size() > fcf.page.bytes;
    const bool isCompanion = fcf.file.path().endsWith(".txt") || !isImage;

    Findings findings;
    FcfFileChecker(&fcf.file, isCompanion ? Companion : Image, codec, &findings).check(fcf.page);

    QList<Finding> errors;
    for (const Finding& finding : findings.list()) {
        if (finding.severity == Finding::Error)
            errors << finding;
    }
    return errors;
}

FcfFileChecker::FcfFileChecker(const InputFile* file, Kind kind, QTextCodec* codec,
                               Findings* findings)
    : m_file(file), m_kind(kind), m_codec(codec), m_findings(findings)
{
}

void FcfFileChecker::check(const HeaderPage& page) const
{
    const FcfHeader& header = page.reading.header;
    if (m_kind == Image && haveOneLength(header) && header.binFileSize != page.payloadBytes)
        checkLength(page);
    else
        checkSizes(header, m_kind == Image ? page.payloadBytes : header.binFileSize);
    checkCodes(header);
    checkReservedWords(page.reading.reservedWords);
    checkTexts(page);
    checkFiller(page);
    checkAgainstWriter(page);
    checkEnd(page);
}

/// Checks what follows the page of a companion, or the payload of an image.
void FcfFileChecker::checkEnd(const HeaderPage& page) const
{
    if (m_kind == Image && page.fillerBytes > 0)
        note("payload", page.imageBytes(),
             QStringLiteral("ends here; %1 bytes of 0xFF follow, as in flash")
                 .arg(page.fillerBytes));

    if (m_kind == Companion && m_file->size() > page.bytes)
        invalid("page", page.bytes, "a companion ends with its header page",
                QStringLiteral("%1 bytes").arg(page.bytes),
                QStringLiteral("%1 bytes").arg(m_file->size()));
}

/// Names what is missing of an image, or too much, whose header states another length. Its sizes
/// agree with each other: it is the file that is not as it was.
void FcfFileChecker::checkLength(const HeaderPage& page) const
{
    const qint64 end = page.bytes + page.reading.header.binFileSize;
    const qint64 missing = end - m_file->size();
    const std::optional<QString> reason =
        missing > 0 ? QStringLiteral("%1 missing at the end").arg(counted(missing, "is", "are"))
                    : whatFollows(end);
    if (reason)
        invalid(PayloadField, qMin(end, m_file->size()), *reason,
                QStringLiteral("%1 bytes").arg(end),
                QStringLiteral("%1 bytes").arg(m_file->size()));
}

/// What is in the file from \p end on, where its payload ends.
std::optional<QString> FcfFileChecker::whatFollows(qint64 end) const
{
    const Region rest{m_file, end, m_file->size() - end, nullptr};
    const auto filler = m_findings->valueOf(Filler::count(rest));
    const auto start =
        filler ? bytesAt(*m_file, end + *filler, FcfLayout::PageBytes) : std::nullopt;
    if (!start)
        return std::nullopt;

    if (PayloadKind::isImage(*start))
        return QStringLiteral("a second image follows at offset %1").arg(end + *filler);
    return QStringLiteral("%1 the payload, not all of them 0xFF")
        .arg(counted(rest.bytes, "follows", "follow"));
}

void FcfFileChecker::checkSizes(const FcfHeader& header, qint64 bytes) const
{
    if (bytes <= 0 || bytes > NewImageChecker::LargestBinary) {
        invalid(&FcfHeader::binFileSize, header,
                QStringLiteral("the payload has %1 bytes, and a size field can be 1 to %2")
                    .arg(bytes)
                    .arg(NewImageChecker::LargestBinary),
                bytes == header.binFileSize ? "1 or more" : QString::number(bytes));
        return;
    }

    const FcfSizes sizes = PelkFcfGeneratorFileInfo().measure(bytes);
    for (const auto field : SizeFields) {
        if (header.*field != sizes.*field)
            invalid(field, header,
                    QStringLiteral("does not agree with a payload of %1 bytes").arg(bytes),
                    QString::number(sizes.*field));
    }
}

void FcfFileChecker::checkCodes(const FcfHeader& header) const
{
    checkModule(header);
    checkVersion(header);
    checkSlot(header);
}

void FcfFileChecker::checkModule(const FcfHeader& header) const
{
    const bool isModule = std::any_of(
        std::begin(FcfTarget::Targets), std::end(FcfTarget::Targets),
        [&header](const auto& target) { return target.moduleCode == header.moduleCode; });
    if (!isModule)
        invalid(&FcfHeader::moduleCode, header, "is the code of no module", codes().join(" or "));
    else if (!FcfTarget::find(header.moduleCode, header.deviceCode))
        invalid(&FcfHeader::deviceCode, header, "is the code of no device of the module",
                "one of " + codes(header.moduleCode).join(", "));
}

void FcfFileChecker::checkVersion(const FcfHeader& header) const
{
    for (const auto version : {&FcfHeader::versionMajor, &FcfHeader::versionMinor}) {
        if (header.*version < 0)
            invalid(version, header, "is negative", "0 or more");
    }
}

void FcfFileChecker::checkSlot(const FcfHeader& header) const
{
    if (header.configNumber < FcfTarget::FirstSlot || header.configNumber > FcfTarget::LastSlot)
        invalid(&FcfHeader::configNumber, header, "is no flash slot",
                QStringLiteral("%1 to %2").arg(FcfTarget::FirstSlot).arg(FcfTarget::LastSlot));
}

void FcfFileChecker::checkReservedWords(const QVector<quint32>& words) const
{
    int offset = FcfLayout::NumberCount * FcfLayout::WordBytes;
    for (int index = 0; index < words.size(); ++index, offset += FcfLayout::WordBytes) {
        if (words.at(index) != FcfLayout::ReservedWord)
            invalid(QStringLiteral("reserved[%1]").arg(index), offset, "is no reserved word",
                    shownWord(FcfLayout::ReservedWord), shownWord(words.at(index)));
    }
}

void FcfFileChecker::checkTexts(const HeaderPage& page) const
{
    checkRecords(page);
    checkTime(page);
    checkName(page);
}

void FcfFileChecker::checkRecords(const HeaderPage& page) const
{
    const FcfHeader& header = page.reading.header;
    for (const TextRules::Breach& breach : TextRules::brokenRecords(header))
        invalid(breach.field, offsetOf(page, breach.field), breach.reason,
                "a text that a reader takes whole", breach.value);

    const auto oddities = TextRules::swallowedFunctions(header) + TextRules::unprintable(header);
    for (const TextRules::Breach& breach : oddities)
        note(breach.field, offsetOf(page, breach.field), breach.reason);
}

void FcfFileChecker::checkTime(const HeaderPage& page) const
{
    static const QRegularExpression timeOfDay("^([01][0-9]|2[0-3]):[0-5][0-9]:[0-5][0-9]\\z");
    const QString field = "time";
    const QString time = page.reading.header.time;
    if (!timeOfDay.match(time).hasMatch())
        invalid(field, offsetOf(page, field), "is no time of day", "HH:MM:SS", time);
}

void FcfFileChecker::checkName(const HeaderPage& page) const
{
    if (m_kind == Companion || m_file->isStandardInput())
        return;

    const QString field = "fileName";
    const QString name = QFileInfo(m_file->path()).fileName();
    const QString nameInHeader = page.reading.header.fileName;
    if (nameInHeader != name)
        note(field, offsetOf(page, field), "the file has another name by now")
            .comparing(name, nameInHeader);
}

void FcfFileChecker::checkFiller(const HeaderPage& page) const
{
    const int textEnd = page.reading.textEnd;
    if (textEnd > FcfLayout::PageBytes) {
        invalid("text", FcfLayout::PageBytes, "the text does not fit in the header page",
                QStringLiteral("%1 bytes").arg(FcfLayout::PageBytes),
                QStringLiteral("%1 bytes").arg(textEnd));
        return;
    }

    const QByteArray filler = FcfWriter(m_codec).fillerFor(textEnd);
    const auto found = bytesAt(*m_file, textEnd, filler.size());
    if (found)
        compare("filler", textEnd, "is not what fills a header page", filler, *found);
}

/// Catches what no single check above is about, such as blanks that a writer leaves out.
void FcfFileChecker::checkAgainstWriter(const HeaderPage& page) const
{
    if (page.reading.textEnd > FcfLayout::PageBytes)
        return;

    const int textStart = FcfLayout::PreambleBytes;
    const QByteArray written = FcfWriter(m_codec).compose(page.reading.header);
    const auto found = bytesAt(*m_file, textStart, page.reading.textEnd - textStart);
    if (found)
        compare("text", textStart, "is not what a writer writes for the same texts",
                written.mid(textStart), *found);
}

void FcfFileChecker::compareBinary(const HeaderPage& page, const Region& binary,
                                   const CopyObserver& observe) const
{
    const QString label = shownText(binary.file->label());
    if (m_kind == Companion) {
        const FcfHeader& header = page.reading.header;
        if (!haveOneLength(header))
            checkSizes(header, binary.bytes);
        else if (header.binFileSize != binary.bytes)
            invalid(&FcfHeader::binFileSize, header,
                    QStringLiteral("is not the length of %1").arg(label),
                    QString::number(binary.bytes));
        return;
    }

    if (page.payloadBytes != binary.bytes)
        invalid(PayloadField, page.bytes, QStringLiteral("has not the length of %1").arg(label),
                QStringLiteral("%1 bytes").arg(binary.bytes),
                QStringLiteral("%1 bytes").arg(page.payloadBytes));

    const Region payload{m_file, page.bytes, page.payloadBytes, nullptr};
    const auto difference = m_findings->valueOf(FileCompare::compare(payload, binary, observe));
    if (difference && difference->count > 0)
        invalid(PayloadField, page.bytes + difference->offset,
                QStringLiteral("is not %1, of which this is offset %2")
                    .arg(label)
                    .arg(binary.offset + difference->offset),
                difference->expected, difference->found);
}

void FcfFileChecker::compareCompanion(const HeaderPage& page, const InputFile& companion) const
{
    const auto own = bytesAt(*m_file, 0, page.bytes);
    const auto other = bytesAt(companion, 0, page.bytes + 1);
    if (own && other)
        compare("header", 0,
                QStringLiteral("is not the companion %1").arg(shownText(companion.label())), *other,
                *own);
}

void FcfFileChecker::compare(const QString& field, qint64 offset, const QString& reason,
                             const QByteArray& expected, const QByteArray& found) const
{
    if (expected == found)
        return;

    const int first = FileCompare::firstDifference(expected, found);
    invalid(field, offset + first, reason, FileCompare::byteAt(expected, first),
            FileCompare::byteAt(found, first));
}

std::optional<QByteArray> FcfFileChecker::bytesAt(const InputFile& file, qint64 offset,
                                                  qint64 bytes) const
{
    return m_findings->valueOf(file.bytesAt(offset, bytes));
}

Finding& FcfFileChecker::note(const QString& field, qint64 offset, const QString& reason) const
{
    return m_findings->note(m_file->label(), field, reason).at(offset);
}

void FcfFileChecker::invalid(qint32 FcfHeader::*number, const FcfHeader& header,
                             const QString& reason, const QString& expected) const
{
    const FcfLayout::NumberField& field = numberOf(number);
    invalid(QLatin1String(field.name), field.offset, reason, expected,
            QString::number(header.*number));
}

void FcfFileChecker::invalid(const QString& field, qint64 offset, const QString& reason,
                             const QString& expected, const QString& found) const
{
    m_findings->error(ExitCode::NotValid, m_file->label(), field, reason)
        .at(offset)
        .comparing(expected, found);
}
