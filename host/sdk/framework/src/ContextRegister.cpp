#include "host/sdk/framework/src/ContextRegister.h"

namespace Qtilities {
namespace Core {

namespace {
const int StandardContextId = 1;
const int UnknownContextId = -1;
} // namespace

namespace Interfaces {

IContextManager::~IContextManager() {}

} // namespace Interfaces

ContextRegister* ContextRegister::instance()
{
    static ContextRegister contexts;
    return &contexts;
}

int ContextRegister::contextID(const QString& context)
{
    return context == QLatin1String("qti.def.Context.Standard") ? StandardContextId
                                                                : UnknownContextId;
}

bool ContextRegister::isAnyActive(const QList<int>& ids) const
{
    return ids.isEmpty() || ids.contains(StandardContextId);
}

} // namespace Core
} // namespace Qtilities
