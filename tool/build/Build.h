#ifndef TOOL_BUILD_BUILD_H
#define TOOL_BUILD_BUILD_H

#include "fcf/FcfHeader.h"

#include <QHash>
#include <QSet>
#include <QString>
#include <QVector>

#include <optional>

struct Version {
    qint32 major = 0;
    qint32 minor = 0;

    /// As in "1.12".
    QString text() const;
    /// Nothing if \p text is not two decimal numbers.
    static std::optional<Version> of(const QString& text);
};

/// \p text as a number of decimal digits alone; QString::toInt() would take blanks and signs too.
std::optional<qint32> wholeNumber(const QString& text);

/// What a user says about a build: the header but for what follows from the binary, the clock and
/// the image's name. What was not said is empty.
struct Build {
    std::optional<QString> author;
    std::optional<QString> ciNumber;
    std::optional<QString> module;
    std::optional<QString> device;
    std::optional<qint32> configNumber;
    std::optional<Version> version;
    std::optional<QString> description;
    std::optional<QVector<FcfFunction>> functions;
    /// Where a recipe has the description, seen from its own folder.
    std::optional<QString> descriptionFile;

    /// The files that the fields were taken from, by their names; those of the command line have
    /// none.
    QHash<QString, QString> origins;
    /// The names of fields that were said in a way that was refused already.
    QSet<QString> refused;

    /// Takes from \p other whatever was not said here; it comes from the file \p origin.
    void complete(const Build& other, const QString& origin);

    /// What \p header says. Codes without a target leave it unsaid.
    static Build of(const FcfHeader& header);

    /// Puts all that was said into \p header, the target as codes, the texts as a file has them.
    void describe(FcfHeader* header) const;
};

/// One field of a build, for all that goes through them: options, recipes, headers.
template <class Value>
struct BuildField {
    /// In JSON and in messages.
    const char* name;
    const char* option;
    /// What help calls the option's value.
    const char* type;
    const char* help;
    bool isRequired;
    std::optional<Value> Build::*value;
    /// Null where a header has it as codes or as two numbers.
    Value FcfHeader::*header;
};

/// Calls \p visit with each field, in the order of the manual.
template <class Visit>
void forEachBuildField(Visit visit)
{
    using Text = BuildField<QString>;
    visit(Text{"author", "--author", "TEXT", "who built it", true, &Build::author,
               &FcfHeader::author});
    visit(Text{"ciNumber", "--ci", "TEXT", "configuration item number of the build", true,
               &Build::ciNumber, &FcfHeader::ciNumber});
    visit(Text{"module", "--module", "NAME", "see below", true, &Build::module, nullptr});
    visit(Text{"device", "--device", "NAME", "a device of the module, see below", true,
               &Build::device, nullptr});
    visit(BuildField<qint32>{"configNumber", "--config", "SLOT", "flash slot, 1 to 10", true,
                             &Build::configNumber, &FcfHeader::configNumber});
    visit(BuildField<Version>{"version", "--version", "MAJOR.MINOR", "version of the build", true,
                              &Build::version, nullptr});
    visit(Text{"description", "--description", "TEXT|@FILE",
               "what the build is; @FILE takes the text of a file, @@TEXT is @TEXT (default: none)",
               false, &Build::description, &FcfHeader::description});
    visit(BuildField<QVector<FcfFunction>>{
        "functions", "--function", "NAME AUTHOR CI DESCRIPTION",
        "a function in the build, four arguments; may be repeated (default: none)", false,
        &Build::functions, &FcfHeader::functions});
}

#endif
