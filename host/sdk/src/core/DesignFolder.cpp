#include <DesignFolder.h>

#include <QFileInfo>

namespace OrvanticCore {

DesignFolder::DesignFolder(const QString& folder_path, IDesign* design)
    : Qtilities::CoreGui::TreeNode(QFileInfo(folder_path).fileName()),
      AbstractDesignLinkedItem(design), d_folder_path(folder_path)
{
}

DesignFolder::~DesignFolder() {}

QString DesignFolder::folderPath() const { return d_folder_path; }

void DesignFolder::handleLinkChanged() { emit itemChanged(); }

} // namespace OrvanticCore
