#include "fcf/PelkFcfGeneratorFileInfo.h"

#include "fcf/FcfLayout.h"

#include <QFileInfo>

#include <cmath>

namespace {

int pagesInAll(int bytes)
{
    return static_cast<int>(std::ceil(static_cast<double>(bytes) / FcfLayout::PageBytes));
}

} // namespace

qint64 PelkFcfGeneratorFileInfo::getFileSize(const QString& path) const
{
    return QFileInfo(path).size();
}

int PelkFcfGeneratorFileInfo::pages(int bytes) const
{
    return pagesInAll(bytes) - FcfLayout::BlockPages * blocks(bytes);
}

int PelkFcfGeneratorFileInfo::blocks(int bytes) const
{
    const int pages = pagesInAll(bytes);
    return pages <= FcfLayout::BlockPages ? 0 : pages / FcfLayout::BlockPages;
}

FcfSizes PelkFcfGeneratorFileInfo::measure(qint64 binaryBytes) const
{
    FcfSizes sizes;
    sizes.binFileSize = static_cast<qint32>(binaryBytes);
    sizes.binPages = pages(sizes.binFileSize);
    sizes.binBlocks = blocks(sizes.binFileSize);

    sizes.totalSize = static_cast<qint32>(binaryBytes + FcfLayout::PageBytes);
    sizes.totalPages = pages(sizes.totalSize);
    sizes.totalBlocks = blocks(sizes.totalSize);
    return sizes;
}
