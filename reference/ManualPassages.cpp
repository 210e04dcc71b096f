#include "reference/Commands.h"
#include "reference/Passage.h"

#include "fcf/FcfTarget.h"

namespace {

QString entry(const Option& option)
{
    const QString shortName = option.shortName.isEmpty() ? "" : '*' + option.shortName + "*, ";
    const QString type = option.isFlag ? "" : " _" + option.type + '_';
    return shortName + '*' + option.name + '*' + type + "\n\t" + capitalised(option.help) + ".\n\n";
}

/// The options of \p command, under the same titles as in its help.
QString section(const DeclaredCommand& command)
{
    QStringList titles;
    for (const Option& option : command.options)
        titles << option.title;
    titles.removeDuplicates();
    titles.removeAll("");

    return each(titles, [&](const QString& title) {
        const QString heading = "## Options of " + command.name +
                                (title == "Options" ? "" : ": " + title.toLower()) + "\n\n";
        return heading + each(command.options, [&](const Option& option) {
                   return option.title == title ? entry(option) : QString();
               });
    });
}

/// "*A*, *B* or *C*"
QString enumerated(QStringList names)
{
    const QString last = '*' + names.takeLast() + '*';
    return names.isEmpty() ? last : '*' + names.join("*, *") + "* or " + last;
}

QString targets()
{
    QStringList modules;
    for (const QString& module : FcfTarget::modules())
        modules << '*' + module + "* with " + enumerated(FcfTarget::devicesOf(module));
    return "*--module* _NAME_, *--device* _NAME_\n\tThe target: " + modules.join("; ") + ".\n";
}

} // namespace

QList<Passage> manualPassages()
{
    const QString manual = "packaging/man/pelk-fcf.1.scd";
    return {
        {manual, "options", each(declaredCommands(), section)},
        {manual, "targets", targets()},
    };
}
