#include <QtilitiesCore/IAvailablePropertyProvider.h>

namespace Qtilities {
namespace Core {

namespace {

Toolkit::ValueType noType() { return static_cast<Toolkit::ValueType>(QVariant().userType()); }

} // namespace

PropertySpecification::PropertySpecification()
    : d_data_type(noType()), d_removable(true), d_read_only(false),
      d_add_during_construction(false), d_internal(false), d_is_exportable(true)
{
}

QString PropertySpecification::propertyName() const
{
    return d_property_name.isEmpty() ? d_displayed_name : d_property_name;
}

bool PropertySpecification::isValid() const
{
    return !propertyName().isEmpty() && d_data_type != noType();
}

bool PropertySpecification::operator==(const PropertySpecification& other) const
{
    return d_displayed_name == other.d_displayed_name && d_property_name == other.d_property_name &&
           d_description == other.d_description && d_data_type == other.d_data_type &&
           d_default_value == other.d_default_value && d_removable == other.d_removable &&
           d_read_only == other.d_read_only && d_class_name == other.d_class_name &&
           d_add_during_construction == other.d_add_during_construction &&
           d_internal == other.d_internal && d_is_exportable == other.d_is_exportable;
}

} // namespace Core
} // namespace Qtilities
