#include "host/app/image/FileState.h"

#include "fcf/FcfTarget.h"
#include "host/app/image/ImageFiles.h"
#include "host/app/image/ImageTarget.h"
#include "host/app/image/PageCheck.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;

namespace {

struct FileStateTexts {
    Q_DECLARE_TR_FUNCTIONS(FileState)
};

/// Whether the file has a header page. Any other text may have the suffix of a companion.
bool hasPage(const DesignFile& file)
{
    const QString suffix = file.suffix();
    if (suffix == "fcf")
        return true;
    return suffix == "txt" &&
           (file.isGenerated() || QFileInfo(ImageFiles::of(file.filePath()).image).isFile());
}

/// Whether the codes of \p header are those of \p target, as far as that is known. A device without
/// a code of its own may have any.
bool isFor(const FcfHeader& header, const ImageTarget& target)
{
    if (!target.module.isEmpty() && header.moduleCode != FcfTarget::moduleCode(target.module))
        return false;

    const qint32 device = FcfTarget::deviceCode(target.module, target.device, FcfTarget::NoCode);
    return target.device.isEmpty() || device == FcfTarget::NoCode || header.deviceCode == device;
}

QStringList targetDifferences(const FcfHeader& header, const Design& design)
{
    QStringList reasons;
    const ImageTarget wanted = ImageTarget::of(design);
    if (!isFor(header, wanted)) {
        const ImageTarget found = ImageTarget::of(header);
        reasons << FileStateTexts::tr("for %1 %2, the design is for %3 %4")
                       .arg(found.module, found.device, wanted.module, wanted.device);
    }
    if (wanted.slot != 0 && header.configNumber != wanted.slot)
        reasons << FileStateTexts::tr("slot %1, the design has %2")
                       .arg(header.configNumber)
                       .arg(wanted.slot);
    return reasons;
}

QStringList versionDifferences(const QString& made, const Design& design)
{
    if (made.isEmpty() || made == design.versionString("."))
        return QStringList();
    return {
        FileStateTexts::tr("version %1, the design has %2").arg(made, design.versionString("."))};
}

/// The source of a generated file is the binary of the same name in the same folder.
QStringList binaryDifferences(const QFileInfo& file, const FcfHeader* header)
{
    const QFileInfo binary(file.dir().filePath(file.completeBaseName() + ".bin"));
    if (!binary.exists() || binary == file)
        return QStringList();

    if (header && header->binFileSize != binary.size())
        return {FileStateTexts::tr("%1 has another size").arg(binary.fileName())};
    if (binary.lastModified() > file.lastModified())
        return {FileStateTexts::tr("%1 has changed since").arg(binary.fileName())};
    return QStringList();
}

} // namespace

FileState FileState::of(const DesignFile& file)
{
    FileState state;
    const QFileInfo info(file.filePath());
    const auto* const design = dynamic_cast<const Design*>(file.design());
    state.isGenerated = file.isGenerated();
    state.isMissing = !info.exists();
    state.isOutside = design && !file.filePath().startsWith(design->workingFolderPath() + '/');
    if (state.isMissing || !design)
        return state;

    if (hasPage(file)) {
        const PageCheck check = PageCheck::of(file.filePath());
        state.invalid = check.problem;
        if (!state.invalid.isEmpty())
            return state;

        const FcfHeader& header = check.header;
        const QString version = QString("%1.%2").arg(header.versionMajor).arg(header.versionMinor);
        state.outdated = versionDifferences(version, *design) + targetDifferences(header, *design) +
                         binaryDifferences(info, &header);
    } else if (state.isGenerated) {
        state.outdated = versionDifferences(file.versionAssociation(), *design) +
                         binaryDifferences(info, nullptr);
    }
    return state;
}

QStringList FileState::words() const
{
    QStringList words;
    if (!invalid.isEmpty())
        words << FileStateTexts::tr("Invalid");
    else if (isGenerated)
        words << FileStateTexts::tr("Generated");
    if (!outdated.isEmpty())
        words << FileStateTexts::tr("Outdated");
    if (isMissing)
        words << FileStateTexts::tr("Missing");
    if (isOutside)
        words << FileStateTexts::tr("External");
    return words;
}

QStringList FileState::linesOf(const Design& design)
{
    QStringList lines;
    for (const DesignFile* file : design.files()) {
        const FileState state = of(*file);
        if (!state.needsAttention())
            continue;

        QString line = file->fileName() + ": " + state.words().join(", ");
        const QString reason = state.outdated.join("; ") + state.invalid;
        if (!reason.isEmpty())
            line += " (" + reason + ')';
        lines << line;
    }
    return lines;
}
