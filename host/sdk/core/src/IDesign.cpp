#include <OrvanticCore/IDesign.h>

namespace OrvanticCore {

IDesign::~IDesign() {}

} // namespace OrvanticCore
