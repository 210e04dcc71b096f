#include "tool/commands/DumpOptions.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/check/PayloadKind.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Task.h"
#include "tool/files/Filler.h"

namespace {

constexpr char OffsetOption[] = "--offset";

/// Leaves of the file of \p fcf the image and the 0xFF behind it, and notes what follows that.
/// The image is at \p offset in the dump.
Status cutBehindImage(FcfFile* fcf, qint64 offset, Findings* findings)
{
    InputFile& file = fcf->file;
    const qint64 stated = fcf->page.reading.header.binFileSize;
    const qint64 end = fcf->page.bytes + stated;
    if (stated <= 0 || end >= file.size())
        return {};

    const auto filler = Filler::count({&file, end, file.size() - end, nullptr});
    if (!filler)
        return tl::unexpected<Finding>(filler.error());

    const qint64 next = end + *filler;
    const qint64 following = file.size() - next;
    if (following == 0)
        return {};

    const auto start = file.bytesAt(next, FcfLayout::PageBytes);
    if (!start)
        return tl::unexpected<Finding>(start.error());

    findings->note(file.label(), QLatin1String(OffsetOption),
                   PayloadKind::isImage(*start)
                       ? QStringLiteral("another image follows, at --offset %1").arg(offset + next)
                       : QStringLiteral("%1 bytes that are no image follow and are not checked, "
                                        "from offset %2 on")
                             .arg(following)
                             .arg(offset + next));
    file.narrow(0, next);
    return {};
}

} // namespace

void DumpOptions::declare(CLI::App* app)
{
    Arguments::addOption(app, OffsetOption, &m_offset, "BYTES",
                         "where in a dump of a flash the image begins: a number like 135168, "
                         "0x21000, 132K or 2M (default: 0, and nothing but 0xFF may follow)");
}

std::optional<FcfFile> DumpOptions::read(InputFile file, Task* task) const
{
    if (!m_offset)
        return task->readFcf(std::move(file), Task::Whole);

    const auto offset = this->offset(file, task);
    if (!offset)
        return std::nullopt;

    file.narrow(*offset, file.size() - *offset);
    auto fcf = task->readFcf(std::move(file), Task::PageOnly);
    if (!fcf || !task->findings.accept(cutBehindImage(&*fcf, *offset, &task->findings)))
        return std::nullopt;

    if (!task->findings.accept(fcf->page.measure(fcf->file)))
        return std::nullopt;
    return fcf;
}

/// The offset that was given, if it is in \p file.
std::optional<qint64> DumpOptions::offset(const InputFile& file, Task* task) const
{
    const auto text = task->text(*m_offset, OffsetOption);
    if (!text)
        return std::nullopt;

    const auto offset = byteCount(*text);
    if (!offset) {
        task->refuse(OffsetOption,
                     QStringLiteral("\"%1\" is no number of bytes like 135168, 0x21000, "
                                    "132K or 2M")
                         .arg(shownText(*text)));
        return std::nullopt;
    }
    if (*offset >= file.size()) {
        task->findings.refuse(file.label(), QLatin1String(OffsetOption),
                              QStringLiteral("%1 is behind the end: the file has %2 bytes")
                                  .arg(*offset)
                                  .arg(file.size()));
        return std::nullopt;
    }
    return offset;
}
