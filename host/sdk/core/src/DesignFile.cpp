#include <OrvanticCore/DesignFile.h>

namespace OrvanticCore {

DesignFile::DesignFile(const QString& file_path, IDesign* design)
    : Qtilities::CoreGui::TreeFileItem(file_path), AbstractDesignLinkedItem(design)
{
}

DesignFile::~DesignFile() {}

void DesignFile::setCustomNode(const QString& node)
{
    if (m_customNode == node || refusesChange(tr("the node")))
        return;
    m_customNode = node;
    handleLinkChanged();
}

QString DesignFile::customNode() const { return m_customNode; }

void DesignFile::handleLinkChanged() { emit itemChanged(); }

} // namespace OrvanticCore
