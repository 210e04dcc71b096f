#ifndef ORVANTICCORE_ABSTRACTDESIGNLINKEDITEM_H
#define ORVANTICCORE_ABSTRACTDESIGNLINKEDITEM_H

#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QString>

namespace OrvanticCore {

class IDesign;

/// What belongs to a design, with what the design notes about it: in a locked or read-only design
/// that stays as it is, and each attempt to change it is logged.
class ORVANTICCORE_SHARED_EXPORT AbstractDesignLinkedItem {
public:
    virtual ~AbstractDesignLinkedItem();

    /// The design that the item belongs to, or null. It outlives the item.
    IDesign* design() const;

    /// The version of the design that the item was made for, as text; empty for any version.
    void setVersionAssociation(const QString& version);
    QString versionAssociation() const;

    /// Whether a tool made the item, and can make it again.
    void setIsGenerated(bool generated);
    bool isGenerated() const;

protected:
    explicit AbstractDesignLinkedItem(IDesign* design);

    /// Whether the design keeps \p what, for example "the version", as it is; then that is logged.
    bool refusesChange(const QString& what) const;

    /// Called after something noted about the item has changed.
    virtual void handleLinkChanged() = 0;

private:
    Q_DISABLE_COPY(AbstractDesignLinkedItem)

    IDesign* m_design;
    QString m_versionAssociation;
    bool m_isGenerated;
};

} // namespace OrvanticCore

#endif
