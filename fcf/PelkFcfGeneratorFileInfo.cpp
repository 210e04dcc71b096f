#include "fcf/PelkFcfGeneratorFileInfo.h"

#include "fcf/FcfHeader.h"
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

void PelkFcfGeneratorFileInfo::measure(qint64 binaryBytes, FcfHeader* header) const
{
    header->binFileSize = static_cast<qint32>(binaryBytes);
    header->binPages = pages(header->binFileSize);
    header->binBlocks = blocks(header->binFileSize);
    header->totalSize = static_cast<qint32>(binaryBytes + FcfLayout::PageBytes);
    header->totalPages = pages(header->totalSize);
    header->totalBlocks = blocks(header->totalSize);
}
