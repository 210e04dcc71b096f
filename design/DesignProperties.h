#ifndef DESIGN_DESIGNPROPERTIES_H
#define DESIGN_DESIGNPROPERTIES_H

namespace ZORV_Plugin {

/// The names of the properties in which a design records the target of its images. Module and
/// device are texts as the generator window lists them, the config number is an int from 1 to 10.
const char ModuleProperty[] = "ZORV Pelk Module";
const char DeviceProperty[] = "ZORV Pelk Device";
const char ConfigNumberProperty[] = "ZORV Pelk Config Number";

} // namespace ZORV_Plugin

#endif
