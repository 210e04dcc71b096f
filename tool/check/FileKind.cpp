#include "tool/check/FileKind.h"

#include "fcf/FcfLayout.h"
#include "tool/check/PayloadKind.h"
#include "tool/files/DigestList.h"
#include "tool/files/InputOpener.h"

namespace {

/// A companion has one header page, whose filler may go a few bytes beyond its nominal size.
constexpr qint64 LargestCompanion = qint64(2) * FcfLayout::PageBytes;
/// A digest has one line, which is no longer than a path can be.
constexpr qint64 LargestDigest = qint64(64) * 1024;

} // namespace

QString FileKind::nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Image:
        return "image";
    case Kind::Companion:
        return "companion";
    case Kind::Digest:
        return "digest";
    }
    Q_UNREACHABLE();
}

Result<bool> FileKind::isOfKind(const QString& path, Kind kind)
{
    const auto file = InputOpener(nullptr, nullptr).open(path, LargestDigest, QString());
    if (!file)
        return tl::unexpected<Finding>(file.error());

    const auto start = file->bytesAt(0, qMin(file->size(), LargestDigest));
    if (!start)
        return tl::unexpected<Finding>(start.error());

    switch (kind) {
    case Kind::Image:
        return PayloadKind::isImage(*start);
    case Kind::Companion:
        return PayloadKind::isImage(*start) && file->size() <= LargestCompanion;
    case Kind::Digest:
        return start->size() == file->size() && DigestList::isDigest(*start);
    }
    Q_UNREACHABLE();
}
