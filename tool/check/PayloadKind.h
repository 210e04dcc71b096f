#ifndef TOOL_CHECK_PAYLOADKIND_H
#define TOOL_CHECK_PAYLOADKIND_H

#include <QByteArray>
#include <QString>

/// What a binary is, as far as its first bytes tell.
namespace PayloadKind {

/// Bytes of a binary that are looked at. A bitstream's sync word comes after a few dummy words.
constexpr int LookedAtBytes = 4096;

/// What is wrong with a binary that begins with \p start, or an empty text if its sync word is
/// where it should be.
QString complaint(const QByteArray& start);

} // namespace PayloadKind

#endif
