#ifndef TOOL_COMMANDS_COMMANDLINE_H
#define TOOL_COMMANDS_COMMANDLINE_H

#include <string>
#include <vector>

struct Environment;

/// Runs the tool with \p arguments (without the program's own name), and returns the exit code.
int runCommandLine(const std::vector<std::string>& arguments, const Environment& environment);

#endif
