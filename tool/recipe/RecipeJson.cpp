#include "tool/recipe/RecipeJson.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"
#include "tool/recipe/RecipeReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QSet>

#include <cctype>
#include <vector>

namespace {

constexpr int RecipeVersion = 2;
const QString RecipeKey = "recipe";
const QString DescriptionFileKey = "descriptionFile";
/// It names the schema to editors.
const QString SchemaKey = "$schema";

QJsonValue asJson(const QString& text) { return text; }
QJsonValue asJson(qint32 number) { return number; }
QJsonValue asJson(Version version) { return version.text(); }

QJsonValue asJson(const QVector<FcfFunction>& functions)
{
    QJsonArray array;
    for (const FcfFunction& function : functions) {
        QJsonObject texts;
        for (const auto& field : FcfLayout::FunctionTexts)
            texts[QLatin1String(field.name)] = function.*field.value;
        array.append(texts);
    }
    return array;
}

/// The value of the string literal \p literal: a name can be written with different escapes.
QString unescaped(const QString& literal)
{
    const QByteArray array = '[' + literal.toUtf8() + ']';
    return QJsonDocument::fromJson(array).array().at(0).toString();
}

/// The first name that one object of \p json, which must be valid, has twice. A parser keeps one of
/// the two values alone.
std::optional<QString> repeatedName(const QString& json)
{
    // A brace, or a string, which is a name if a colon follows.
    static const QRegularExpression token(R"((?s)[{}]|("(?:[^"\\]++|\\.)*+")(\s*:)?)");

    std::vector<QSet<QString>> namesOfObjects;
    for (auto tokens = token.globalMatch(json); tokens.hasNext();) {
        const QRegularExpressionMatch match = tokens.next();
        const bool isName = match.capturedLength(2) > 0;
        if (match.capturedView() == QLatin1String("{")) {
            namesOfObjects.emplace_back();
        } else if (match.capturedView() == QLatin1String("}")) {
            namesOfObjects.pop_back();
        } else if (isName) {
            const QString name = unescaped(match.captured(1));
            if (namesOfObjects.back().contains(name))
                return name;

            namesOfObjects.back() << name;
        }
    }
    return std::nullopt;
}

/// The line and column of a mistake that the parser found before \p offset, both counted from 1,
/// the column in letters.
QString placeOf(int offset, const QByteArray& json)
{
    // Unless the text ends too early, the parser has passed the letter that it did not expect.
    const bool hasPassed = offset > 0 && offset < json.size() && !std::isspace(json.at(offset - 1));
    const QByteArray before = json.left(hasPassed ? offset - 1 : offset);
    const auto lineStart = before.lastIndexOf('\n') + 1;
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(QString::fromUtf8(before.mid(lineStart)).size() + 1);
}

void checkRecipeVersion(const QJsonValue& value, RecipeReader* reader)
{
    if (value.isUndefined()) {
        reader->refuse(RecipeKey, "is missing: this is not a recipe");
        return;
    }

    std::optional<qint32> version;
    reader->read(value, RecipeKey, &version);
    if (version && *version != RecipeVersion)
        reader->refuse(
            RecipeKey,
            QStringLiteral("is %1, but only %2 is known").arg(*version).arg(RecipeVersion));
}

/// Reads all of \p object behind its version.
Recipe readFields(QJsonObject object, RecipeReader* reader)
{
    Recipe recipe;
    forEachRecipeField([&](const auto& field) {
        const QJsonValue value = object.take(QLatin1String(field.name));
        if (!value.isUndefined())
            reader->read(value, QLatin1String(field.name), &(recipe.*field.value));
    });

    const QJsonValue file = object.take(DescriptionFileKey);
    if (!file.isUndefined())
        reader->read(file, DescriptionFileKey, &recipe.descriptionFile);
    if (recipe.description && recipe.descriptionFile)
        reader->refuse(DescriptionFileKey, "is given, and a description as well");

    object.remove(SchemaKey);
    reader->refuseUnknown(object, QString());
    return recipe;
}

} // namespace

QJsonObject RecipeJson::fields(const Recipe& recipe)
{
    QJsonObject object;
    forEachRecipeField([&](const auto& field) {
        if (recipe.*field.value)
            object[QLatin1String(field.name)] = asJson(*(recipe.*field.value));
    });
    return object;
}

QByteArray RecipeJson::write(const Recipe& recipe)
{
    QJsonObject object = fields(recipe);
    object[RecipeKey] = RecipeVersion;
    return asPrintable(QJsonDocument(object).toJson());
}

tl::expected<Recipe, QList<Finding>> RecipeJson::read(const QByteArray& json, const QString& label)
{
    RecipeReader reader(label);

    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        reader.refuse(QString(),
                      QStringLiteral("is not JSON: %1 at %2")
                          .arg(parseError.errorString(), placeOf(parseError.offset, json)));
        return tl::make_unexpected(reader.errors());
    }

    if (const auto repeated = repeatedName(QString::fromUtf8(json.constData(), json.size())))
        reader.refuse(*repeated, "is given twice");
    QJsonObject object = document.object();
    checkRecipeVersion(object.take(RecipeKey), &reader);
    // Findings about the rest of another file, or of a later version, would be of no use.
    if (!reader.errors().isEmpty())
        return tl::make_unexpected(reader.errors());

    const Recipe recipe = readFields(object, &reader);
    if (!reader.errors().isEmpty())
        return tl::make_unexpected(reader.errors());
    return recipe;
}
