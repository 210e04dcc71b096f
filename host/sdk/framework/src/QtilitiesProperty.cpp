#include <QtilitiesCore/QtilitiesProperty.h>

namespace Qtilities {
namespace Core {

SharedProperty::SharedProperty(const char* name, QVariant value) : m_name(name), m_value(value) {}

bool SharedProperty::isValid() { return !m_name.isEmpty() && m_value.isValid(); }

QVariant SharedProperty::value() const { return m_value; }

bool SharedProperty::setValue(QVariant value)
{
    if (m_name.isEmpty())
        return false;
    m_value = value;
    return true;
}

} // namespace Core
} // namespace Qtilities
