#include "tool/commands/CommandLine.h"

#include "tool/base/Text.h"
#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

constexpr char Footer[] =
    "Exit codes: 0 done, 1 a file is not valid, 2 wrong usage or an input refused, 3 a file cannot "
    "be read or written, 4 an output exists.";

class CommandLine {
public:
    explicit CommandLine(const Environment* environment);

    int run(const std::vector<std::string>& arguments);

private:
    /// The command that \p arguments name, or null. Owned.
    Command* commandIn(const std::vector<std::string>& arguments) const
    {
        for (const auto& command : m_commands) {
            if (!arguments.empty() && command->app->get_name() == arguments.front())
                return command.get();
        }
        return nullptr;
    }

    tl::expected<std::vector<std::string>, std::string>
    prepared(const std::vector<std::string>& arguments) const;

    static std::string lacksValue(const CLI::Option& option, const std::string& value)
    {
        const std::string name = option.get_name();
        const std::string way = valuesOf(option) == 1
                                    ? "to give it as the value write " + name + '=' + value
                                    : "a function with that text can be given in a recipe";
        return name + " lacks a value, as \"" + value + "\" is an option; " + way;
    }

    /// How many arguments it takes; a flag takes none.
    static int valuesOf(const CLI::Option& option)
    {
        return option.get_expected_max() == 0 ? 0 : option.get_type_size_max();
    }

    const CLI::Option* optionNamed(const std::string& name,
                                   const std::vector<std::string>& arguments) const
    {
        const Command* const command = commandIn(arguments);
        const CLI::App* const app = command ? command->app : &m_app;
        const bool isLong = name.compare(0, 2, "--") == 0 && name.size() > 2;
        const bool isShort = name.size() == 2 && name[0] == '-' && name[1] != '-';
        if (!isLong && !isShort)
            return nullptr;
        return app->get_option_no_throw(name);
    }

    /// The \p arguments that no command or option takes, as a message; empty if all are taken. What
    /// is behind an unknown option may be its value.
    std::string notTaken(const std::vector<std::string>& arguments) const
    {
        std::vector<std::string> left = m_app.remaining(true);
        QStringList options;
        QStringList operands;
        for (const std::string& argument : arguments) {
            const auto found = std::find(left.begin(), left.end(), Arguments::escaped(argument));
            if (found == left.end())
                continue;

            left.erase(found);
            const QString shown = '"' + QString::fromLocal8Bit(argument.c_str()) + '"';
            (argument[0] == '-' ? options : operands) << shown;
        }
        if (options.isEmpty() && operands.isEmpty())
            return std::string();

        const QStringList& named = options.isEmpty() ? operands : options;
        const QString verb = named.size() > 1 ? "are" : "is";
        const QString reason = options.isEmpty() ? "not expected" : "not known";
        return QStringLiteral("%1 %2 %3")
            .arg(named.join(", "), verb, reason)
            .toLocal8Bit()
            .toStdString();
    }

    /// How often an option was given, or with how many values, in words of our own.
    static std::string miscounted(const CLI::ArgumentMismatch& error)
    {
        const std::string text = error.what();
        const std::string option = text.substr(0, text.find(':'));
        const std::string required = " required ";
        const std::size_t type = text.find(required);
        const std::size_t end = text.rfind(" missing");
        if (end == std::string::npos || type == std::string::npos)
            return option + " is given more than once";
        return option + " lacks a value: " +
               text.substr(type + required.size(), end - type - required.size());
    }

    /// An argument that is not known is often the reason why another is missing.
    std::string missing(const CLI::RequiredError& error,
                        const std::vector<std::string>& arguments) const
    {
        if (std::string unknown = notTaken(arguments); !unknown.empty())
            return unknown;
        if (m_app.get_subcommands().empty())
            return "a command is missing; --help lists them";
        return error.what();
    }

    int printed(const std::string& text) const
    {
        Task task(m_environment, "");
        task.report.printRaw(QByteArray::fromStdString(text));
        return task.finish();
    }

    int refused(const std::vector<std::string>& arguments, const std::string& reason) const
    {
        const Command* const command = commandIn(arguments);
        Task task(m_environment, command ? command->app->get_name() : std::string());
        task.report.json =
            std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();

        const std::string message = Arguments::withoutEscapes(reason);
        task.findings.refuse(QString(), QString(),
                             shownText(QString::fromLocal8Bit(message.c_str())));
        return task.finish();
    }

    /// Not owned.
    const Environment* m_environment;
    CLI::App m_app;
    std::vector<CommandPointer> m_commands;
    bool m_json = false;
    bool m_quiet = false;
};

CommandLine::CommandLine(const Environment* environment)
    : m_environment(environment),
      m_app("Make, list, check and take apart FCF flash images.", "pelk-fcf")
{
    m_app.set_version_flag("-v,--version", std::string("pelk-fcf ") + PELK_FCF_VERSION,
                           "Print the version and exit");
    m_app.set_help_flag("-h,--help", "Print this help and exit");
    m_app.require_subcommand(1);
    m_app.get_formatter()->label("SUBCOMMAND", "COMMAND");
    m_app.get_formatter()->label("REQUIRED", "");

    m_commands = addCommands(&m_app);
    for (const CommandPointer& command : m_commands) {
        CLI::App* const app = command->app;
        app->add_flag("--json", m_json, "give the result as JSON");
        app->add_flag("-q,--quiet", m_quiet, "show no progress and no notes");
        app->footer(app->get_footer() + Footer);
    }
    m_app.footer(Footer);
}

int CommandLine::run(const std::vector<std::string>& arguments)
{
    const std::string first = arguments.empty() ? std::string() : arguments.front();
    if (first == "help" && arguments.size() > 1)
        return run({arguments[1], "--help"});
    if (first == "help")
        return run({"--help"});

    const bool isOption = first.substr(0, 1) == "-";
    if (!arguments.empty() && !isOption && !commandIn(arguments))
        return refused(arguments, '"' + first + "\" is no command");

    auto split = prepared(arguments);
    if (!split)
        return refused(arguments, split.error());

    try {
        std::reverse(split->begin(), split->end());
        m_app.parse(std::move(*split));
    } catch (const CLI::CallForHelp&) {
        return printed(m_app.help() + '\n');
    } catch (const CLI::CallForVersion& version) {
        return printed(version.what() + std::string("\n"));
    } catch (const CLI::RequiredError& error) {
        return refused(arguments, missing(error, arguments));
    } catch (const CLI::ExtrasError&) {
        return refused(arguments, notTaken(arguments));
    } catch (const CLI::ArgumentMismatch& error) {
        return refused(arguments, miscounted(error));
    } catch (const CLI::ParseError& error) {
        return refused(arguments, error.what());
    }

    Command* const command = commandIn(arguments);
    Task task(m_environment, command->app->get_name());
    task.report.json = m_json;
    task.report.quiet = m_quiet;
    command->run(&task);
    return task.finish();
}

/// \p arguments in the way in which the parser takes each for what it is: it would take "--name="
/// for "--name" with the next argument as its value. An option's name in the place of another
/// option's value is refused, as it is far more often an empty variable of a script.
tl::expected<std::vector<std::string>, std::string>
CommandLine::prepared(const std::vector<std::string>& arguments) const
{
    std::vector<std::string> split;
    const CLI::Option* option = nullptr;
    // How many of the next arguments belong to the option.
    int values = 0;
    bool areOperands = false;
    for (const std::string& argument : arguments) {
        const std::string name = argument.substr(0, argument.find('='));
        const CLI::Option* const named = areOperands ? nullptr : optionNamed(name, arguments);
        const bool isNameAlone = argument == name;
        if (values > 0 && named && isNameAlone)
            return tl::make_unexpected(lacksValue(*option, argument));

        if (values == 0 && named && !isNameAlone && valuesOf(*named) == 0)
            return tl::make_unexpected(name + " takes no value");

        if (values == 0 && argument == "--")
            areOperands = true;
        if (values > 0 || !named) {
            split.push_back(Arguments::escaped(argument));
            values = std::max(values - 1, 0);
            continue;
        }

        option = named;
        const bool hasEmptyValue = argument == name + '=';
        if (hasEmptyValue) {
            split.push_back(name);
            split.emplace_back();
            values = valuesOf(*named) - 1;
        } else {
            split.push_back(Arguments::escaped(argument));
            values = isNameAlone ? valuesOf(*named) : 0;
        }
    }
    return split;
}

} // namespace

int runCommandLine(const std::vector<std::string>& arguments, const Environment& environment)
{
    return CommandLine(&environment).run(arguments);
}
