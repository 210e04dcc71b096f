#ifndef TOOL_RECIPE_H
#define TOOL_RECIPE_H

#include "tool/Build.h"

#include <QByteArray>
#include <QString>

/// A build as JSON that people and programs can write.
///
/// An object with "recipe": 1 and any of "author", "ciNumber", "module", "device", "configNumber",
/// "version" ({"major", "minor"}), "description" and "functions" (objects of "name", "author",
/// "ciNumber" and "description").
namespace Recipe {

/// A recipe of more bytes than this is refused unread.
constexpr int MaximumBytes = 1024 * 1024;

QByteArray write(const Build& build);

/// Reads \p json. Returns false with the reason in \p error, and the name of what it is about in
/// \p field, for anything that write() would not write.
bool read(const QByteArray& json, Build* build, QString* field, QString* error);

} // namespace Recipe

#endif
