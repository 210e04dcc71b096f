#include "tool/check/PayloadKind.h"

#include "fcf/FcfLayout.h"

#include <QStringList>
#include <QVector>

#include <algorithm>
#include <iterator>

namespace {

const QByteArray SyncWord = QByteArray::fromHex("aa995566");
/// A configuration has no other words in front of its sync word: dummies, and two from which a
/// device finds the width of its bus.
const QByteArray LeadingWords[] = {QByteArray::fromHex("ffffffff"), QByteArray::fromHex("000000bb"),
                                   QByteArray::fromHex("11220044")};

/// An order of all words of a bitstream, and what undoes it.
struct Order {
    /// Empty for the right one.
    const char* complaint;
    const char* swap;
};

/// The right one is the first.
constexpr Order Orders[] = {
    {"", ""},
    {"byte-swapped", "bytes"},
    {"bit-swapped", "bits"},
    {"halfword-swapped", "halfwords"},
    {"byte-swapped in each halfword", "bytes,halfwords"},
    {"bit-swapped and byte-swapped", "bits,bytes"},
    {"bit-swapped and halfword-swapped", "bits,halfwords"},
    {"bit-swapped and byte-swapped in each halfword", "bits,bytes,halfwords"},
};

/// A boot image has these bytes at a fixed place behind its vectors. They begin like the sync word
/// of a byte-swapped bitstream.
constexpr int BootMarkOffset = 0x20;
const QByteArray BootMark = QByteArray::fromHex("665599aa") + "XNLX";

bool isRight(const Order& order) { return *order.swap == '\0'; }

/// \p word of a right binary as it is in a binary of this order.
QByteArray swapped(QByteArray word, const Order& order)
{
    if (!isRight(order))
        WordSwap::swap(*WordSwap::swapsOf(order.swap), word.data(), word.size());
    return word;
}

int countLeadingFiller(const QByteArray& bytes)
{
    const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c != '\xff'; });
    return static_cast<int>(end - bytes.begin());
}

/// How many of the first bytes of \p start are words that a configuration of this order has in
/// front of its sync word.
int leadingBytes(const QByteArray& start, const Order& order)
{
    QVector<QByteArray> leading;
    for (const QByteArray& word : LeadingWords)
        leading << swapped(word, order);

    // Dummy words are the same in every order.
    int bytes = countLeadingFiller(start) / FcfLayout::WordBytes * FcfLayout::WordBytes;
    while (leading.contains(start.mid(bytes, FcfLayout::WordBytes)))
        bytes += FcfLayout::WordBytes;
    return bytes;
}

/// A sync word in a binary.
struct Sync {
    const Order* order;
    int offset;
    /// The first byte that no configuration has in front of it, if there is one.
    std::optional<int> foreign;
};

/// The sync word that is where a configuration has it.
std::optional<Sync> syncInPlace(const QByteArray& start)
{
    for (const Order& order : Orders) {
        const int offset = leadingBytes(start, order);
        if (start.mid(offset, SyncWord.size()) == swapped(SyncWord, order))
            return Sync{&order, offset, std::nullopt};
    }
    return std::nullopt;
}

/// The first sync word behind something else.
std::optional<Sync> syncElsewhere(const QByteArray& start)
{
    const int filler = countLeadingFiller(start);
    const QByteArray searched = start.mid(filler, PayloadKind::SearchedBytes);
    std::optional<Sync> first;
    for (const Order& order : Orders) {
        const int position = static_cast<int>(searched.indexOf(swapped(SyncWord, order)));
        const bool isFirst = position >= 0 && (!first || filler + position < first->offset);
        if (isFirst)
            first = Sync{&order, filler + position, leadingBytes(start, order)};
    }
    return first;
}

PayloadKind::Complaint noSyncWord(const QByteArray& start)
{
    const int filler = countLeadingFiller(start);
    if (filler == start.size())
        return {"the binary is erased flash, 0xFF from its start: give the .bin or .bit file of a "
                "configuration"};

    const QString place = filler > 0 ? QStringLiteral("the first %1 bytes behind its leading 0xFF")
                                     : QStringLiteral("its first %1 bytes");
    return {
        QStringLiteral("the binary has no sync word 0xAA995566 in %1: give the .bin or .bit file "
                       "of a configuration")
            .arg(place.arg(PayloadKind::SearchedBytes))};
}

/// How a binary of this order is repaired on which \p done was done already.
QString repair(const Order& order, const WordSwap::Swaps& done)
{
    const QString swap = WordSwap::namesOf(done + *WordSwap::swapsOf(order.swap));
    return swap.isEmpty() ? QString("leave out --swap")
                          : QStringLiteral("--swap %1 repairs it").arg(swap);
}

/// What is wrong with the order of the words, and with what is in front of them.
std::optional<PayloadKind::Complaint> complaintAbout(const Sync& sync, const WordSwap::Swaps& done)
{
    QStringList flaws;
    if (!isRight(*sync.order))
        flaws << QStringLiteral("the binary is %1: its sync word is 0x%2, not 0xAA995566; %3")
                     .arg(sync.order->complaint, swapped(SyncWord, *sync.order).toHex().toUpper(),
                          repair(*sync.order, done));
    if (sync.foreign)
        flaws << QStringLiteral("something else is in front of the configuration, whose sync word "
                                "is at offset %1: take it off, or give the .bin or .bit file as "
                                "it was built")
                     .arg(sync.offset);
    if (flaws.isEmpty())
        return std::nullopt;

    return PayloadKind::Complaint{flaws.join("; "), sync.foreign.value_or(sync.offset)};
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

QString PayloadKind::swapOfImage(const QByteArray& start)
{
    const QByteArray first = start.left(FcfLayout::PageBytes);
    for (const Order& order : Orders) {
        if (!isRight(order) && isImage(swapped(first, order)))
            return order.complaint;
    }
    return QString();
}

std::optional<PayloadKind::Complaint> PayloadKind::complaint(const QByteArray& start,
                                                             const WordSwap::Swaps& done)
{
    if (start.mid(BootMarkOffset, BootMark.size()) == BootMark)
        return std::nullopt;

    std::optional<Sync> sync = syncInPlace(start);
    if (!sync)
        sync = syncElsewhere(start);
    return sync ? complaintAbout(*sync, done) : noSyncWord(start);
}
