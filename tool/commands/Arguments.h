#ifndef TOOL_COMMANDS_ARGUMENTS_H
#define TOOL_COMMANDS_ARGUMENTS_H

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// Arguments that are taken as they are.
namespace Arguments {

/// An argument as the parser must get it: in operands it would read what is in brackets as a list.
/// The functions below take the guard off again.
std::string guarded(const std::string& argument);

/// A message of the parser without the guards of the arguments in it.
std::string unguarded(std::string message);

/// Adds an option, or an operand, that takes one argument, whatever that looks like, and may be
/// given once.
CLI::Option* addOption(CLI::App* app, const char* name, std::optional<std::string>* value,
                       const char* type, const char* help);

/// Adds an option that takes \p count arguments each time it is given.
CLI::Option* addRepeatedOption(CLI::App* app, const char* name, int count,
                               std::vector<std::string>* values, const char* type,
                               const char* help);

/// Adds an operand that must be given at least once.
CLI::Option* addOperands(CLI::App* app, const char* name, std::vector<std::string>* values,
                         const char* help);

} // namespace Arguments

#endif
