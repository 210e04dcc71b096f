#include <QtilitiesCore/ObjectManager.h>

namespace Qtilities {
namespace Core {

SharedProperty ObjectManager::getSharedProperty(const QObject* object, const char* name)
{
    // A property of another kind converts to an invalid shared property.
    return object->property(name).value<SharedProperty>();
}

bool ObjectManager::setSharedProperty(QObject* object, SharedProperty property)
{
    if (property.m_name.isEmpty())
        return false;
    object->setProperty(property.m_name.constData(), QVariant::fromValue(property));
    return true;
}

bool ObjectManager::propertyExists(const QObject* object, const char* name)
{
    return object->property(name).isValid();
}

} // namespace Core
} // namespace Qtilities
