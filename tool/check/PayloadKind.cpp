#include "tool/check/PayloadKind.h"

#include "fcf/FcfLayout.h"

#include <algorithm>

namespace {

/// How the device's own container for bitstreams begins: a field of 9 bytes, then key 'a'.
const QByteArray ContainerStart = QByteArray::fromHex("00090ff00ff00ff00ff0000001") + 'a';

const QByteArray SyncWord = QByteArray::fromHex("aa995566");

/// What development tools do to all words of a bitstream, and what undoes it.
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

const QVector<QPair<QString, PayloadKind::Swap>> SwapNames = {
    {"bits", PayloadKind::Swap::Bits},
    {"bytes", PayloadKind::Swap::Bytes},
    {"halfwords", PayloadKind::Swap::Halfwords}};

/// The unsigned big-endian number of \p bytes bytes at \p offset, or -1.
qint64 numberAt(const QByteArray& data, int offset, int bytes)
{
    if (offset + bytes > data.size())
        return -1;
    qint64 number = 0;
    for (int index = 0; index < bytes; ++index)
        number = number * 256 + static_cast<uchar>(data.at(offset + index));
    return number;
}

void reverseBits(char* data, qint64 bytes)
{
    for (qint64 index = 0; index < bytes; ++index) {
        const auto byte = static_cast<uchar>(data[index]);
        uint reversed = 0;
        for (uint bit = 0; bit < 8; ++bit)
            reversed |= ((byte >> bit) & 1u) << (7 - bit);
        data[index] = static_cast<char>(reversed);
    }
}

int leadingFiller(const QByteArray& bytes)
{
    const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c != '\xff'; });
    return static_cast<int>(end - bytes.begin());
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
    if (start.startsWith(ContainerStart))
        return "the binary is a .bit container: strip its header first, as it is not "
               "whole";
    const int filler = leadingFiller(start);
    if (filler < BootWordOffset && start.mid(BootWordOffset, BootWord.size()) == BootWord)
        return QString();

    const QByteArray lookedAt = start.mid(filler, LookedAtBytes);
    int first = lookedAt.indexOf(SyncWord);
    QString wrong;
    for (const WrongOrder& order : WrongOrders) {
        QByteArray word = SyncWord;
        swap(*swapsOf(order.swap), word.data(), word.size());
        const int position = lookedAt.indexOf(word);
        if (position < 0 || (first >= 0 && position >= first))
            continue;
        first = position;
        wrong = QStringLiteral("the binary is %1: its sync word is 0x%2, not 0xAA995566; --swap %3 "
                               "repairs it")
                    .arg(order.complaint, word.toHex().toUpper(), order.swap);
    }
    if (!wrong.isEmpty())
        return wrong;
    if (first >= 0)
        return QString();
    return filler > 0
               ? QStringLiteral("the binary has no sync word 0xAA995566 in the first %1 bytes "
                                "behind its leading 0xFF")
                     .arg(LookedAtBytes)
               : QStringLiteral("the binary has no sync word 0xAA995566 in its first %1 bytes")
                     .arg(LookedAtBytes);
}

std::optional<PayloadKind::Container> PayloadKind::container(const QByteArray& start)
{
    if (!start.startsWith(ContainerStart))
        return std::nullopt;
    Container found;
    int offset = ContainerStart.size() - 1;
    QString* const texts[] = {&found.design, &found.part, &found.date, &found.time};
    for (int index = 0; index < 4; ++index) {
        const qint64 bytes = numberAt(start, offset + 1, 2);
        if (numberAt(start, offset, 1) != 'a' + index || bytes < 0 ||
            offset + 3 + bytes > start.size())
            return std::nullopt;
        const QByteArray text = start.mid(offset + 3, static_cast<int>(bytes));
        *texts[index] = QString::fromLatin1(text.left(text.indexOf('\0')));
        offset += 3 + static_cast<int>(bytes);
    }
    found.payloadBytes = numberAt(start, offset + 1, 4);
    found.headerBytes = offset + 5;
    const bool isWhole = numberAt(start, offset, 1) == 'e' && found.payloadBytes >= 0;
    return isWhole ? std::optional<Container>(found) : std::nullopt;
}

std::optional<PayloadKind::Swaps> PayloadKind::swapsOf(const QString& names)
{
    Swaps swaps;
    for (const QString& name : names.split(QLatin1Char(','))) {
        const auto known = std::find_if(SwapNames.begin(), SwapNames.end(),
                                        [&name](const auto& pair) { return pair.first == name; });
        if (known == SwapNames.end())
            return std::nullopt;
        swaps << known->second;
    }
    return swaps;
}

bool PayloadKind::needsWholeWords(const Swaps& swaps)
{
    return swaps.contains(Swap::Bytes) || swaps.contains(Swap::Halfwords);
}

void PayloadKind::swap(const Swaps& swaps, char* data, qint64 bytes)
{
    for (const Swap kind : swaps) {
        if (kind == Swap::Bits)
            reverseBits(data, bytes);
        for (char* word = data; kind != Swap::Bits && word + 4 <= data + bytes; word += 4) {
            const bool isBytes = kind == Swap::Bytes;
            std::swap(word[0], word[isBytes ? 3 : 2]);
            std::swap(word[1], word[isBytes ? 2 : 3]);
        }
    }
}
