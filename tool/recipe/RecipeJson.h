#ifndef TOOL_RECIPE_RECIPEJSON_H
#define TOOL_RECIPE_RECIPEJSON_H

#include "tool/base/Result.h"
#include "tool/recipe/Recipe.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>

/// Recipes as JSON.
///
/// A recipe is an object with "recipe": 2 and any of "author", "ciNumber", "module", "device",
/// "configNumber", "version" ("1.12"), "description" or "descriptionFile", and "functions" (objects
/// of "name", "author", "ciNumber" and "description"). "$schema" is ignored.
namespace RecipeJson {

/// A recipe of more bytes than this is refused unread.
constexpr int MaximumBytes = 1024 * 1024;

/// The fields that are given in \p recipe, under their names.
QJsonObject fields(const Recipe& recipe);

QByteArray write(const Recipe& recipe);

/// Reads \p json, the contents of the file \p label. Refuses names that are not known, and values
/// of another type.
tl::expected<Recipe, QList<Finding>> read(const QByteArray& json, const QString& label);

} // namespace RecipeJson

#endif
