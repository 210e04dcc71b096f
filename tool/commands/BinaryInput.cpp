#include "tool/commands/BinaryInput.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/check/Checker.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

namespace {

const QString Field = QStringLiteral("payload");

} // namespace

void BinaryInput::declare(CLI::App* app)
{
    Arguments::addOperand(app, "BIN", &m_path,
                          "the binary, or a .bit file, whose header is left out; - is standard "
                          "input");
    Arguments::addOption(app, "--swap", &m_swap, "bits|bytes|halfwords",
                         "swap the bits of each byte, or the bytes or halfwords of each word; "
                         "several with commas");
}

QString BinaryInput::label() const { return InputFile::labelOf(QFile::decodeName(m_path.c_str())); }

std::optional<InputFile> BinaryInput::open(Task* task)
{
    readSwap(task);
    const std::optional<QString> path = task->path(m_path, "BIN");
    auto file = path ? task->open(*path, Checker::LargestBinary, "BIN") : std::nullopt;
    const auto start =
        file ? task->findings.valueOf(file->bytesAt(0, PayloadKind::StartBytes)) : std::nullopt;
    if (!start)
        return std::nullopt;
    readContainer(*file, *start, task);
    Checker(&task->findings, file->label()).checkBinarySize(payload(*file).bytes);
    if (payload(*file).bytes > 0)
        check(*file, task);
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
        task->findings.error(
            ExitCode::Refused, file.label(), Field,
            QStringLiteral("the container is of %1 bytes, but %2 follow its header")
                .arg(payloadBytes)
                .arg(file.size() - headerBytes));
}

void BinaryInput::readSwap(Task* task)
{
    const auto text = m_swap ? task->text(*m_swap, "--swap") : std::nullopt;
    if (!text)
        return;
    const auto swaps = PayloadKind::swapsOf(*text);
    if (!swaps) {
        task->findings.error(
            ExitCode::Refused, QString(), QStringLiteral("--swap"),
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
    const auto start = task->findings.valueOf(region.start(PayloadKind::StartBytes));
    const QString complaint = start ? PayloadKind::complaint(*start) : QString();
    const bool isWhole = region.bytes % FcfLayout::WordBytes == 0;
    if (start && PayloadKind::isImage(*start))
        task->findings.error(ExitCode::Refused, file.label(), Field,
                             QStringLiteral("is an FCF image already: extract it first"));
    else if (!complaint.isEmpty())
        task->findings.warning(file.label(), Field, complaint);
    if (!isWhole && PayloadKind::needsWholeWords(m_swaps))
        task->findings.error(
            ExitCode::Refused, file.label(), QStringLiteral("--swap"),
            QStringLiteral("needs whole words, but there are %1 bytes").arg(region.bytes));
    else if (!isWhole)
        note(QStringLiteral("has %1 bytes, which is no multiple of %2")
                 .arg(region.bytes)
                 .arg(FcfLayout::WordBytes),
             task);
}

void BinaryInput::note(const QString& text, Task* task) const
{
    task->findings.note(label(), Field, text);
}
