#include "tool/check/PayloadKind.h"

namespace {

/// How the device's own container for bitstreams begins: a field of 9 bytes, then key 'a'.
const QByteArray ContainerStart = QByteArray::fromHex("00090ff00ff00ff00ff0000001") + 'a';

struct SyncWord {
    const char* hex;
    const char* complaint;
};

constexpr SyncWord SyncWords[] = {
    {"aa995566", ""},
    {"665599aa", "the binary is byte-swapped: its sync word is 0x665599AA, not 0xAA995566"},
    {"5599aa66", "the binary is bit-swapped: its sync word is 0x5599AA66, not 0xAA995566"},
};

} // namespace

QString PayloadKind::complaint(const QByteArray& start)
{
    if (start.startsWith(ContainerStart))
        return QStringLiteral("the binary is a .bit container: strip its header first");

    const QByteArray lookedAt = start.left(LookedAtBytes);
    int first = -1;
    const char* complaint = nullptr;
    for (const SyncWord& word : SyncWords) {
        const int position = lookedAt.indexOf(QByteArray::fromHex(word.hex));
        if (position >= 0 && (first < 0 || position < first)) {
            first = position;
            complaint = word.complaint;
        }
    }
    return complaint
               ? QLatin1String(complaint)
               : QStringLiteral("the binary has no sync word 0xAA995566 in its first %1 bytes")
                     .arg(LookedAtBytes);
}
