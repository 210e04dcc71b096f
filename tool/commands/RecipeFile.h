#ifndef TOOL_COMMANDS_RECIPEFILE_H
#define TOOL_COMMANDS_RECIPEFILE_H

#include "tool/recipe/Recipe.h"

#include <QString>

#include <optional>
#include <string>

struct Task;

/// The files that say what an image is made of. Whatever cannot be taken is an error of the task.
namespace RecipeFile {

constexpr char Option[] = "--like";

/// The recipe in the file that the argument of \p option names: a recipe, or that of an image or a
/// companion.
std::optional<Recipe> read(const std::string& argument, const char* option, Task* task);

/// The description in the file at \p path, which the argument of \p option names.
std::optional<QString> readDescription(const QString& path, const char* option, Task* task);

} // namespace RecipeFile

#endif
