#ifndef TOOL_RECIPECOMMAND_H
#define TOOL_RECIPECOMMAND_H

#include "tool/Command.h"

/// Writes the recipe of an image or a companion, which create takes.
class RecipeCommand : public Command {
public:
    const char* name() const override { return "recipe"; }
    const char* summary() const override { return "Write the recipe that create --like takes"; }
    void declare(CLI::App* app) override;
    void run(Session* session) override;

private:
    std::string m_file;
};

#endif
