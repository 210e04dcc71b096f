#ifndef ORVANTICCORE_DESIGNFILE_H
#define ORVANTICCORE_DESIGNFILE_H

#include <OrvanticCore/AbstractDesignLinkedItem.h>
#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QtilitiesCoreGui/TreeFileItem.h>

namespace OrvanticCore {

/// A file of a design, which may have vanished from the disk. It signals itemChanged() when what
/// the design notes about it has changed. Owned by the design.
class ORVANTICCORE_SHARED_EXPORT DesignFile : public Qtilities::CoreGui::TreeFileItem,
                                              public AbstractDesignLinkedItem {
    Q_OBJECT

public:
    /// \p file_path is absolute.
    explicit DesignFile(const QString& file_path, IDesign* design = nullptr);
    ~DesignFile() override;

    /// The name of the node under which the file is shown in place of the one that the design's
    /// structure has for it; empty for that one.
    void setCustomNode(const QString& node);
    QString customNode() const;

Q_SIGNALS:
    void itemChanged();

protected:
    void handleLinkChanged() override;

private:
    QString m_customNode;
};

} // namespace OrvanticCore

#endif
