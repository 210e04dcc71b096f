#ifndef TOOL_RECIPE_RECIPE_H
#define TOOL_RECIPE_RECIPE_H

#include "fcf/FcfHeader.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

#include <optional>

struct Version {
    qint32 major = 0;
    qint32 minor = 0;

    /// The version as a text like "1.12".
    QString text() const;
    /// Returns nothing if \p text is not two decimal numbers.
    static std::optional<Version> of(const QString& text);
};

/// \p text as a number of decimal digits alone; QString::toInt() would take blanks and signs too.
std::optional<qint32> wholeNumber(const QString& text);

/// What a user gives to describe a build: all of the header that does not follow from the binary,
/// the clock and the image's name. What was not given is empty.
struct Recipe {
    std::optional<QString> author;
    std::optional<QString> ciNumber;
    std::optional<QString> module;
    std::optional<QString> device;
    std::optional<qint32> configNumber;
    std::optional<Version> version;
    std::optional<QString> description;
    std::optional<QVector<FcfFunction>> functions;
    /// The file that has the description, seen from the folder of the recipe.
    std::optional<QString> descriptionFile;

    /// The files that fields were taken from, by the names of the fields. Fields of the command
    /// line have none.
    QHash<QString, QString> origins;
    /// The names of fields that were given, but refused already.
    QSet<QString> refused;

    /// Takes from \p other, which is from the file \p origin, what was not given here.
    void complete(const Recipe& other, const QString& origin);

    /// The recipe of \p header. Without a target if there is none for the codes.
    static Recipe of(const FcfHeader& header);

    /// Puts all that was given into \p header, the target as codes, the texts as a file has them.
    void fill(FcfHeader* header) const;
};

/// One field of a recipe, for all that handles every field: options, JSON, headers.
template <class Value>
struct RecipeField {
    /// Its name in JSON and in messages.
    const char* name;
    const char* option;
    /// What help calls the option's value.
    const char* type;
    const char* help;
    bool isRequired;
    std::optional<Value> Recipe::*value;
    /// Null where a header has it as codes or as two numbers.
    Value FcfHeader::*header;
};

/// Calls \p visit with each field, in the order of the manual.
template <class Visit>
void forEachRecipeField(Visit visit)
{
    using Text = RecipeField<QString>;
    visit(Text{"author", "--author", "TEXT", "who built it", true, &Recipe::author,
               &FcfHeader::author});
    visit(Text{"ciNumber", "--ci", "TEXT", "configuration item number of the build", true,
               &Recipe::ciNumber, &FcfHeader::ciNumber});
    visit(Text{"module", "--module", "NAME", "module of the processor, see below", true,
               &Recipe::module, nullptr});
    visit(Text{"device", "--device", "NAME", "a device of the module, see below", true,
               &Recipe::device, nullptr});
    visit(RecipeField<qint32>{"configNumber", "--config", "SLOT", "flash slot, 1 to 10", true,
                              &Recipe::configNumber, &FcfHeader::configNumber});
    visit(RecipeField<Version>{"version", "--version", "MAJOR.MINOR", "version of the build", true,
                               &Recipe::version, nullptr});
    visit(Text{"description", "--description", "TEXT|@FILE",
               "what the build is; @FILE takes the text of a file, @@TEXT is @TEXT (default: none)",
               false, &Recipe::description, &FcfHeader::description});
    visit(RecipeField<QVector<FcfFunction>>{
        "functions", "--function", "NAME AUTHOR CI DESCRIPTION",
        "a function in the build, four arguments; may be repeated (default: none)", false,
        &Recipe::functions, &FcfHeader::functions});
}

#endif
