#ifndef FCF_PELKFCFGENERATORFILEINFO_H
#define FCF_PELKFCFGENERATORFILEINFO_H

#include "fcf/FcfSizes.h"

#include <QString>
#include <QtGlobal>

/// Sizes in the units of the flash. Stateless.
///
/// A size of up to one block is given in pages alone, up to 64 of them; a larger one in whole
/// blocks and the 0 to 63 pages left over. A page begun counts as a whole one.
class PelkFcfGeneratorFileInfo {
public:
    /// Bytes of the file at \p path, or 0 when there is none.
    qint64 getFileSize(const QString& path) const;

    /// The pages of \p bytes that are left over after blocks().
    int pages(int bytes) const;

    /// The whole blocks of \p bytes; 0 up to and including one full block.
    int blocks(int bytes) const;

    /// The sizes of a header whose payload has \p binaryBytes bytes. Each has 32 bits; what does
    /// not fit is cut off.
    FcfSizes measure(qint64 binaryBytes) const;
};

#endif
