#include "tool/commands/BinaryInput.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/check/Checker.h"
#include "tool/commands/Command.h"

namespace {

const QString Field = "payload";

} // namespace

void BinaryInput::declareOperand(CLI::App* app)
{
    Argument::addRequired(app, m_name, &m_path, "",
                          "the binary, or a .bit file, whose header is left out; - is standard "
                          "input");
    declareSwap(app);
}

void BinaryInput::declareOption(CLI::App* app)
{
    m_name = "--bin";
    Argument::addOption(app, m_name, &m_path, "BIN",
                        "the binary that the payload must be, or a .bit file, whose header is "
                        "left out");
    declareSwap(app);
    Argument::setNeeded(app, "--swap", m_name);
}

void BinaryInput::declareSwap(CLI::App* app)
{
    Argument::addOption(app, "--swap", &m_swap, "bits|bytes|halfwords",
                        "swap the bits of each byte, or the bytes or halfwords of each word of "
                        "the binary; several with commas (default: none)");
}

QString BinaryInput::label() const
{
    return InputFile::labelOf(QFile::decodeName(m_path.value_or("").c_str()));
}

std::optional<InputFile> BinaryInput::open(Task* task)
{
    readSwap(task);
    const std::optional<QString> path = task->path(*m_path, m_name);
    auto file = path ? task->open(*path, Checker::LargestBinary, m_name) : std::nullopt;
    const auto start =
        file ? task->findings.valueOf(file->bytesAt(0, PayloadKind::StartBytes)) : std::nullopt;
    if (!start)
        return std::nullopt;
    readContainer(*file, *start, task);
    const qint64 bytes = payload(*file).bytes;
    if (bytes % FcfLayout::WordBytes != 0 && PayloadKind::needsWholeWords(m_swaps))
        refuse("--swap", QStringLiteral("needs whole words, but there are %1 bytes").arg(bytes),
               task);
    return file;
}

Region BinaryInput::payload(const InputFile& file) const
{
    const qint64 offset = m_container ? m_container->headerBytes : 0;
    const PayloadKind::Swaps swaps = m_swaps;
    Region region{&file, offset, file.size() - offset, nullptr};
    if (!swaps.isEmpty())
        region.transform = [swaps](char* data, qint64 bytes) {
            PayloadKind::swap(swaps, data, bytes);
        };
    return region;
}

void BinaryInput::readContainer(const InputFile& file, const QByteArray& start, Task* task)
{
    m_container = PayloadKind::container(start);
    if (!m_container)
        return;
    const auto& [design, part, date, time, headerBytes, payloadBytes] = *m_container;
    note(QStringLiteral("the header of its .bit container is left out: design %1, part %2, %3 %4")
             .arg(shownText(design), shownText(part), shownText(date), shownText(time)),
         task);
    task->report.result["container"] = QJsonObject{{"design", design},
                                                   {"part", part},
                                                   {"date", date},
                                                   {"time", time},
                                                   {"headerBytes", headerBytes}};
    if (payloadBytes != file.size() - headerBytes)
        refuse(Field,
               QStringLiteral("the container is of %1 bytes, but %2 follow its header")
                   .arg(payloadBytes)
                   .arg(file.size() - headerBytes),
               task);
}

void BinaryInput::readSwap(Task* task)
{
    const auto text = m_swap ? task->text(*m_swap, "--swap") : std::nullopt;
    if (!text)
        return;
    const auto swaps = PayloadKind::swapsOf(*text);
    if (!swaps) {
        task->refuse(
            "--swap",
            QStringLiteral("\"%1\" is none of bits, bytes and halfwords").arg(shownText(*text)));
        return;
    }
    m_swaps = *swaps;
    note(QStringLiteral("swapped: %1").arg(*text), task);
    task->report.result["swap"] = *text;
}

void BinaryInput::check(const InputFile& file, Task* task) const
{
    const Region region = payload(file);
    Checker(&task->findings, file.label()).checkBinarySize(region.bytes);
    const auto start = task->findings.valueOf(region.bytesAt(0, PayloadKind::StartBytes));
    if (!start || start->isEmpty())
        return;
    const QString complaint = PayloadKind::complaint(*start);
    if (PayloadKind::isImage(*start))
        refuse(Field, "is an FCF image already: extract it first", task);
    else if (!complaint.isEmpty())
        task->findings.warning(file.label(), Field, complaint);
    if (region.bytes % FcfLayout::WordBytes != 0 && !PayloadKind::needsWholeWords(m_swaps))
        note(QStringLiteral("has %1 bytes, which is no multiple of %2")
                 .arg(region.bytes)
                 .arg(FcfLayout::WordBytes),
             task);
}

void BinaryInput::refuse(const QString& field, const QString& reason, Task* task) const
{
    task->findings.error(ExitCode::Refused, label(), field, reason);
}

void BinaryInput::note(const QString& text, Task* task) const
{
    task->findings.note(label(), Field, text);
}
