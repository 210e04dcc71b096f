#ifndef ORVANTICCORE_IDESIGNVIEWEXTENSIONS_H
#define ORVANTICCORE_IDESIGNVIEWEXTENSIONS_H

#include <QIcon>
#include <QList>
#include <QString>
#include <QStringList>
#include <QtPlugin>
#include <QVariant>

class QAction;
class QMenu;

namespace Qtilities {
namespace CoreGui {
class TreeFileItem;
class TreeNode;
} // namespace CoreGui
} // namespace Qtilities

namespace OrvanticCore {

class AbstractDesignLinkedItem;
class IDesign;

namespace Interfaces {

/// Adds to the host's views of designs. Every operation has a default that adds nothing.
///
/// Life cycle: registered in the object pool, where views find it by its identifier each time they
/// need it. The object, and the actions and menus that it returns, stay its maker's: a view shows
/// them and never deletes them. \p context is the object name of the view that asks. GUI thread
/// only.
class IDesignViewExtensions {
public:
    IDesignViewExtensions() {}
    virtual ~IDesignViewExtensions() {}

    /// For the context menu and the tool bar of one file. An action is triggered while its item is
    /// still the one asked for last.
    virtual QList<QAction*> contextMenuActions(Qtilities::CoreGui::TreeFileItem* item,
                                               const QString& context)
    {
        Q_UNUSED(item)
        Q_UNUSED(context)
        return QList<QAction*>();
    }
    virtual QList<QMenu*> contextMenus(Qtilities::CoreGui::TreeFileItem* item,
                                       const QString& context)
    {
        Q_UNUSED(item)
        Q_UNUSED(context)
        return QList<QMenu*>();
    }
    virtual QList<QAction*> toolBarActions(Qtilities::CoreGui::TreeFileItem* item,
                                           const QString& context)
    {
        Q_UNUSED(item)
        Q_UNUSED(context)
        return QList<QAction*>();
    }
    virtual QList<QMenu*> toolBarMenus(Qtilities::CoreGui::TreeFileItem* item,
                                       const QString& context)
    {
        Q_UNUSED(item)
        Q_UNUSED(context)
        return QList<QMenu*>();
    }

    /// The same for a whole design.
    virtual QList<QAction*> designContextMenuActions(IDesign* design, const QString& context)
    {
        Q_UNUSED(design)
        Q_UNUSED(context)
        return QList<QAction*>();
    }
    virtual QList<QMenu*> designContextMenus(IDesign* design, const QString& context)
    {
        Q_UNUSED(design)
        Q_UNUSED(context)
        return QList<QMenu*>();
    }
    virtual QList<QAction*> designToolBarActions(IDesign* design, const QString& context)
    {
        Q_UNUSED(design)
        Q_UNUSED(context)
        return QList<QAction*>();
    }
    virtual QList<QMenu*> designToolBarMenus(IDesign* design, const QString& context)
    {
        Q_UNUSED(design)
        Q_UNUSED(context)
        return QList<QMenu*>();
    }

    /// Called when another design becomes the current one and when a lock state of the current one
    /// changes. The design may be changed only when both are false.
    virtual void refreshForDesignState(bool locked, bool read_only)
    {
        Q_UNUSED(locked)
        Q_UNUSED(read_only)
    }

    /// Data for an item model's \p role, in place of the view's own; invalid for that.
    virtual QVariant customItemRoleData(AbstractDesignLinkedItem* item, int role)
    {
        Q_UNUSED(item)
        Q_UNUSED(role)
        return QVariant();
    }
    virtual QVariant customDesignFileNodeRoleData(Qtilities::CoreGui::TreeNode* node, int role)
    {
        Q_UNUSED(node)
        Q_UNUSED(role)
        return QVariant();
    }

    /// Null for the host's own.
    virtual QIcon designTypeIcon(const QString& type_name)
    {
        Q_UNUSED(type_name)
        return QIcon();
    }

    /// The filters that the user may switch, by name: whether one is on at first, its description,
    /// which filters there are, and whether one hides a given item. The reference host has no
    /// filters, and does not call these six.
    virtual bool defaultFilterState(const QString& filter)
    {
        Q_UNUSED(filter)
        return false;
    }
    virtual QString filterDescription(const QString& filter)
    {
        Q_UNUSED(filter)
        return QString();
    }
    virtual QStringList designItemFilters() { return QStringList(); }
    virtual bool filterLinkedItem(AbstractDesignLinkedItem* item, const QString& filter)
    {
        Q_UNUSED(item)
        Q_UNUSED(filter)
        return false;
    }
    virtual QStringList designFileNodeFilters() { return QStringList(); }
    virtual bool filterDesignFileNode(Qtilities::CoreGui::TreeNode* node, const QString& filter)
    {
        Q_UNUSED(node)
        Q_UNUSED(filter)
        return false;
    }

private:
    Q_DISABLE_COPY(IDesignViewExtensions)
};

} // namespace Interfaces
} // namespace OrvanticCore

Q_DECLARE_INTERFACE(OrvanticCore::Interfaces::IDesignViewExtensions,
                    "com.Core.Interfaces.IDesignViewExtensions/1.0")

#endif
