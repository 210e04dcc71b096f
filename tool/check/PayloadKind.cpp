#include "tool/check/PayloadKind.h"

#include "fcf/FcfLayout.h"
#include "tool/check/BitContainer.h"
#include "tool/check/WordSwap.h"

#include <algorithm>

namespace {

const QByteArray SyncWord = QByteArray::fromHex("aa995566");

/// A wrong order of all words of a bitstream, and what undoes it.
struct WrongOrder {
    const char* complaint;
    const char* swap;
};

constexpr WrongOrder WrongOrders[] = {
    {"byte-swapped", "bytes"},
    {"bit-swapped", "bits"},
    {"halfword-swapped", "halfwords"},
    {"byte-swapped in each halfword", "bytes,halfwords"},
    {"bit-swapped and byte-swapped", "bits,bytes"},
    {"bit-swapped and halfword-swapped", "bits,halfwords"},
};

/// A boot image has a little-endian sync word at a fixed place behind its vectors, where a
/// byte-swapped bitstream has nothing but 0xFF before it.
constexpr int BootWordOffset = 0x20;
const QByteArray BootWord = QByteArray::fromHex("665599aa");

int countLeadingFiller(const QByteArray& bytes)
{
    const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c != '\xff'; });
    return static_cast<int>(end - bytes.begin());
}

bool isBootImage(const QByteArray& start)
{
    return countLeadingFiller(start) < BootWordOffset &&
           start.mid(BootWordOffset, BootWord.size()) == BootWord;
}

/// The sync word as it is in a binary of this order.
QByteArray syncWord(const WrongOrder& order)
{
    QByteArray word = SyncWord;
    WordSwap::swap(*WordSwap::swapsOf(order.swap), word.data(), word.size());
    return word;
}

QString complaintAbout(const WrongOrder& order)
{
    return QStringLiteral("the binary is %1: its sync word is 0x%2, not 0xAA995566; --swap %3 "
                          "repairs it")
        .arg(order.complaint, syncWord(order).toHex().toUpper(), order.swap);
}

QString noSyncWord(bool hasLeadingFiller)
{
    const QString place = hasLeadingFiller
                              ? QStringLiteral("the first %1 bytes behind its leading 0xFF")
                              : QStringLiteral("its first %1 bytes");
    return "the binary has no sync word 0xAA995566 in " + place.arg(PayloadKind::SearchedBytes);
}

} // namespace

bool PayloadKind::isImage(const QByteArray& start)
{
    const int reserved = FcfLayout::NumberCount * FcfLayout::WordBytes;
    const int reservedBytes = FcfLayout::ReservedWordCount * FcfLayout::WordBytes;
    return start.mid(reserved, reservedBytes) == QByteArray(reservedBytes, '\xff') &&
           start.mid(FcfLayout::PreambleBytes)
               .startsWith('\n' + QByteArray(FcfLayout::FirstLineKeyword));
}

QString PayloadKind::complaint(const QByteArray& start)
{
    if (BitContainer::isStartOf(start))
        return "the binary is a .bit container: strip its header first, as it is not "
               "whole";
    if (isBootImage(start))
        return QString();

    const int filler = countLeadingFiller(start);
    const QByteArray searched = start.mid(filler, SearchedBytes);
    int first = searched.indexOf(SyncWord);
    const WrongOrder* wrong = nullptr;
    for (const WrongOrder& order : WrongOrders) {
        const int position = searched.indexOf(syncWord(order));
        const bool isFirst = position >= 0 && (first < 0 || position < first);
        if (!isFirst)
            continue;

        first = position;
        wrong = &order;
    }

    if (wrong)
        return complaintAbout(*wrong);
    if (first < 0)
        return noSyncWord(filler > 0);
    return QString();
}
