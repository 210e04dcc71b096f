#ifndef TOOL_CHECK_WORDSWAP_H
#define TOOL_CHECK_WORDSWAP_H

#include <QString>
#include <QVector>

#include <optional>

/// What development tools do to all words of a bitstream, and what undoes it.
namespace WordSwap {

/// Bits of each byte, or the bytes or the halfwords of each word of 32 bits.
enum class Swap { Bits, Bytes, Halfwords };
using Swaps = QVector<Swap>;

/// The swaps that \p names lists, like "bits" or "bits,bytes"; nothing for other names.
std::optional<Swaps> swapsOf(const QString& names);

/// The names of the swaps that do the same as \p swaps one after the other, with commas; empty if
/// they undo each other.
QString namesOf(const Swaps& swaps);

bool needsWholeWords(const Swaps& swaps);

/// Swaps in place, as far as there are whole words.
void swap(const Swaps& swaps, char* data, qint64 bytes);

} // namespace WordSwap

#endif
