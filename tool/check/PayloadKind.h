#ifndef TOOL_CHECK_PAYLOADKIND_H
#define TOOL_CHECK_PAYLOADKIND_H

#include "tool/check/WordSwap.h"

#include <QByteArray>
#include <QString>

#include <optional>

/// What a binary is, as far as its first bytes show.
namespace PayloadKind {

/// Bytes of a binary that are searched for a sync word behind the 0xFF that it may begin with, when
/// something else is where it should be.
constexpr int SearchedBytes = 4096;
/// Bytes of a binary that complaint() needs.
constexpr int StartBytes = 1024 * 1024;

/// What is wrong with a binary and what to do about it, and where in it, in bytes, or -1.
struct Complaint {
    QString reason;
    qint64 offset = -1;
};

/// Whether a file that begins with \p start has the header page of an FCF image.
bool isImage(const QByteArray& start);

/// How the words of an FCF image are swapped whose file begins with \p start, like "byte-swapped";
/// empty if that is none.
QString swapOfImage(const QByteArray& start);

/// What is wrong with a binary that begins with \p start after the swaps \p done: in front of its
/// sync word may be nothing but dummy words and bus width words, and its words must be in the right
/// order.
std::optional<Complaint> complaint(const QByteArray& start, const WordSwap::Swaps& done);

} // namespace PayloadKind

#endif
