#ifndef TOOL_CHECK_PAYLOADKIND_H
#define TOOL_CHECK_PAYLOADKIND_H

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/// What a binary is, as far as its first bytes show.
namespace PayloadKind {

/// Bytes of a binary that are looked at behind the 0xFF that it may begin with. A bitstream's sync
/// word comes after a few dummy words.
constexpr int LookedAtBytes = 4096;
/// Bytes of a binary that complaint() needs to see.
constexpr int StartBytes = 1024 * 1024;

/// Whether a file that begins with \p start has the header page of an FCF image.
bool isImage(const QByteArray& start);

/// The header of the container that development tools write bitstreams in.
struct Container {
    QString design;
    QString part;
    QString date;
    QString time;
    qint64 headerBytes = 0;
    qint64 payloadBytes = 0;
};

/// The container at the beginning of \p start, if there is one and it is whole.
std::optional<Container> container(const QByteArray& start);

/// Bits of each byte, or the bytes or the halfwords of each word of 32 bits.
enum class Swap { Bits, Bytes, Halfwords };
using Swaps = QVector<Swap>;

/// As in "bits" or "bits,bytes"; nothing for other names.
std::optional<Swaps> swapsOf(const QString& names);

bool needsWholeWords(const Swaps& swaps);

/// Swaps in place, as far as there are whole words.
void swap(const Swaps& swaps, char* data, qint64 bytes);

/// What is wrong with a binary that begins with \p start, or an empty text if its sync word is
/// where it should be.
QString complaint(const QByteArray& start);

} // namespace PayloadKind

#endif
