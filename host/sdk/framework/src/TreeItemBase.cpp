#include <QtilitiesCoreGui/TreeItemBase.h>

namespace Qtilities {
namespace CoreGui {

TreeItemBase::TreeItemBase(const QString& name, QObject* parent) : QObject(parent)
{
    setObjectName(name);
}

TreeItemBase::~TreeItemBase() {}

} // namespace CoreGui
} // namespace Qtilities
