#include "tool/check/WordSwap.h"

#include "fcf/FcfLayout.h"

#include <QPair>
#include <QStringList>

#include <algorithm>

namespace {

constexpr uint ByteBits = 8;

const QVector<QPair<QString, WordSwap::Swap>> SwapNames = {
    {"bits", WordSwap::Swap::Bits},
    {"bytes", WordSwap::Swap::Bytes},
    {"halfwords", WordSwap::Swap::Halfwords}};

void reverseBits(char* data, qint64 bytes)
{
    for (qint64 index = 0; index < bytes; ++index) {
        const auto byte = static_cast<uchar>(data[index]);
        uint reversed = 0;
        for (uint bit = 0; bit < ByteBits; ++bit)
            reversed |= ((byte >> bit) & 1u) << (ByteBits - 1 - bit);
        data[index] = static_cast<char>(reversed);
    }
}

void reverseBytes(char* word)
{
    std::swap(word[0], word[3]);
    std::swap(word[1], word[2]);
}

void swapHalfwords(char* word)
{
    std::swap(word[0], word[2]);
    std::swap(word[1], word[3]);
}

void forEachWord(char* data, qint64 bytes, void (*change)(char* word))
{
    const char* const end = data + bytes - bytes % FcfLayout::WordBytes;
    for (char* word = data; word < end; word += FcfLayout::WordBytes)
        change(word);
}

} // namespace

std::optional<WordSwap::Swaps> WordSwap::swapsOf(const QString& names)
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

QString WordSwap::namesOf(const Swaps& swaps)
{
    // Each undoes itself, and their order does not matter.
    QStringList names;
    for (const auto& [name, swap] : SwapNames) {
        if (swaps.count(swap) % 2 == 1)
            names << name;
    }
    return names.join(QLatin1Char(','));
}

bool WordSwap::needsWholeWords(const Swaps& swaps)
{
    return swaps.contains(Swap::Bytes) || swaps.contains(Swap::Halfwords);
}

void WordSwap::swap(const Swaps& swaps, char* data, qint64 bytes)
{
    for (const Swap kind : swaps) {
        switch (kind) {
        case Swap::Bits:
            reverseBits(data, bytes);
            break;
        case Swap::Bytes:
            forEachWord(data, bytes, &reverseBytes);
            break;
        case Swap::Halfwords:
            forEachWord(data, bytes, &swapHalfwords);
            break;
        }
    }
}
