#include "design/DesignModelFiles.h"

#include "support/TestFile.h"

#include <QtilitiesCoreGui/TreeNode.h>

#include <QDataStream>
#include <QDir>

using OrvanticCore::DesignStructure;
using Qtilities::CoreGui::TreeNode;

namespace {

QByteArray preamble(const PageNumbers& page)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << page.totalPages << page.totalBlocks << page.totalSize << page.binPages
           << page.binBlocks << page.binFileSize << page.module << page.device << page.config
           << page.major << page.minor;
    return bytes + QByteArray(20, '\xff') + '\n';
}

QByteArray companion()
{
    return preamble(PageNumbers::ofCompanion()) +
           "Filename: of file.fcf\nCI No: CI of file\nAuthor: Author of file\nDate: 1/2/03\n"
           "Time: 04:05:06\nDescription: First of file\nSecond of file\n---\n"
           "Function name: filter\nFunction author: A\nFunction CI No: 7\n"
           "Function description: of filter\n---\n"
           "Function name: mixer\nFunction author: B\nFunction CI No: 8\n"
           "Function description: of mixer\n---\n----\n";
}

} // namespace

QList<ModelFile> makeModelFiles(const QString& folder)
{
    QList<ModelFile> made;
    QDir(folder).mkdir(QLatin1String("of.bin"));
    QDir(folder).mkdir(QLatin1String("of.txt"));
    const struct {
        const char* name;
        ModelFile::Kind kind;
        int bytes;
    } files[] = {
        {"top.bin", ModelFile::Binary, 5000},       {"wide.bin", ModelFile::Binary, 141505},
        {"build.txt", ModelFile::Companion, 0},     {"notes.txt", ModelFile::Foreign, 0},
        {"gone.txt", ModelFile::Missing, 0},        {"gone.bin", ModelFile::Missing, 0},
        {"of.bin/in.bin", ModelFile::Binary, 2113}, {"of.txt/in.txt", ModelFile::Companion, 0},
        {"top.rev.bin", ModelFile::Binary, 2112},   {"TOP.BIN", ModelFile::Binary, 135169},
        {"bin", ModelFile::Binary, 270336},         {"top.Txt", ModelFile::Foreign, 0},
        {"image.fcf", ModelFile::Foreign, 0}};
    for (const auto& file : files) {
        ModelFile added = {folder + QLatin1Char('/') + QLatin1String(file.name), file.kind,
                           file.bytes};
        QByteArray bytes = file.kind == ModelFile::Companion
                               ? companion()
                               : preamble(PageNumbers::ofForeignFile()) + "Nothing to read\n";
        if (file.kind == ModelFile::Binary)
            bytes += QByteArray(file.bytes - bytes.size(), 'x');
        if (file.kind != ModelFile::Missing) {
            TestFile::write(added.path, bytes);
            added.bytes = bytes.size();
        }
        made << added;
    }
    return made;
}

DesignStructure* newStructure(int kind)
{
    DesignStructure* const structure = new DesignStructure;
    TreeNode* const outer = structure->rootNode()->addNode(QLatin1String("Outer"));
    outer->addNode(QLatin1String("Bits"));
    structure->rootNode()->addNode(QLatin1String("Bins"));
    outer->addNode(QLatin1String("Others"))->addNode(QLatin1String("All"));
    structure->addFileAssociation(QLatin1String("*.bin"), QLatin1String("Bins"));
    structure->addFileAssociation(QLatin1String("*.fcf"), QLatin1String("Outer"));
    structure->setUnassignedFileAssociationsNode(QLatin1String(kind == 4   ? "Nowhere"
                                                               : kind == 5 ? ""
                                                                           : "Others"));
    if (kind == 2 || kind == 3)
        structure->addFileAssociation(QLatin1String("*"), QLatin1String("All"));
    if (kind == 1 || kind == 2)
        structure->addFileAssociation(QLatin1String("*.bit"), QLatin1String("Bits"));
    if (kind == 6)
        structure->addFileAssociation(QLatin1String("*.bit"), QLatin1String("Nowhere"));
    if (kind == 8)
        structure->addFileAssociation(QLatin1String("*.bit"), QString());
    return structure;
}

QString nodeOfStructure(int kind)
{
    const char* const nodes[] = {nullptr, "Bits",  "Bits",   "All",  nullptr,
                                 nullptr, nullptr, "Others", nullptr};
    return nodes[kind] ? QString::fromLatin1(nodes[kind]) : QString();
}
