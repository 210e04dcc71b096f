#include "tool/CommandLine.h"

#include "tool/base/Text.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

constexpr char Footer[] =
    "Exit codes: 0 done, 1 a file is not valid, 2 wrong usage or an input refused, 3 a file cannot "
    "be read or written, 4 an output exists.";

class CommandLine {
public:
    explicit CommandLine(const Environment* environment)
        : m_environment(environment),
          m_app("Make, list, check and take apart FCF flash images.", "pelk-fcf")
    {
        for (const auto make : {&createCommand, &showCommand, &verifyCommand, &extractCommand,
                                &recipeCommand, &diffCommand, &digestCommand})
            m_commands.push_back(make());
        m_app.set_version_flag("-v,--version", std::string("pelk-fcf ") + PELK_FCF_VERSION,
                               "Print the version and exit");
        m_app.set_help_flag("-h,--help", "Print this help and exit");
        m_app.require_subcommand(1);
        m_app.footer(Footer);
        m_app.get_formatter()->label("SUBCOMMAND", "COMMAND");
        m_app.get_formatter()->label("Subcommands", "Commands");
        m_app.get_formatter()->label("REQUIRED", "");
        for (const auto& command : m_commands) {
            CLI::App* const app = m_app.add_subcommand(command->name(), command->summary());
            command->declare(app);
            app->add_flag("--json", m_json, "give the result as JSON");
            app->add_flag("-q,--quiet", m_quiet, "show no progress and no notes");
            app->footer(Footer);
            m_apps.push_back(app);
        }
    }

    int run(const std::vector<std::string>& arguments)
    {
        if (!arguments.empty() && arguments.front() == "help")
            return run(arguments.size() > 1 ? std::vector<std::string>{arguments[1], "--help"}
                                            : std::vector<std::string>{"--help"});
        if (!arguments.empty() && arguments.front()[0] != '-' && !isCommand(arguments.front()))
            return refused(arguments, '"' + arguments.front() + "\" is no command");
        const std::string swallowed = swallowedOption(arguments);
        if (!swallowed.empty())
            return refused(arguments, swallowed);
        try {
            std::vector<std::string> reversed = prepared(arguments);
            std::reverse(reversed.begin(), reversed.end());
            m_app.parse(std::move(reversed));
        } catch (const CLI::CallForHelp&) {
            return printed(m_app.help());
        } catch (const CLI::CallForVersion& version) {
            return printed(version.what() + std::string("\n"));
        } catch (const CLI::RequiredError& error) {
            return refused(arguments, missing(error));
        } catch (const CLI::ParseError& error) {
            return refused(arguments, error.what());
        }
        const auto chosen =
            static_cast<std::size_t>(std::find_if(m_apps.begin(), m_apps.end(),
                                                  [](CLI::App* app) { return app->parsed(); }) -
                                     m_apps.begin());
        Task task(m_environment, m_commands[chosen]->name());
        task.report.json = m_json;
        task.report.quiet = m_quiet;
        m_commands[chosen]->run(&task);
        return finish(&task);
    }

private:
    bool isCommand(const std::string& name) const
    {
        return std::any_of(m_commands.begin(), m_commands.end(),
                           [&name](const auto& command) { return command->name() == name; });
    }

    /// \p arguments in the way in which the parser takes each for what it is. It would take
    /// "--name=" for "--name" with the next argument as its value.
    std::vector<std::string> prepared(const std::vector<std::string>& arguments) const
    {
        std::vector<std::string> split;
        int values = 0;
        bool areOperands = false;
        for (const std::string& argument : arguments) {
            const std::string name = argument.substr(0, argument.find('='));
            const CLI::Option* const option =
                areOperands || values > 0 ? nullptr : optionNamed(name, arguments);
            areOperands = areOperands || (values == 0 && argument == "--");
            if (option && argument == name + '=') {
                split.push_back(name);
                split.emplace_back();
                values = valuesOf(*option) - 1;
            } else {
                split.push_back(Arguments::guarded(argument));
                const bool isWhole = argument == name;
                if (option)
                    values = isWhole ? valuesOf(*option) : 0;
                else if (values > 0)
                    --values;
            }
        }
        return split;
    }

    /// The reason against an option's name in the place of another option's value, or "". Such a
    /// value is far more often an empty variable of a script.
    std::string swallowedOption(const std::vector<std::string>& arguments) const
    {
        const CLI::Option* option = nullptr;
        int values = 0;
        for (const std::string& argument : arguments) {
            const CLI::Option* const named = optionNamed(argument, arguments);
            if (argument == "--" && values == 0)
                break;
            if (values > 0 && (named || argument == "-h"))
                return reasonAgainst(*option, argument);
            option = values > 0 ? option : named;
            values = values > 0 ? values - 1 : named ? valuesOf(*named) : 0;
        }
        return std::string();
    }

    static std::string reasonAgainst(const CLI::Option& option, const std::string& value)
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
        const CLI::App* const app =
            isCommand(arguments.front()) ? m_app.get_subcommand(arguments.front()) : &m_app;
        const bool isLong = name.compare(0, 2, "--") == 0 && name.size() > 2;
        const bool isShort = name.size() == 2 && name[0] == '-' && name[1] != '-';
        return isLong || isShort ? app->get_option_no_throw(name) : nullptr;
    }

    /// What is not known says more than what is missing on account of it.
    std::string missing(const CLI::RequiredError& error) const
    {
        const std::vector<std::string> unknown = m_app.remaining(true);
        if (!unknown.empty())
            return '"' + unknown.front() + "\" is not known";
        return m_app.get_subcommands().empty() ? "a command is missing; --help lists them"
                                               : error.what();
    }

    int printed(const std::string& text) const
    {
        Task task(m_environment, "");
        task.report.printRaw(QByteArray::fromStdString(text));
        return finish(&task);
    }

    int finish(Task* task) const
    {
        return task->report.finish(*m_environment, task->inputs, &task->findings);
    }

    /// The one that \p arguments name, or "".
    const char* commandIn(const std::vector<std::string>& arguments) const
    {
        for (const auto& command : m_commands) {
            if (!arguments.empty() && command->name() == arguments.front())
                return command->name();
        }
        return "";
    }

    int refused(const std::vector<std::string>& arguments, const std::string& reason) const
    {
        Task task(m_environment, commandIn(arguments));
        task.report.json =
            std::find(arguments.begin(), arguments.end(), "--json") != arguments.end();
        task.findings.error(
            ExitCode::Refused, QString(), QString(),
            shownText(QString::fromLocal8Bit(Arguments::unguarded(reason).c_str())));
        return finish(&task);
    }

    const Environment* m_environment;
    CLI::App m_app;
    std::vector<std::unique_ptr<Command>> m_commands;
    std::vector<CLI::App*> m_apps;
    bool m_json = false;
    bool m_quiet = false;
};

} // namespace

int runCommandLine(const std::vector<std::string>& arguments, const Environment& environment)
{
    return CommandLine(&environment).run(arguments);
}
