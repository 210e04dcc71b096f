#include <AbstractDesignLinkedItem.h>

namespace OrvanticCore {

AbstractDesignLinkedItem::AbstractDesignLinkedItem(IDesign* design)
    : d_design(design), d_is_generated(false)
{
}

AbstractDesignLinkedItem::~AbstractDesignLinkedItem() {}

IDesign* AbstractDesignLinkedItem::design() const { return d_design; }

void AbstractDesignLinkedItem::setVersionAssociation(const QString& version)
{
    if (d_version_association == version)
        return;
    d_version_association = version;
    handleLinkChanged();
}

QString AbstractDesignLinkedItem::versionAssociation() const { return d_version_association; }

void AbstractDesignLinkedItem::setIsGenerated(bool generated)
{
    if (d_is_generated == generated)
        return;
    d_is_generated = generated;
    handleLinkChanged();
}

bool AbstractDesignLinkedItem::isGenerated() const { return d_is_generated; }

} // namespace OrvanticCore
