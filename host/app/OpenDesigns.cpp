#include "host/app/OpenDesigns.h"

#include "host/app/DesignHistory.h"
#include "host/app/DesignStorage.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QDir>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;

namespace {

/// Where the files of a new design go until its structure is edited.
DesignStructure* initialStructure()
{
    auto* const structure = new DesignStructure;
    for (const char* node : {"Source Files", "Bit-stream Files", "Other Files"})
        structure->rootNode()->addNode(node);
    for (const char* pattern : {"*.vhd", "*.v", "*.xdc"})
        structure->addFileAssociation(pattern, "Source Files");
    for (const char* pattern : {"*.bit", "*.bin"})
        structure->addFileAssociation(pattern, "Bit-stream Files");
    structure->setUnassignedFileAssociationsNode("Other Files");
    return structure;
}

} // namespace

OpenDesigns::OpenDesigns(QObject* parent) : QObject(parent) {}

OpenDesigns::~OpenDesigns() { qDeleteAll(m_designs); }

Design* OpenDesigns::designIn(const QString& folder) const
{
    const QString wanted = QDir(folder).canonicalPath();
    for (Design* design : m_designs) {
        if (!wanted.isEmpty() && QDir(design->workingFolderPath()).canonicalPath() == wanted)
            return design;
    }
    return nullptr;
}

Design* OpenDesigns::open(const QString& folder, QString* error)
{
    if (Design* const present = designIn(folder))
        return present;
    std::unique_ptr<Design> loaded = DesignStorage::load(folder, error);
    return loaded ? take(std::move(loaded)) : nullptr;
}

Design* OpenDesigns::reload(Design* design, QString* error)
{
    std::unique_ptr<Design> loaded = DesignStorage::load(design->workingFolderPath(), error);
    if (!loaded)
        return nullptr;
    close(design);
    return take(std::move(loaded));
}

Design* OpenDesigns::take(std::unique_ptr<Design> loaded)
{
    Design* const design = loaded.release();
    DesignHistory::attach(design);
    m_designs.append(design);
    DesignManager::instance()->addDesign(design);
    emit opened(design);
    return design;
}

Design* OpenDesigns::create(const QString& folder, const QString& typeName, int versionMajor,
                            int versionMinor, QString* error)
{
    if (DesignStorage::hasDescription(folder)) {
        *error = tr("There is a design in %1 already.").arg(QDir::toNativeSeparators(folder));
        return nullptr;
    }
    if (!QDir().mkpath(folder)) {
        *error = tr("Cannot make the folder %1.").arg(QDir::toNativeSeparators(folder));
        return nullptr;
    }
    Design design(folder, typeName);
    design.setVersion(versionMajor, versionMinor);
    design.setStructure(initialStructure());
    return DesignStorage::save(&design, error) ? open(folder, error) : nullptr;
}

void OpenDesigns::close(Design* design)
{
    if (!m_designs.contains(design))
        return;
    emit aboutToClose(design);
    m_designs.removeOne(design);
    delete design;
}
