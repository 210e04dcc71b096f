#ifndef TOOL_CHECK_PAYLOADKIND_H
#define TOOL_CHECK_PAYLOADKIND_H

#include <QByteArray>
#include <QString>

/// What a binary is, as far as its first bytes show.
namespace PayloadKind {

/// Bytes of a binary that are searched behind the 0xFF that it may begin with. A bitstream's sync
/// word comes after a few dummy words.
constexpr int SearchedBytes = 4096;
/// Bytes of a binary that complaint() needs.
constexpr int StartBytes = 1024 * 1024;

/// Whether a file that begins with \p start has the header page of an FCF image.
bool isImage(const QByteArray& start);

/// What is wrong with a binary that begins with \p start, or an empty text if its sync word is
/// where it should be.
QString complaint(const QByteArray& start);

} // namespace PayloadKind

#endif
