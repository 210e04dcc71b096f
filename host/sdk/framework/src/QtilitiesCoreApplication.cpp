#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include "host/sdk/framework/src/ContextRegister.h"
#include "host/sdk/framework/src/ObjectPool.h"

namespace Qtilities {
namespace Core {

QtilitiesCoreApplication::QtilitiesCoreApplication(int& argc, char** argv)
    : QCoreApplication(argc, argv)
{
}

QtilitiesCoreApplication::~QtilitiesCoreApplication() {}

Interfaces::IObjectManager* QtilitiesCoreApplication::objectManager()
{
    return ObjectPool::instance();
}

Interfaces::IContextManager* QtilitiesCoreApplication::contextManager()
{
    return ContextRegister::instance();
}

} // namespace Core
} // namespace Qtilities
