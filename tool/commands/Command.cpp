#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

Command::Command(CLI::App* parent, const char* name, const char* summary)
    : app(parent->add_subcommand(name, summary)->group("Commands"))
{
}

std::vector<CommandPointer> addCommands(CLI::App* parent)
{
    std::vector<CommandPointer> commands;
    for (const auto make : {&createCommand, &showCommand, &listCommand, &verifyCommand,
                            &extractCommand, &recipeCommand, &diffCommand})
        commands.push_back(make(parent));
    return commands;
}
