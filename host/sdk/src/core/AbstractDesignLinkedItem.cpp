#include <AbstractDesignLinkedItem.h>

#include <Design.h>

#include <QtilitiesCoreGui/AbstractTreeItem.h>

#include <QCoreApplication>

namespace OrvanticCore {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("AbstractDesignLinkedItem", text);
}

} // namespace

AbstractDesignLinkedItem::AbstractDesignLinkedItem(IDesign* design)
    : d_design(design), d_is_generated(false)
{
}

AbstractDesignLinkedItem::~AbstractDesignLinkedItem() {}

IDesign* AbstractDesignLinkedItem::design() const { return d_design; }

void AbstractDesignLinkedItem::setVersionAssociation(const QString& version)
{
    if (d_version_association == version || refusesChange(tr("the version")))
        return;
    d_version_association = version;
    handleLinkChanged();
}

QString AbstractDesignLinkedItem::versionAssociation() const { return d_version_association; }

void AbstractDesignLinkedItem::setIsGenerated(bool generated)
{
    if (d_is_generated == generated || refusesChange(tr("the generated mark")))
        return;
    d_is_generated = generated;
    handleLinkChanged();
}

bool AbstractDesignLinkedItem::isGenerated() const { return d_is_generated; }

bool AbstractDesignLinkedItem::refusesChange(const QString& what) const
{
    const Design* const owner = dynamic_cast<const Design*>(d_design);
    if (!owner)
        return false;
    const Qtilities::CoreGui::AbstractTreeItem* const item =
        dynamic_cast<const Qtilities::CoreGui::AbstractTreeItem*>(this);
    return owner->refusesChange(tr("%1 of \"%2\"").arg(what, item ? item->getName() : QString()));
}

} // namespace OrvanticCore
