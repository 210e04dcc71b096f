#ifndef TOOL_RECIPE_HEADERJSON_H
#define TOOL_RECIPE_HEADERJSON_H

#include "fcf/FcfHeader.h"

#include <QJsonArray>
#include <QJsonObject>

/// Headers as JSON: every field of a recipe under the name that it has there, and every other field
/// of the page under its name in FcfLayout.
namespace HeaderJson {

/// "module" and "device" are null if the codes are those of no target.
QJsonObject object(const FcfHeader& header);

/// What differs in \p headerA and \p headerB, as objects of "field", "a" and "b". Functions are
/// compared by their names; if they are in another order, "functions" has the names of those that
/// are in both.
QJsonArray differences(const FcfHeader& headerA, const FcfHeader& headerB);

} // namespace HeaderJson

#endif
