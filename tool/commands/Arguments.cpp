#include "tool/commands/Arguments.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

constexpr char Escape = '\x01';
const std::string Required = " (required)";

std::string unescaped(const std::string& argument)
{
    const bool isEscaped = !argument.empty() && argument.front() == Escape;
    return isEscaped ? argument.substr(1) : argument;
}

// The arguments are taken as they are. A conversion to a type of ours would read braces and percent
// signs in them as lists.

CLI::callback_t takeAll(std::vector<std::string>* values)
{
    return [values](const CLI::results_t& results) {
        for (const std::string& result : results)
            values->push_back(unescaped(result));
        return true;
    };
}

} // namespace

std::string Arguments::escaped(const std::string& argument)
{
    if (argument.empty())
        return argument;

    const bool isMistakable = argument.front() == '[' || argument.front() == Escape;
    return isMistakable ? Escape + argument : argument;
}

std::string Arguments::withoutEscapes(std::string message)
{
    message.erase(std::remove(message.begin(), message.end(), Escape), message.end());
    return message;
}

void Arguments::addOption(CLI::App* app, const char* name, std::optional<std::string>* value,
                          const char* type, const char* help)
{
    const auto take = [value](const CLI::results_t& results) {
        *value = unescaped(results.back());
        return true;
    };
    app->add_option(name, take, help)->type_name(type);
}

void Arguments::addRequired(CLI::App* app, const char* name, std::optional<std::string>* value,
                            const char* type, const char* help)
{
    addOption(app, name, value, type, help);
    app->get_options().back()->required()->description(help + Required);
}

void Arguments::addAlias(CLI::App* app, const char* name, const char* other,
                         std::optional<std::string>* value)
{
    const auto take = [value, name, other](const CLI::results_t& results) {
        if (*value)
            throw CLI::ParseError(std::string(name) + " is another name of " + other +
                                      ": give one of them",
                                  CLI::ExitCodes::ExcludesError);
        *value = unescaped(results.back());
        return true;
    };
    app->add_option(name, take)->type_name("")->group("");
}

void Arguments::addRepeatedOption(CLI::App* app, const char* name, int count,
                                  std::vector<std::string>* values, const char* type,
                                  const char* help)
{
    app->add_option(name, takeAll(values), help)
        ->type_name(type)
        ->type_size(count)
        ->expected(1, CLI::detail::expected_max_vector_size)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false);
}

void Arguments::addOperands(CLI::App* app, const char* name, std::vector<std::string>* values,
                            const char* help)
{
    app->add_option(name, takeAll(values), help + Required)
        ->required()
        ->type_name("")
        ->expected(CLI::detail::expected_max_vector_size);
}

void Arguments::addFlag(CLI::App* app, const char* name, bool* value, const char* help)
{
    app->add_flag(name, *value, help);
}

void Arguments::setNeeded(CLI::App* app, const char* option, const char* other)
{
    app->get_option(option)->needs(app->get_option(other));
}

void Arguments::setGroup(CLI::App* app, const char* option, const char* title)
{
    app->get_option(option)->group(title);
}

void Arguments::setFooter(CLI::App* app, const std::string& text) { app->footer(text); }
