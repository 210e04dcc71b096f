#include "tool/build/BuildJson.h"

#include "fcf/FcfLayout.h"
#include "tool/base/Text.h"

#include <QJsonDocument>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <limits>
#include <vector>

namespace {

constexpr int RecipeVersion = 2;
const QString RecipeKey = "recipe";
const QString DescriptionFileKey = "descriptionFile";

template <class Record, int Count>
void addTexts(const FcfLayout::TextField<Record> (&fields)[Count], const Record& record,
              QJsonObject* object)
{
    for (const auto& field : fields)
        (*object)[QLatin1String(field.name)] = record.*field.value;
}

QJsonValue asJson(const QString& text) { return text; }
QJsonValue asJson(qint32 number) { return number; }
QJsonValue asJson(Version version) { return version.text(); }

QJsonValue asJson(const QVector<FcfFunction>& functions)
{
    QJsonArray array;
    for (const FcfFunction& function : functions) {
        QJsonObject texts;
        addTexts(FcfLayout::FunctionTexts, function, &texts);
        array.append(texts);
    }
    return array;
}

QJsonObject asJson(const Build& build)
{
    QJsonObject object;
    forEachBuildField([&](const auto& field) {
        if (build.*field.value)
            object[QLatin1String(field.name)] = asJson(*(build.*field.value));
    });
    return object;
}

/// The first name that one object of \p json, which must be valid, gives twice. A parser keeps just
/// one of the two values.
std::optional<QString> repeatedName(const QString& json)
{
    static const QRegularExpression token(R"((?s)[{}]|("(?:[^"\\]++|\\.)*+")(\s*:)?)");
    std::vector<QSet<QString>> names;
    for (auto tokens = token.globalMatch(json); tokens.hasNext();) {
        const QRegularExpressionMatch match = tokens.next();
        if (match.capturedView() == QLatin1String("{")) {
            names.emplace_back();
        } else if (match.capturedView() == QLatin1String("}")) {
            names.pop_back();
        } else if (match.capturedLength(2) > 0) {
            // The same name can be written with different escapes.
            const QByteArray string = '[' + match.captured(1).toUtf8() + ']';
            const QString name = QJsonDocument::fromJson(string).array().at(0).toString();
            if (names.back().contains(name))
                return name;
            names.back() << name;
        }
    }
    return std::nullopt;
}

/// Reads values, and collects what is wrong with them under their names.
class RecipeReader {
public:
    explicit RecipeReader(const QString& label) : m_label(label) {}

    QList<Finding> errors;

    void fail(const QString& name, const QString& reason)
    {
        errors.append(failure(ExitCode::Refused, m_label, name, reason).value());
    }

    void read(const QJsonValue& value, const QString& name, std::optional<QString>* text)
    {
        if (value.isString())
            *text = value.toString();
        else
            fail(name, "is not a text");
    }

    void read(const QJsonValue& value, const QString& name, std::optional<qint32>* number)
    {
        const double given = value.toDouble();
        const bool fits = given >= std::numeric_limits<qint32>::min() &&
                          given <= std::numeric_limits<qint32>::max();
        if (value.isDouble() && fits && given == static_cast<qint32>(given))
            *number = static_cast<qint32>(given);
        else
            fail(name, "is not a whole number of 32 bits");
    }

    void read(const QJsonValue& value, const QString& name, std::optional<Version>* version)
    {
        if (!value.isObject()) {
            *version = Version::of(value.toString());
            if (!*version)
                fail(name, "is not two numbers like \"1.12\"");
            return;
        }
        QJsonObject object = value.toObject();
        std::optional<qint32> major;
        std::optional<qint32> minor;
        readRequired(&object, name + QLatin1Char('.'), "major", &major);
        readRequired(&object, name + QLatin1Char('.'), "minor", &minor);
        refuseRest(object, name + QLatin1Char('.'));
        *version = Version{major.value_or(0), minor.value_or(0)};
    }

    void read(const QJsonValue& value, const QString& name,
              std::optional<QVector<FcfFunction>>* functions)
    {
        if (!value.isArray()) {
            fail(name, "is not a list");
            return;
        }
        functions->emplace();
        int index = 0;
        for (const auto& function : value.toArray()) {
            const QString place = QStringLiteral("%1[%2]").arg(name).arg(index++);
            if (function.isObject())
                (*functions)->append(readFunction(function.toObject(), place + QLatin1Char('.')));
            else
                fail(place, "is not an object");
        }
    }

    void refuseRest(const QJsonObject& object, const QString& place)
    {
        for (const QString& name : object.keys())
            fail(place + name, "is not known in a recipe");
    }

private:
    FcfFunction readFunction(QJsonObject object, const QString& place)
    {
        FcfFunction function;
        for (const auto& field : FcfLayout::FunctionTexts) {
            std::optional<QString> text;
            readRequired(&object, place, field.name, &text);
            function.*field.value = text.value_or(QString());
        }
        refuseRest(object, place);
        return function;
    }

    template <class Value>
    void readRequired(QJsonObject* object, const QString& place, const char* key,
                      std::optional<Value>* value)
    {
        const QString name = place + QLatin1String(key);
        const QJsonValue taken = object->take(QLatin1String(key));
        if (taken.isUndefined())
            fail(name, "is missing");
        else
            read(taken, name, value);
    }

    const QString m_label;
};

/// The functions by their names; a name that several have gets a number.
QMap<QString, QJsonObject> byName(const QJsonArray& functions)
{
    QMap<QString, QJsonObject> all;
    for (const auto& function : functions) {
        const QString name = function.toObject()["name"].toString();
        QString key = name;
        for (int number = 2; all.contains(key); ++number)
            key = QStringLiteral("%1 #%2").arg(name).arg(number);
        all[key] = function.toObject();
    }
    return all;
}

/// Adds the values that differ to \p fields, as objects of "field", "a" and "b".
void compare(const QString& place, const QJsonObject& a, const QJsonObject& b, QJsonArray* fields)
{
    for (const QString& key : a.keys()) {
        if (a[key] != b[key])
            fields->append(QJsonObject{{"field", place + key}, {"a", a[key]}, {"b", b[key]}});
    }
}

void checkRecipeVersion(const QJsonValue& value, RecipeReader* reader)
{
    std::optional<qint32> version;
    if (value.isUndefined())
        reader->fail(RecipeKey, "is missing: this is not a recipe");
    else
        reader->read(value, RecipeKey, &version);
    if (version && (*version < 1 || *version > RecipeVersion))
        reader->fail(
            RecipeKey,
            QStringLiteral("is %1, but only 1 to %2 are known").arg(*version).arg(RecipeVersion));
}

} // namespace

QByteArray BuildJson::recipe(const Build& build)
{
    QJsonObject object = asJson(build);
    object[RecipeKey] = RecipeVersion;
    return asPrintable(QJsonDocument(object).toJson());
}

tl::expected<Build, QList<Finding>> BuildJson::readRecipe(const QByteArray& json,
                                                          const QString& label)
{
    RecipeReader reader(label);
    Build build;
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        reader.fail(QString(), QStringLiteral("is not JSON: %1 at offset %2")
                                   .arg(parseError.errorString())
                                   .arg(parseError.offset));
        return tl::make_unexpected(reader.errors);
    }
    if (const auto repeated = repeatedName(QString::fromUtf8(json.constData(), json.size())))
        reader.fail(*repeated, "is given twice");
    QJsonObject object = document.object();
    checkRecipeVersion(object.take(RecipeKey), &reader);
    // Of something else altogether, or of a later version, the rest is not worth a word.
    if (!reader.errors.isEmpty())
        return tl::make_unexpected(reader.errors);
    forEachBuildField([&](const auto& field) {
        const QJsonValue value = object.take(QLatin1String(field.name));
        if (!value.isUndefined())
            reader.read(value, QLatin1String(field.name), &(build.*field.value));
    });
    const QJsonValue file = object.take(DescriptionFileKey);
    if (!file.isUndefined())
        reader.read(file, DescriptionFileKey, &build.descriptionFile);
    if (build.description && build.descriptionFile)
        reader.fail(DescriptionFileKey, "is given, and a description as well");
    // It names the schema to editors.
    object.remove("$schema");
    reader.refuseRest(object, QString());
    if (!reader.errors.isEmpty())
        return tl::make_unexpected(reader.errors);
    return build;
}

QJsonObject BuildJson::header(const FcfHeader& header)
{
    QJsonObject object = asJson(Build::of(header));
    for (const auto& field : FcfLayout::Numbers)
        object[QLatin1String(field.name)] = header.*field.value;
    addTexts(FcfLayout::HeaderTexts, header, &object);
    for (const char* const name : {"module", "device"}) {
        if (!object.contains(QLatin1String(name)))
            object[QLatin1String(name)] = QJsonValue();
    }
    return object;
}

QJsonArray BuildJson::differences(const FcfHeader& headerA, const FcfHeader& headerB)
{
    QJsonArray fields;
    QJsonObject a = header(headerA);
    QJsonObject b = header(headerB);
    const auto own = byName(a.take("functions").toArray());
    const auto other = byName(b.take("functions").toArray());
    compare(QString(), a, b, &fields);
    QStringList names = own.keys() + other.keys();
    names.sort();
    names.removeDuplicates();
    const auto description = [](const auto& functions, const QString& name) {
        return functions.contains(name) ? functions[name]["description"] : QJsonValue();
    };
    for (const QString& name : names) {
        const QString place = QStringLiteral("functions[%1]").arg(name);
        if (own.contains(name) && other.contains(name))
            compare(place + QLatin1Char('.'), own[name], other[name], &fields);
        else
            fields.append(QJsonObject{
                {"field", place}, {"a", description(own, name)}, {"b", description(other, name)}});
    }
    return fields;
}
