#ifndef ORVANTICCORE_DESIGNFOLDER_H
#define ORVANTICCORE_DESIGNFOLDER_H

#include <OrvanticCore/AbstractDesignLinkedItem.h>
#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QtilitiesCoreGui/TreeNode.h>

namespace OrvanticCore {

/// A folder that belongs to a design with everything in it. Owned by the design.
class ORVANTICCORE_SHARED_EXPORT DesignFolder : public Qtilities::CoreGui::TreeNode,
                                                public AbstractDesignLinkedItem {
    Q_OBJECT

public:
    /// \p folder_path is absolute; its last part is the name.
    explicit DesignFolder(const QString& folder_path, IDesign* design = nullptr);
    ~DesignFolder() override;

    QString folderPath() const;

Q_SIGNALS:
    void itemChanged();

protected:
    void handleLinkChanged() override;

private:
    QString m_folderPath;
};

} // namespace OrvanticCore

#endif
