#include "reference/Commands.h"
#include "reference/Passage.h"

#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "tool/recipe/HeaderJson.h"
#include "tool/recipe/Recipe.h"

#include <limits>

namespace {

const QString Text = R"("type": "string")";
const QString Functions = R"("type": "array", "items": {"$ref": "#/definitions/function"})";

QString quotedList(const QStringList& texts) { return "[\"" + texts.join("\", \"") + "\"]"; }

QString integer(int minimum, int maximum)
{
    return QStringLiteral(R"("type": "integer", "minimum": %1, "maximum": %2)")
        .arg(minimum)
        .arg(maximum);
}

/// A member of "properties" \p blanks from the left.
QString property(int blanks, const QString& name, const QString& type)
{
    return QString(blanks, ' ') + '"' + name + "\": {" + type + "},\n";
}

/// \p members without the comma behind the last.
QString joined(QString members) { return members.remove(members.size() - 2, 1); }

// The fields of a recipe.

QString description(const char* help)
{
    return ", \"description\": \"" + capitalised(brief(help)) + ".\"";
}

QString typeOf(const RecipeField<QString>& field)
{
    if (field.value == &Recipe::module)
        return "\"enum\": " + quotedList(FcfTarget::modules()) + description(field.help);
    if (field.value == &Recipe::device)
        return "\"enum\": " + quotedList(allDevices()) + description(field.help);
    return Text + description(field.help);
}

QString typeOf(const RecipeField<qint32>& slot)
{
    return integer(FcfTarget::FirstSlot, FcfTarget::LastSlot) + description(slot.help);
}

QString typeOf(const RecipeField<Version>& /*version*/)
{
    return Text + R"(, "pattern": "^[0-9]+\\.[0-9]+$", "description": "Two numbers, as \"1.12\".")";
}

QString typeOf(const RecipeField<QVector<FcfFunction>>& /*functions*/) { return Functions; }

QString recipeFields()
{
    QString fields;
    forEachRecipeField(
        [&](const auto& field) { fields += property(8, field.name, typeOf(field)); });
    return joined(fields);
}

// The fields of results.

QString functionFields()
{
    QStringList names;
    for (const auto& field : FcfLayout::FunctionTexts)
        names << field.name;
    const QString properties =
        each(names, [](const QString& name) { return property(16, name, Text); });
    return "            \"required\": " + quotedList(names) + ",\n            \"properties\": {\n" +
           joined(properties) + "            }\n";
}

/// As in the header of an empty page, where a module and a device without a name are null.
QString typeOf(const QJsonValue& value)
{
    if (value.isDouble())
        return integer(std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::max());
    if (value.isArray())
        return Functions;
    return value.isString() ? Text : R"("type": ["string", "null"])";
}

QString headerFields()
{
    const QJsonObject header = HeaderJson::object(FcfHeader());
    const QString properties = each(header.keys(), [&](const QString& name) {
        return property(16, name, typeOf(header[name]));
    });
    return "            \"required\": " + quotedList(header.keys()) +
           ",\n            \"properties\": {\n" + joined(properties) + "            }\n";
}

/// The commands; a run that was refused may have none.
QString commandNames()
{
    QStringList names("");
    for (const DeclaredCommand& command : declaredCommands())
        names << command.name;
    return "            \"enum\": " + quotedList(names) + '\n';
}

} // namespace

QList<Passage> schemaPassages()
{
    const QString recipe = "docs/schemas/recipe.schema.json";
    const QString result = "docs/schemas/result.schema.json";
    return {
        {recipe, "fields", recipeFields()},   {recipe, "function", functionFields()},
        {result, "commands", commandNames()}, {result, "function", functionFields()},
        {result, "header", headerFields()},
    };
}
