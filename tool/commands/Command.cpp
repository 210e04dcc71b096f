#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

Command::Command(CLI::App* parent, const char* name, const char* summary)
    : app(parent->add_subcommand(name, summary)->group("Commands"))
{
}
