#ifndef TOOL_COMMANDS_COMMAND_H
#define TOOL_COMMANDS_COMMAND_H

#include "tool/commands/Arguments.h"
#include "tool/commands/Task.h"

#include <memory>
#include <vector>

/// One command of the tool: its arguments, and what it does.
class Command {
public:
    /// Adds the command to \p parent, which fills its arguments into this object and owns app.
    Command(CLI::App* parent, const char* name, const char* summary);
    virtual ~Command() = default;
    Q_DISABLE_COPY(Command)

    /// Runs it, and adds findings and results to \p task.
    virtual void run(Task* task) = 0;

    /// Not owned.
    CLI::App* const app;
};

using CommandPointer = std::unique_ptr<Command>;

/// Adds all commands to \p parent, in the order of the help.
std::vector<CommandPointer> addCommands(CLI::App* parent);

CommandPointer createCommand(CLI::App* parent);
CommandPointer showCommand(CLI::App* parent);
CommandPointer listCommand(CLI::App* parent);
CommandPointer verifyCommand(CLI::App* parent);
CommandPointer extractCommand(CLI::App* parent);
CommandPointer recipeCommand(CLI::App* parent);
CommandPointer diffCommand(CLI::App* parent);

#endif
