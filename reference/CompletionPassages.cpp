#include "reference/Commands.h"
#include "reference/Passage.h"

#include "fcf/FcfHeader.h"
#include "fcf/FcfTarget.h"
#include "tool/recipe/HeaderJson.h"

#include <QRegularExpression>

namespace {

using Commands = QList<DeclaredCommand>;

/// What completes the value of an option.
struct Values {
    QStringList words;
    /// The endings of files.
    QStringList endings;
    bool isAnyFile = false;
    /// Those of the module that was given.
    bool areDevices = false;
};

QStringList slotNumbers()
{
    QStringList numbers;
    for (int number = FcfTarget::FirstSlot; number <= FcfTarget::LastSlot; ++number)
        numbers << QString::number(number);
    return numbers;
}

Values valuesOf(const Option& option)
{
    Values values;
    // Of a type like "page|block|BYTES", the words in small letters are taken as they are.
    static const QRegularExpression word("^[a-z]+$");
    values.words = option.type.split('|').filter(word);

    if (option.name == "--module")
        values.words = FcfTarget::modules();
    else if (option.name == "--device")
        values.areDevices = true;
    else if (option.name == "--config" || option.name == "--slot")
        values.words = slotNumbers();
    else if (option.name == "--field")
        values.words = HeaderJson::object(FcfHeader()).keys();
    else if (option.name == "--like")
        values.endings = QStringList{".fcf", ".txt", ".json"};
    else if (option.type == "BIN")
        values.endings = QStringList{".bin", ".bit"};
    else if (option.type == "TXT")
        values.endings = QStringList{".txt"};
    else
        values.isAnyFile = option.type == "FILE";
    return values;
}

/// \p text between single quotes; \p quote is how one in the text is written.
QString quoted(QString text, const char* quote) { return '\'' + text.replace('\'', quote) + '\''; }

QString inSh(const QString& text) { return quoted(text, "'\\''"); }
QString inFish(const QString& text) { return quoted(text, "\\'"); }

QString namesOf(const Commands& commands)
{
    return each(commands, [](const auto& command) { return command.name + ' '; }).trimmed();
}

/// What \p entry makes of each module and its devices, and of any module and all devices.
QString devices(const QString& anyModule, const QString& entry)
{
    return each(FcfTarget::modules(),
                [&](const QString& module) {
                    return entry.arg(module, FcfTarget::devicesOf(module).join(' '));
                }) +
           entry.arg(anyModule, allDevices().join(' '));
}

/// A function of bash and zsh that takes one of \p cases by its argument.
QString function(const QString& comment, const QString& name, const QString& cases)
{
    return "# " + comment + '\n' + name + "() {\n    case $1 in\n" + cases + "    esac\n}\n";
}

QString devicesInSh()
{
    return function("The devices of the module $1, or of any.", "_pelk_fcf_devices_of",
                    devices("*", "    %1) echo %2 ;;\n"));
}

// Bash.

QString bashAction(const Values& values)
{
    if (values.areDevices)
        return "_pelk_fcf_devices ";
    if (values.isAnyFile)
        return "_pelk_fcf_files '' ";
    if (!values.endings.isEmpty())
        return "_pelk_fcf_files " + values.endings.join(' ') + ' ';
    return values.words.isEmpty() ? "" : "_pelk_fcf_words " + values.words.join(' ') + ' ';
}

QString bashOptions(const DeclaredCommand& command)
{
    const QString names = each(command.options, [](const Option& option) {
        return option.title.isEmpty() ? QString() : option.name + ' ';
    });
    return "    " + command.name + ") echo " + names + ";;\n";
}

QString bashValues(const DeclaredCommand& command)
{
    return each(command.options, [&](const Option& option) {
        if (option.isFlag)
            return QString();

        const QString start = command.name + ' ';
        const QString other =
            option.shortName.isEmpty() ? "" : " | " + inSh(start + option.shortName);
        return "    " + inSh(start + option.name) + other + ") " + bashAction(valuesOf(option)) +
               ";;\n";
    });
}

QString bashWords(const Commands& commands)
{
    return "_pelk_fcf_commands='" + namesOf(commands) + "'\n\n" + devicesInSh() + '\n' +
           function("The options that the command $1 alone has.", "_pelk_fcf_options_of",
                    each(commands, bashOptions)) +
           '\n' +
           function("Completes the value of an option, \"COMMAND OPTION\"; fails if it has none.",
                    "_pelk_fcf_value_of", each(commands, bashValues) + "    *) return 1 ;;\n");
}

// Zsh.

QString zshAction(const Values& values)
{
    if (values.areDevices)
        return "_pelk_fcf_device";
    if (values.isAnyFile)
        return "_files";
    if (!values.endings.isEmpty())
        return "_files -g \"*(" + values.endings.join('|') + ")\"";
    return values.words.isEmpty() ? " " : '(' + values.words.join(' ') + ')';
}

/// The values of \p option for _arguments. A function has several, each with a name of one word.
QString zshValues(const Option& option)
{
    if (option.isFlag)
        return QString();

    // What help does not show has no type.
    const QString type = option.type.isEmpty() ? option.name : option.type;
    const QStringList types = option.isRepeated ? type.split(' ') : QStringList(type);
    return each(types, [&](QString name) {
        return ':' + name.replace(':', "\\:") + ':' + zshAction(valuesOf(option));
    });
}

QString zshOption(const Option& option)
{
    const QString description = '[' + brief(option.help) + ']' + zshValues(option);
    const QString equals = option.isFlag || option.isRepeated ? "" : "=";
    const QString name = option.name + equals;
    if (option.title.isEmpty())
        return inSh('!' + name + zshValues(option));
    if (option.shortName.isEmpty())
        return inSh((option.isRepeated ? '*' + name : name) + description);

    const QString shortName = option.shortName + (option.isFlag ? "" : "+");
    return "'(" + option.shortName + ' ' + option.name + ")'{" + shortName + ',' + name + '}' +
           inSh(description);
}

QString zshOptions(const DeclaredCommand& command)
{
    const QString options = each(command.options, [](const Option& option) {
        return "        " + zshOption(option) + '\n';
    });
    return "    " + command.name + ") options=(\n" + options + "    ) ;;\n";
}

QString zshWords(const Commands& commands)
{
    const QString summaries = each(commands, [](const DeclaredCommand& command) {
        return "    " + inSh(command.name + ':' + command.summary) + '\n';
    });
    return "# Sets commands to the names of all and what they do.\n"
           "_pelk_fcf_set_commands() {\n    commands=(\n" +
           summaries + "    )\n}\n\n" + devicesInSh() + '\n' +
           function("Sets options to those that the command $1 alone has.", "_pelk_fcf_set_options",
                    each(commands, zshOptions));
}

// Fish.

QString fishAction(const Values& values)
{
    if (values.areDevices)
        return "-x -a '(__pelk_fcf_devices)' ";
    if (values.isAnyFile)
        return "-r -F ";
    if (!values.endings.isEmpty())
        return "-x -a '(__pelk_fcf_files " + values.endings.join(' ') + ")' ";
    return values.words.isEmpty() ? "-x " : "-x -a '" + values.words.join(' ') + "' ";
}

QString fishOption(const QString& command, const Option& option)
{
    // Another name of an option is offered to nobody, but its values are.
    const QString whenTyped =
        "; and string match -q -- \"*" + option.name + "*\" (commandline -pc)";
    const QString condition =
        "__pelk_fcf_command " + command + (option.title.isEmpty() ? whenTyped : "");
    const QString shortName =
        option.shortName.isEmpty() ? "" : "-s " + option.shortName.mid(1) + ' ';
    const QString action = option.isFlag ? "" : fishAction(valuesOf(option));
    return "complete -c pelk-fcf -n '" + condition + "' " + shortName + "-l " + option.name.mid(2) +
           ' ' + action + "-d " + inFish(capitalised(brief(option.help))) + '\n';
}

QString fishWords(const Commands& commands)
{
    const QString summaries = each(commands, [](const DeclaredCommand& command) {
        return "complete -c pelk-fcf -n \"not __pelk_fcf_command $commands help\" -a " +
               command.name + " -d " + inFish(command.summary) + '\n';
    });
    const QString options = each(commands, [](const DeclaredCommand& command) {
        return each(command.options,
                    [&](const Option& option) { return fishOption(command.name, option); });
    });
    return "set -l commands " + namesOf(commands) +
           "\n\nfunction __pelk_fcf_devices_of\n    switch \"$argv[1]\"\n" +
           devices("'*'", "        case %1\n            printf '%s\\n' %2\n") + "    end\nend\n\n" +
           summaries + options;
}

} // namespace

QList<Passage> completionPassages()
{
    const Commands commands = declaredCommands();
    return {
        {"packaging/completions/pelk-fcf.bash", "words", bashWords(commands)},
        {"packaging/completions/_pelk-fcf", "words", zshWords(commands)},
        {"packaging/completions/pelk-fcf.fish", "words", fishWords(commands)},
    };
}
