#include "tool/commands/Command.h"

#include "tool/base/Text.h"
#include "tool/check/Validator.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

constexpr char Guard = '\x01';
const std::string Required = " (required)";

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

std::string Argument::guarded(const std::string& argument)
{
    const bool mistakable =
        !argument.empty() && (argument.front() == '[' || argument.front() == Guard);
    return mistakable ? Guard + argument : argument;
}

std::string Argument::unguarded(std::string message)
{
    message.erase(std::remove(message.begin(), message.end(), Guard), message.end());
    return message;
}

void Argument::addOption(CLI::App* app, const char* name, std::optional<std::string>* value,
                         const char* type, const char* help)
{
    const auto take = [value](const CLI::results_t& results) {
        *value = valueOf(results.back());
        return true;
    };
    app->add_option(name, take, help)->type_name(type);
}

void Argument::addRequired(CLI::App* app, const char* name, std::optional<std::string>* value,
                           const char* type, const char* help)
{
    addOption(app, name, value, type, help);
    app->get_options().back()->required()->description(help + Required);
}

void Argument::addRepeatedOption(CLI::App* app, const char* name, int count,
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

void Argument::addOperands(CLI::App* app, const char* name, std::vector<std::string>* values,
                           const char* help)
{
    app->add_option(name, takeAll(values), help + Required)
        ->required()
        ->type_name("")
        ->expected(CLI::detail::expected_max_vector_size);
}

void Argument::addFlag(CLI::App* app, const char* name, bool* value, const char* help)
{
    app->add_flag(name, *value, help);
}

void Argument::setNeeded(CLI::App* app, const char* option, const char* other)
{
    app->get_option(option)->needs(app->get_option(other));
}

void Argument::setGroup(CLI::App* app, const char* option, const char* title)
{
    app->get_option(option)->group(title);
}

void Argument::setFooter(CLI::App* app, const std::string& text) { app->footer(text); }

Task::Task(const Environment* world, const std::string& command)
    : environment(*world), codec(world->codec), report(command),
      inputs(world->in, [this](const QString& label) { return progress(label, Progress::Unknown); })
{
}

CopyObserver Task::progress(const QString& label, qint64 total) const
{
    if (report.quiet)
        return [](const char*, qint64) {};
    return Progress::observer(&environment, label, total);
}

std::optional<QString> Task::text(const std::string& argument, const char* option)
{
    return findings.valueOf(textOf(argument, codec, QLatin1String(option)));
}

std::optional<QString> Task::path(const std::string& argument, const char* option)
{
    return findings.valueOf(pathOf(argument, codec, QLatin1String(option)));
}

std::optional<InputFile> Task::open(const QString& path, qint64 limit, const char* field)
{
    return findings.valueOf(inputs.open(path, limit, QLatin1String(field)));
}

std::optional<QByteArray> Task::bytesOf(const QString& path, qint64 limit, const char* field)
{
    return findings.valueOf(
        inputs.open(path, limit, QLatin1String(field)).and_then([limit](const InputFile& file) {
            return file.bytesAt(0, limit);
        }));
}

void Task::refuse(const char* option, const QString& reason)
{
    findings.error(ExitCode::Refused, QString(), QLatin1String(option), reason);
}

std::optional<FcfFile> Task::openFcf(const std::string& argument, Reach reach, ExitCode ifBad,
                                     HeaderPage::Bytes bytes)
{
    const qint64 limit = reach == Whole ? Validator::LargestFile : FcfExactReader::MaximumBytes;
    const std::optional<QString> name = path(argument, "FILE");
    auto file = name ? open(*name, limit, "FILE") : std::nullopt;
    auto page =
        file ? findings.valueOf(HeaderPage::read(*file, codec, ifBad, bytes)) : std::nullopt;
    if (!page || (reach == Whole && !findings.accept(page->measure(*file))))
        return std::nullopt;
    return FcfFile{std::move(*file), std::move(*page)};
}

Command::Command(CLI::App* parent, const char* name, const char* summary)
    : app(parent->add_subcommand(name, summary)->group("Commands"))
{
}
