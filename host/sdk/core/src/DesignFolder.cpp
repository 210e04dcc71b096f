#include <OrvanticCore/DesignFolder.h>

#include <QFileInfo>

namespace OrvanticCore {

DesignFolder::DesignFolder(const QString& folder_path, IDesign* design)
    : Qtilities::CoreGui::TreeNode(QFileInfo(folder_path).fileName()),
      AbstractDesignLinkedItem(design), m_folderPath(folder_path)
{
}

DesignFolder::~DesignFolder() {}

QString DesignFolder::folderPath() const { return m_folderPath; }

void DesignFolder::handleLinkChanged() { emit itemChanged(); }

} // namespace OrvanticCore
