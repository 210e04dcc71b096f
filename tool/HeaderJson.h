#ifndef TOOL_HEADERJSON_H
#define TOOL_HEADERJSON_H

#include <QJsonObject>

struct FcfHeader;

/// A header as JSON: each field under its name in FcfLayout, numbers as numbers, the functions as a
/// list of objects.
namespace HeaderJson {

QJsonObject of(const FcfHeader& header);

} // namespace HeaderJson

#endif
