#include "reference/Commands.h"

#include "fcf/FcfTarget.h"
#include "tool/commands/Command.h"

#include <CLI/CLI.hpp>

#include <QRegularExpression>

namespace {

Option optionOf(const CLI::Option& declared)
{
    Option option;
    option.name = QString::fromStdString("--" + declared.get_lnames().front());
    if (!declared.get_snames().empty())
        option.shortName = QString::fromStdString('-' + declared.get_snames().front());
    option.type = QString::fromStdString(declared.get_type_name());
    option.help = QString::fromStdString(declared.get_description());
    option.title = QString::fromStdString(declared.get_group());
    option.isFlag = declared.get_expected_max() == 0;
    option.isRepeated = declared.get_expected_max() > 1;
    return option;
}

DeclaredCommand commandOf(const CLI::App& app)
{
    DeclaredCommand command;
    command.name = QString::fromStdString(app.get_name());
    command.summary = QString::fromStdString(app.get_description());
    for (const CLI::Option* const option : app.get_options()) {
        if (!option->get_positional() && option != app.get_help_ptr())
            command.options << optionOf(*option);
    }
    return command;
}

} // namespace

QString brief(QString help)
{
    static const QRegularExpression parentheses(R"( \([^)]*\))");
    static const QRegularExpression rest("(; |: |, as \"|, see below).*");
    return help.remove(parentheses).remove(rest);
}

QList<DeclaredCommand> declaredCommands()
{
    CLI::App app;
    QList<DeclaredCommand> declared;
    for (const CommandPointer& command : addCommands(&app))
        declared << commandOf(*command->app);
    return declared;
}

QStringList allDevices()
{
    QStringList devices;
    for (const auto& target : FcfTarget::Targets)
        devices << target.device;
    devices.removeDuplicates();
    return devices;
}

QString capitalised(const QString& text) { return text.left(1).toUpper() + text.mid(1); }
