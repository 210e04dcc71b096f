#include "host/app/image/GeneratedFiles.h"

#include "host/app/common/FileProblem.h"
#include "host/app/common/HostLog.h"
#include "host/app/image/ImageTarget.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QCoreApplication>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignStructure;
using OrvanticCore::FileAssociation;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Logging::Logger;

namespace {

struct GeneratedFilesTexts {
    Q_DECLARE_TR_FUNCTIONS(GeneratedFiles)
};

/// The name of the node for bit-streams, or an empty text if the design has none.
QString bitStreamNode(const Design& design)
{
    const DesignStructure* const structure = design.structure();
    if (!structure)
        return QString();

    const FileAssociation* const association = structure->mapFileNameToAssociation("*.bit");
    const QString name =
        association ? association->designNode() : structure->unassignedFileAssociationsNode();
    const auto* const node = structure->designNodeWithName(name, true);
    return node ? node->getName() : QString();
}

/// The file at \p path, which is added if it is missing. Null if the design refuses it.
DesignFile* fileOf(Design* design, const QString& path)
{
    if (DesignFile* const present = design->fileAt(path))
        return present;

    QString error;
    DesignFile* const added = design->addFile(path, &error);
    if (!added)
        HostLog::add(Logger::Error,
                     GeneratedFilesTexts::tr("Cannot add %1").arg(fileProblem(path, error)));
    return added;
}

} // namespace

QList<DesignFile*> GeneratedFiles::note(Design* design, const QStringList& paths)
{
    const QString node = bitStreamNode(*design);
    QList<DesignFile*> files;
    design->tree()->startProcessingCycle();
    for (const QString& path : paths) {
        DesignFile* const file = fileOf(design, path);
        if (!file)
            continue;

        file->setVersionAssociation(design->versionString("."));
        file->setIsGenerated(true);
        if (!node.isEmpty())
            file->setCustomNode(node);
        files << file;
    }
    design->tree()->endProcessingCycle();
    return files;
}

void GeneratedFiles::noteTarget(Design* design, const ImageTarget& target)
{
    const QtilitiesCategory category("Pelk Radar Signal Processor");
    design->setDesignProperty(ImageTarget::ModuleProperty, target.module, category);
    design->setDesignProperty(ImageTarget::DeviceProperty, target.device, category);
    design->setDesignProperty(ImageTarget::SlotProperty, target.slot, category);
}
