#ifndef FRAMEWORK_ABSTRACTTREEITEM_H
#define FRAMEWORK_ABSTRACTTREEITEM_H

#include "QtilitiesCore_global.h"
#include <IObjectBase.h>

#include <QString>

namespace Qtilities {
namespace CoreGui {

class TreeNode;

class QTILITIES_CORE_EXPORT AbstractTreeItem : virtual public Core::Interfaces::IObjectBase {
public:
    AbstractTreeItem() : m_formatting(0) {}
    QString getName(TreeNode* parent = nullptr) const;
    virtual QString getCategoryString(const QString& separator = QLatin1String("::"),
                                      int observer_id = -1) const;
    virtual QString formattingName() const { return QString(); }

private:
    int m_formatting;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
