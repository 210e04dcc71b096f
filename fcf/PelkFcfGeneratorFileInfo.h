#ifndef FCF_PELKFCFGENERATORFILEINFO_H
#define FCF_PELKFCFGENERATORFILEINFO_H

#include <QString>
#include <QtGlobal>

struct FcfHeader;

/// Sizes in the units of the flash. Stateless.
///
/// What fits in one block is given in pages alone, up to 64 of them; anything larger in whole
/// blocks and the 0 to 63 pages left over. A page begun counts as a whole one.
class PelkFcfGeneratorFileInfo {
public:
    /// Bytes of the file at \p path, or 0 when there is none.
    qint64 getFileSize(const QString& path) const;

    /// The pages of \p bytes that are left over after blocks().
    int pages(int bytes) const;

    /// The whole blocks of \p bytes; 0 up to and including one full block.
    int blocks(int bytes) const;

    /// Sets the six sizes of \p header for a binary of \p binaryBytes bytes. A size field has 32
    /// bits; what does not fit is cut off.
    void measure(qint64 binaryBytes, FcfHeader* header) const;
};

#endif
