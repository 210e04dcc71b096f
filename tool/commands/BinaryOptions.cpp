#include "tool/commands/BinaryOptions.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/check/BitContainer.h"
#include "tool/check/NewImageChecker.h"
#include "tool/check/PayloadKind.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/SidecarOptions.h"
#include "tool/commands/Task.h"

namespace {

/// What is wrong with a container of \p stated bytes that \p following bytes follow.
QString lengthComplaint(qint64 stated, qint64 following)
{
    if (following < stated)
        return QStringLiteral("is a .bit container that is cut: %1 of its %2 bytes follow the "
                              "header; copy or build it again")
            .arg(following)
            .arg(stated);
    return QStringLiteral("is a .bit container of %1 bytes with %2 more behind it: take off what "
                          "was added")
        .arg(stated)
        .arg(following - stated);
}

} // namespace

void BinaryOptions::declareOperand(CLI::App* app)
{
    Arguments::addRequired(app, m_name, &m_path, "",
                           "the binary, or a .bit file, whose header is left out, or with "
                           "--relabel an image; - is standard input");
    Arguments::addFlag(app, "--relabel", &m_relabel,
                       "take the payload of an image in place of a binary");
    declareSwap(app);
}

void BinaryOptions::declareOption(CLI::App* app)
{
    m_name = "--bin";
    Arguments::addOption(app, m_name, &m_path, "BIN",
                         "the binary that the payload must be, or a .bit file, whose header is "
                         "left out");
    declareSwap(app);
    Arguments::setNeeded(app, "--swap", m_name);
}

void BinaryOptions::declareSwap(CLI::App* app)
{
    Arguments::addOption(app, "--swap", &m_swap, "bits|bytes|halfwords",
                         "swap the bits of each byte, or the bytes or halfwords of each word of "
                         "the binary; several with commas (default: none)");
}

QString BinaryOptions::label() const
{
    return InputFile::labelOf(QFile::decodeName(m_path.value_or("").c_str()));
}

std::optional<InputFile> BinaryOptions::open(Task* task)
{
    readSwap(task);

    const std::optional<QString> path = task->path(*m_path, m_name);
    if (!path)
        return std::nullopt;
    if (m_relabel)
        return openImage(*path, task);

    auto file = task->open(*path, NewImageChecker::LargestBinary, m_name);
    if (!file)
        return std::nullopt;

    const auto start = task->findings.valueOf(file->bytesAt(0, PayloadKind::StartBytes));
    if (!start)
        return std::nullopt;

    if (!readContainer(*file, *start, task))
        return std::nullopt;

    checkWholeWords(*file, task);
    return file;
}

/// Opens an image, whose payload is taken as it is. What extract would not take is refused.
std::optional<InputFile> BinaryOptions::openImage(const QString& path, Task* task)
{
    if (m_swap)
        task->refuse("--swap", "is of a binary: with --relabel the payload stays as it is");

    SidecarOptions sidecars;
    auto set = sidecars.open(path, true, task);
    auto image = set ? task->readFcf(std::move(set->file), Task::Whole) : std::nullopt;
    if (!image || !sidecars.checkImage(*image, *set, task))
        return std::nullopt;

    m_before = image->page.bytes;
    m_behind = image->page.fillerBytes;
    return std::move(image->file);
}

Region BinaryOptions::payload(const InputFile& file) const
{
    Region region{&file, m_before, file.size() - m_before - m_behind, nullptr};
    if (m_swaps.isEmpty())
        return region;

    const WordSwap::Swaps swaps = m_swaps;
    region.transform = [swaps](char* data, qint64 bytes) { WordSwap::swap(swaps, data, bytes); };
    return region;
}

/// Finds the payload in a container. Returns false, with an error, if that is not whole.
bool BinaryOptions::readContainer(const InputFile& file, const QByteArray& start, Task* task)
{
    if (!BitContainer::isStartOf(start))
        return true;

    const auto container = BitContainer::read(start);
    if (!container) {
        task->findings.refuse(label(), PayloadField, container.error());
        return false;
    }

    const auto& [design, part, date, time, headerBytes, payloadBytes] = *container;
    const qint64 following = file.size() - headerBytes;
    if (payloadBytes != following) {
        task->findings.refuse(label(), PayloadField,
                              lengthComplaint(container->payloadBytes, following));
        return false;
    }

    m_before = headerBytes;
    note(QStringLiteral("the header of its .bit container is left out: design %1, part %2, %3 %4")
             .arg(shownText(design), shownText(part), shownText(date), shownText(time)),
         task);
    task->report.result["container"] = QJsonObject{{"design", design},
                                                   {"part", part},
                                                   {"date", date},
                                                   {"time", time},
                                                   {"headerBytes", headerBytes}};
    return true;
}

void BinaryOptions::readSwap(Task* task)
{
    const auto text = m_swap ? task->text(*m_swap, "--swap") : std::nullopt;
    if (!text)
        return;

    const auto swaps = WordSwap::swapsOf(*text);
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

void BinaryOptions::checkWholeWords(const InputFile& file, Task* task) const
{
    const qint64 bytes = payload(file).bytes;
    if (bytes % FcfLayout::WordBytes != 0 && WordSwap::needsWholeWords(m_swaps))
        task->findings.refuse(
            label(), "--swap",
            QStringLiteral("needs whole words, but there are %1 bytes").arg(bytes));
}

void BinaryOptions::check(const InputFile& file, Task* task) const
{
    const Region region = payload(file);
    NewImageChecker(&task->findings, file.label()).checkBinarySize(region.bytes);

    const auto start = task->findings.valueOf(region.bytesAt(0, PayloadKind::StartBytes));
    if (!start || start->isEmpty())
        return;

    checkKind(region, *start, task);
    if (region.bytes % FcfLayout::WordBytes != 0 && !WordSwap::needsWholeWords(m_swaps))
        note(QStringLiteral("has %1 bytes, which is no multiple of %2")
                 .arg(region.bytes)
                 .arg(FcfLayout::WordBytes),
             task);
}

/// Checks that \p region, which begins with \p start, is a bare configuration.
void BinaryOptions::checkKind(const Region& region, const QByteArray& start, Task* task) const
{
    if (PayloadKind::isImage(start)) {
        task->findings.refuse(label(), PayloadField, "is an FCF image already: extract it first");
        return;
    }
    if (const QString swap = PayloadKind::swapOfImage(start); !swap.isEmpty()) {
        task->findings.refuse(
            label(), PayloadField,
            QStringLiteral("is a %1 FCF image: swap it back and extract it first").arg(swap));
        return;
    }
    if (BitContainer::isStartOf(start)) {
        task->findings.refuse(label(), PayloadField,
                              "has a .bit container in it: take its header off first");
        return;
    }

    if (const auto complaint = PayloadKind::complaint(start, m_swaps)) {
        Finding& warning = task->findings.warning(label(), PayloadField, complaint->reason);
        if (complaint->offset >= 0)
            warning.at(region.offset + complaint->offset);
    }
}

void BinaryOptions::note(const QString& text, Task* task) const
{
    task->findings.note(label(), PayloadField, text);
}
