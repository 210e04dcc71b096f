#include <QtilitiesProperty.h>

namespace Qtilities {
namespace Core {

SharedProperty::SharedProperty(const char* name, QVariant value) : d_name(name), d_value(value) {}

bool SharedProperty::isValid() { return !d_name.isEmpty() && d_value.isValid(); }

QVariant SharedProperty::value() const { return d_value; }

bool SharedProperty::setValue(QVariant value)
{
    if (d_name.isEmpty())
        return false;
    d_value = value;
    return true;
}

} // namespace Core
} // namespace Qtilities
