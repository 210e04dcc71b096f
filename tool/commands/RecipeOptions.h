#ifndef TOOL_COMMANDS_RECIPEOPTIONS_H
#define TOOL_COMMANDS_RECIPEOPTIONS_H

#include "tool/recipe/Recipe.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

struct Task;

namespace CLI {
class App;
}

/// The arguments that give the fields of a recipe.
class RecipeOptions {
public:
    void declare(CLI::App* app);

    /// The recipe that they give, completed from the file given with --like. What cannot be taken
    /// as it was given is refused.
    Recipe recipe(Task* task) const;

private:
    void readFields(Recipe* recipe, Task* task) const;

    /// The arguments by the names of the fields.
    std::map<std::string, std::optional<std::string>> m_given;
    std::vector<std::string> m_functions;
    std::optional<std::string> m_like;
};

#endif
