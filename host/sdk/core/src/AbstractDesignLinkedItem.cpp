#include <OrvanticCore/AbstractDesignLinkedItem.h>

#include <OrvanticCore/Design.h>

#include <QtilitiesCoreGui/AbstractTreeItem.h>

#include <QCoreApplication>

namespace OrvanticCore {

namespace {

QString tr(const char* text)
{
    return QCoreApplication::translate("OrvanticCore::AbstractDesignLinkedItem", text);
}

} // namespace

AbstractDesignLinkedItem::AbstractDesignLinkedItem(IDesign* design)
    : m_design(design), m_isGenerated(false)
{
}

AbstractDesignLinkedItem::~AbstractDesignLinkedItem() {}

IDesign* AbstractDesignLinkedItem::design() const { return m_design; }

void AbstractDesignLinkedItem::setVersionAssociation(const QString& version)
{
    if (m_versionAssociation == version || refusesChange(tr("the version")))
        return;
    m_versionAssociation = version;
    handleLinkChanged();
}

QString AbstractDesignLinkedItem::versionAssociation() const { return m_versionAssociation; }

void AbstractDesignLinkedItem::setIsGenerated(bool generated)
{
    if (m_isGenerated == generated || refusesChange(tr("the generated mark")))
        return;
    m_isGenerated = generated;
    handleLinkChanged();
}

bool AbstractDesignLinkedItem::isGenerated() const { return m_isGenerated; }

bool AbstractDesignLinkedItem::refusesChange(const QString& what) const
{
    const Design* const owner = dynamic_cast<const Design*>(m_design);
    if (!owner)
        return false;
    const Qtilities::CoreGui::AbstractTreeItem* const item =
        dynamic_cast<const Qtilities::CoreGui::AbstractTreeItem*>(this);
    return owner->refusesChange(tr("%1 of \"%2\"").arg(what, item ? item->getName() : QString()));
}

} // namespace OrvanticCore
