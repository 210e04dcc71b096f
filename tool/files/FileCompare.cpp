#include "tool/files/FileCompare.h"

#include "tool/files/InputFile.h"

#include <algorithm>
#include <numeric>

namespace {

/// Counts the bytes that differ in two parts of the same length.
qint64 countDifferences(const QByteArray& one, const QByteArray& other)
{
    return std::inner_product(one.begin(), one.end(), other.begin(), qint64(0), std::plus<>(),
                              std::not_equal_to<>());
}

/// Adds to \p difference what \p found, from \p offset on, has other than \p expected.
void addPart(const QByteArray& found, const QByteArray& expected, qint64 offset,
             FileCompare::Difference* difference)
{
    if (found == expected)
        return;

    if (difference->count == 0) {
        const int first = FileCompare::firstDifference(found, expected);
        difference->offset = offset + first;
        difference->expected = FileCompare::byteAt(expected, first);
        difference->found = FileCompare::byteAt(found, first);
    }
    difference->count += countDifferences(found, expected);
}

} // namespace

Result<FileCompare::Difference> FileCompare::compare(const Region& region, const Region& model,
                                                     const CopyObserver& observe)
{
    Region common = region;
    common.bytes = qMin(region.bytes, model.bytes);

    Difference difference;
    qint64 done = 0;
    const Status read = readParts(common, [&](const char* data, qint64 count) -> Status {
        const auto expected = model.bytesAt(done, count);
        if (!expected)
            return tl::unexpected<Finding>(expected.error());
        if (expected->size() < count)
            return model.file->notRead("it ends early");

        const QByteArray found = QByteArray::fromRawData(data, static_cast<int>(count));
        addPart(found, *expected, done, &difference);
        done += count;
        observe(data, count);
        return {};
    });
    if (!read)
        return tl::unexpected<Finding>(read.error());

    return difference;
}

int FileCompare::firstDifference(const QByteArray& one, const QByteArray& other)
{
    const auto [place, otherPlace] =
        std::mismatch(one.begin(), one.end(), other.begin(), other.end());
    return static_cast<int>(place - one.begin());
}

QString FileCompare::byteAt(const QByteArray& bytes, int index)
{
    if (index >= bytes.size())
        return "the end";
    return QStringLiteral("0x%1").arg(static_cast<uchar>(bytes.at(index)), 2, 16, QLatin1Char('0'));
}
