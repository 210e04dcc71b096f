#ifndef TOOL_COMMANDS_ARGUMENTS_H
#define TOOL_COMMANDS_ARGUMENTS_H

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The arguments of a command, which are taken as they are. Commands declare theirs by these
/// functions, and use nothing else of the parser.
namespace Arguments {

/// \p argument as the parser must get it: it would read an operand in brackets as a list. The
/// functions below take the escape off again.
std::string escaped(const std::string& argument);

/// A message of the parser without the escapes of the arguments in it.
std::string withoutEscapes(std::string message);

/// Adds an option, or an operand, that takes one argument, whatever that looks like, and may be
/// given once.
void addOption(CLI::App* app, const char* name, std::optional<std::string>* value, const char* type,
               const char* help);
void addRequired(CLI::App* app, const char* name, std::optional<std::string>* value,
                 const char* type, const char* help);

/// Adds another name of the option \p other, which no help shows.
void addAlias(CLI::App* app, const char* name, const char* other,
              std::optional<std::string>* value);

/// Adds an option that takes \p count arguments each time it is given.
void addRepeatedOption(CLI::App* app, const char* name, int count, std::vector<std::string>* values,
                       const char* type, const char* help);

/// Adds an operand that must be given at least once.
void addOperands(CLI::App* app, const char* name, std::vector<std::string>* values,
                 const char* help);

/// Adds an option without an argument.
void addFlag(CLI::App* app, const char* name, bool* value, const char* help);

/// Refuses \p option without \p other.
void setNeeded(CLI::App* app, const char* option, const char* other);

/// What --help shows above \p option, and at its end.
void setGroup(CLI::App* app, const char* option, const char* title);
void setFooter(CLI::App* app, const std::string& text);

} // namespace Arguments

#endif
