#ifndef TOOL_BUILD_BUILDJSON_H
#define TOOL_BUILD_BUILDJSON_H

#include "tool/base/Result.h"
#include "tool/build/Build.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QList>

/// Builds and headers as JSON, with the same names in both.
///
/// A recipe is an object with "recipe": 2 and any of "author", "ciNumber", "module", "device",
/// "configNumber", "version" ("1.12"), "description" or "descriptionFile", and "functions" (objects
/// of "name", "author", "ciNumber" and "description"). "$schema" is passed over. A header has all
/// of them, and every other field of the page under its name in FcfLayout.
namespace BuildJson {

/// A recipe of more bytes than this is refused unread.
constexpr int MaximumRecipeBytes = 1024 * 1024;

QByteArray recipe(const Build& build);

/// Reads \p json, the contents of the file \p label. Refuses anything that recipe() would not
/// write, but for recipes of version 1, in which "version" is an object of "major" and "minor".
tl::expected<Build, QList<Finding>> readRecipe(const QByteArray& json, const QString& label);

/// "module" and "device" are null if the codes are those of no target.
QJsonObject header(const FcfHeader& header);

/// What differs in \p headerA and \p headerB, as objects of "field", "a" and "b". Functions are
/// compared by their names.
QJsonArray differences(const FcfHeader& headerA, const FcfHeader& headerB);

} // namespace BuildJson

#endif
