#include "tool/commands/Arguments.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

constexpr char Guard = '\x01';

std::string valueOf(const std::string& argument)
{
    return !argument.empty() && argument.front() == Guard ? argument.substr(1) : argument;
}

// The arguments are taken as they are. A conversion to a type of ours would read braces and percent
// signs in them as lists.

CLI::callback_t takeAll(std::vector<std::string>* values)
{
    return [values](const CLI::results_t& results) {
        for (const std::string& result : results)
            values->push_back(valueOf(result));
        return true;
    };
}

} // namespace

std::string Arguments::guarded(const std::string& argument)
{
    const bool mistakable =
        !argument.empty() && (argument.front() == '[' || argument.front() == Guard);
    return mistakable ? Guard + argument : argument;
}

std::string Arguments::unguarded(std::string message)
{
    message.erase(std::remove(message.begin(), message.end(), Guard), message.end());
    return message;
}

CLI::Option* Arguments::addOption(CLI::App* app, const char* name,
                                  std::optional<std::string>* value, const char* type,
                                  const char* help)
{
    const auto take = [value](const CLI::results_t& results) {
        *value = valueOf(results.back());
        return true;
    };
    return app->add_option(name, take, help)->type_name(type);
}

CLI::Option* Arguments::addRepeatedOption(CLI::App* app, const char* name, int count,
                                          std::vector<std::string>* values, const char* type,
                                          const char* help)
{
    return app->add_option(name, takeAll(values), help)
        ->type_name(type)
        ->type_size(count)
        ->expected(1, CLI::detail::expected_max_vector_size)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->allow_extra_args(false);
}

CLI::Option* Arguments::addOperands(CLI::App* app, const char* name,
                                    std::vector<std::string>* values, const char* help)
{
    return app->add_option(name, takeAll(values), help)
        ->required()
        ->type_name("")
        ->expected(CLI::detail::expected_max_vector_size);
}
