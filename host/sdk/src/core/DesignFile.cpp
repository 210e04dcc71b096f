#include <DesignFile.h>

namespace OrvanticCore {

DesignFile::DesignFile(const QString& file_path, IDesign* design)
    : Qtilities::CoreGui::TreeFileItem(file_path), AbstractDesignLinkedItem(design)
{
}

DesignFile::~DesignFile() {}

void DesignFile::setCustomNode(const QString& node)
{
    if (d_custom_node == node || refusesChange(tr("the node")))
        return;
    d_custom_node = node;
    handleLinkChanged();
}

QString DesignFile::customNode() const { return d_custom_node; }

void DesignFile::handleLinkChanged() { emit itemChanged(); }

} // namespace OrvanticCore
