#ifndef TOOL_COMMAND_H
#define TOOL_COMMAND_H

#include <memory>
#include <optional>
#include <string>
#include <vector>

class Session;

namespace CLI {
class App;
class Option;
} // namespace CLI

/// One command of the tool: its arguments, and what it does.
class Command {
public:
    Command() = default;
    virtual ~Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    virtual const char* name() const = 0;
    virtual const char* summary() const = 0;

    /// Adds the command's own arguments to \p app, which fills them into this object.
    virtual void declare(CLI::App* app) = 0;

    /// Does it. Whatever is to be said, and the way it ended, goes to \p session.
    virtual void run(Session* session) = 0;
};

/// All commands, in the order in which help lists them.
std::vector<std::unique_ptr<Command>> allCommands();

/// An argument as the parser must get it: in operands it would read what stands in brackets as a
/// list. The functions below take the guard off again.
std::string guarded(const std::string& argument);

/// Adds an option that takes one argument, whatever that looks like, and may be given once.
CLI::Option* addOption(CLI::App* app, const char* name, std::optional<std::string>* value,
                       const char* type, const char* help);

/// Adds an option that takes \p count arguments each time it is given.
CLI::Option* addRepeatedOption(CLI::App* app, const char* name, int count,
                               std::vector<std::string>* values, const char* type,
                               const char* help);

/// Adds an operand that must be given.
CLI::Option* addOperand(CLI::App* app, const char* name, std::string* value, const char* help);

/// Adds an operand that must be given at least once.
CLI::Option* addOperands(CLI::App* app, const char* name, std::vector<std::string>* values,
                         const char* help);

#endif
