#include "design/ZORV_PropertyProvider.h"

#include "design/DesignProperties.h"

#include <QMetaType>

using Qtilities::Core::PropertySpecification;

namespace ZORV_Plugin {

namespace {

PropertySpecification designProperty(const char* name, QMetaType::Type type,
                                     const QString& description)
{
    PropertySpecification property;
    property.d_displayed_name = QLatin1String(name);
    property.d_property_name = QLatin1String("");
    property.d_description = description;
    property.d_data_type = static_cast<decltype(property.d_data_type)>(type);
    property.d_default_value = QVariant();
    property.d_class_name = QLatin1String("OrvanticCore::Design");
    return property;
}

} // namespace

QList<PropertySpecification> ZORV_PropertyProvider::availableProperties() const
{
    QList<PropertySpecification> properties;
    properties << designProperty(
        DeviceProperty, QMetaType::QString,
        tr("Specifies the device to use when generating FCF files for this design."
           "<br><br>Possible values:"
           "<br>For DFE1: Interface_FPGA, Processing_FPGA_1, Clock_Master_Device"
           "<br>For DFE2: Processing_FPGA"
           "<br>For GPM: Interface_FPGA, Processing_FPGA_1, Processing_FPGA_2, "
           "Processing_FPGA_3"));
    properties << designProperty(
        ConfigNumberProperty, QMetaType::Int,
        tr("Specifies the flash location  to use when generating FCF files for this design."
           "<br><br>Possible values: 1-10"));
    properties << designProperty(
        ModuleProperty, QMetaType::QString,
        tr("Specifies the module to use when generating FCF files for this design."
           "<br><br>Possible values:"
           "<br>DFE1, DFE2, GPM"));
    return properties;
}

QStringList ZORV_PropertyProvider::prohibitedCustomPropertiesClasses() const
{
    return QStringList();
}

} // namespace ZORV_Plugin
