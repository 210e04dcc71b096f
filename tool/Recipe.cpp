#include "Recipe.h"

#include "fcf/FcfLayout.h"
#include "tool/JsonKeys.h"
#include "tool/TextRules.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <limits>

namespace {

constexpr int RecipeVersion = 1;
const QString VersionKey = QStringLiteral("recipe");

/// Takes the values out of one object. The first that is not as it should be ends the taking, and
/// so does what is left over in the end.
class Taker {
public:
    Taker(const QJsonObject& object, const QString& place, QString* field, QString* error)
        : m_object(object), m_place(place), m_field(field), m_error(error)
    {
    }

    bool text(const QString& key, std::optional<QString>* value)
    {
        if (!m_object.contains(key))
            return true;
        const QJsonValue taken = m_object.take(key);
        if (!taken.isString())
            return fail(key, QStringLiteral("is not a text"));
        *value = taken.toString();
        return true;
    }

    bool number(const QString& key, std::optional<qint32>* value)
    {
        if (!m_object.contains(key))
            return true;
        const QJsonValue taken = m_object.take(key);
        const double number = taken.toDouble();
        const bool fits = number >= std::numeric_limits<qint32>::min() &&
                          number <= std::numeric_limits<qint32>::max();
        if (!taken.isDouble() || !fits || number != static_cast<qint32>(number))
            return fail(key, QStringLiteral("is not a whole number of 32 bits"));
        *value = static_cast<qint32>(number);
        return true;
    }

    /// Undefined when there is none.
    QJsonValue value(const QString& key) { return m_object.take(key); }

    bool nothingLeft()
    {
        return m_object.isEmpty() ||
               fail(m_object.keys().first(), QStringLiteral("is not known in a recipe"));
    }

    bool fail(const QString& key, const QString& error)
    {
        *m_field = m_place + key;
        *m_error = error;
        return false;
    }

private:
    QJsonObject m_object;
    QString m_place;
    QString* m_field;
    QString* m_error;
};

bool readVersion(const QJsonValue& value, Build* build, QString* field, QString* error)
{
    if (!value.isObject()) {
        *field = QStringLiteral("version");
        *error = QStringLiteral("is not an object of \"major\" and \"minor\"");
        return false;
    }
    Taker taker(value.toObject(), QStringLiteral("version."), field, error);
    std::optional<qint32> major;
    std::optional<qint32> minor;
    if (!taker.number(QStringLiteral("major"), &major) ||
        !taker.number(QStringLiteral("minor"), &minor) || !taker.nothingLeft())
        return false;
    if (!major)
        return taker.fail(QStringLiteral("major"), QStringLiteral("is missing"));
    if (!minor)
        return taker.fail(QStringLiteral("minor"), QStringLiteral("is missing"));
    build->version = Version{*major, *minor};
    return true;
}

bool readFunction(const QJsonValue& value, int index, Build* build, QString* field, QString* error)
{
    Taker taker(value.toObject(), TextRules::fieldName("", index), field, error);
    if (!value.isObject()) {
        *field = QStringLiteral("functions[%1]").arg(index);
        *error = QStringLiteral("is not an object");
        return false;
    }
    FcfFunction function;
    for (const auto& text : FcfLayout::FunctionTexts) {
        std::optional<QString> taken;
        if (!taker.text(QLatin1String(text.name), &taken))
            return false;
        if (!taken)
            return taker.fail(QLatin1String(text.name), QStringLiteral("is missing"));
        function.*text.value = *taken;
    }
    build->functions->append(function);
    return taker.nothingLeft();
}

bool readFunctions(const QJsonValue& value, Build* build, QString* field, QString* error)
{
    if (!value.isArray()) {
        *field = QStringLiteral("functions");
        *error = QStringLiteral("is not a list");
        return false;
    }
    build->functions.emplace();
    int index = 0;
    for (const auto& function : value.toArray()) {
        if (!readFunction(function, index, build, field, error))
            return false;
        ++index;
    }
    return true;
}

} // namespace

QByteArray Recipe::write(const Build& build)
{
    QJsonObject object;
    object[VersionKey] = RecipeVersion;
    if (build.author)
        object["author"] = *build.author;
    if (build.ciNumber)
        object["ciNumber"] = *build.ciNumber;
    if (build.module)
        object["module"] = *build.module;
    if (build.device)
        object["device"] = *build.device;
    if (build.configNumber)
        object["configNumber"] = *build.configNumber;
    if (build.version)
        object["version"] =
            QJsonObject{{"major", build.version->major}, {"minor", build.version->minor}};
    if (build.description)
        object["description"] = *build.description;
    if (build.functions) {
        QJsonArray functions;
        for (const FcfFunction& function : *build.functions) {
            QJsonObject texts;
            for (const auto& text : FcfLayout::FunctionTexts)
                texts[QLatin1String(text.name)] = function.*text.value;
            functions.append(texts);
        }
        object["functions"] = functions;
    }
    // As it is, a reader would take it for the mark at the start of a file, and drop it.
    return QJsonDocument(object).toJson().replace("\xef\xbb\xbf", "\\ufeff");
}

bool Recipe::read(const QByteArray& json, Build* build, QString* field, QString* error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    Taker taker(document.object(), QString(), field, error);
    if (parseError.error != QJsonParseError::NoError)
        return taker.fail(QString(), QStringLiteral("is not JSON: %1 at offset %2")
                                         .arg(parseError.errorString())
                                         .arg(parseError.offset));

    if (const auto repeated = JsonKeys::repeated(json))
        return taker.fail(*repeated, QStringLiteral("is given twice"));

    std::optional<qint32> recipeVersion;
    if (!document.isObject() || !document.object().contains(VersionKey))
        return taker.fail(VersionKey, QStringLiteral("is missing: this is not a recipe"));
    if (!taker.number(VersionKey, &recipeVersion))
        return false;
    if (*recipeVersion != RecipeVersion)
        return taker.fail(
            VersionKey,
            QStringLiteral("is %1, but only %2 is known").arg(*recipeVersion).arg(RecipeVersion));

    const QJsonValue version = taker.value(QStringLiteral("version"));
    const QJsonValue functions = taker.value(QStringLiteral("functions"));
    if (!taker.text(QStringLiteral("author"), &build->author) ||
        !taker.text(QStringLiteral("ciNumber"), &build->ciNumber) ||
        !taker.text(QStringLiteral("module"), &build->module) ||
        !taker.text(QStringLiteral("device"), &build->device) ||
        !taker.number(QStringLiteral("configNumber"), &build->configNumber) ||
        !taker.text(QStringLiteral("description"), &build->description) || !taker.nothingLeft())
        return false;
    if (!version.isUndefined() && !readVersion(version, build, field, error))
        return false;
    return functions.isUndefined() || readFunctions(functions, build, field, error);
}
