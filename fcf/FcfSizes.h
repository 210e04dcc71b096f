#ifndef FCF_FCFSIZES_H
#define FCF_FCFSIZES_H

#include <QtGlobal>

/// The six sizes of a header: those of its payload, and those of header and payload together. A
/// plain value.
struct FcfSizes {
    qint32 totalPages = 0;
    qint32 totalBlocks = 0;
    qint32 totalSize = 0;
    qint32 binPages = 0;
    qint32 binBlocks = 0;
    qint32 binFileSize = 0;
};

#endif
