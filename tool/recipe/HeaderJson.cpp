#include "tool/recipe/HeaderJson.h"

#include "fcf/FcfLayout.h"
#include "tool/recipe/RecipeJson.h"

#include <QMap>
#include <QStringList>

namespace {

/// Functions by their names; a name that several have gets a number.
struct Functions {
    explicit Functions(const QJsonArray& functions);

    bool contains(const QString& name) const { return byName.contains(name); }

    QMap<QString, QJsonObject> byName;
    /// Their names in the order of the file.
    QStringList names;
};

Functions::Functions(const QJsonArray& functions)
{
    for (const auto& function : functions) {
        const QString name = function.toObject()["name"].toString();
        QString key = name;
        for (int number = 2; contains(key); ++number)
            key = QStringLiteral("%1 #%2").arg(name).arg(number);

        byName[key] = function.toObject();
        names << key;
    }
}

/// The names that \p functions and \p others have both, in the order of \p functions.
QStringList commonNames(const Functions& functions, const Functions& others)
{
    QStringList common;
    for (const QString& name : functions.names) {
        if (others.contains(name))
            common << name;
    }
    return common;
}

QJsonObject difference(const QString& field, const QJsonValue& a, const QJsonValue& b)
{
    return QJsonObject{{"field", field}, {"a", a}, {"b", b}};
}

/// Adds the values that differ in \p a and \p b, which have the same keys.
void compare(const QString& place, const QJsonObject& a, const QJsonObject& b, QJsonArray* fields)
{
    for (const QString& key : a.keys()) {
        if (a[key] != b[key])
            fields->append(difference(place + key, a[key], b[key]));
    }
}

QJsonValue descriptionOf(const Functions& functions, const QString& name)
{
    return functions.contains(name) ? functions.byName[name]["description"] : QJsonValue();
}

void compareFunctions(const Functions& a, const Functions& b, QJsonArray* fields)
{
    QStringList all = a.names + b.names;
    all.sort();
    all.removeDuplicates();

    for (const QString& name : all) {
        const QString place = QStringLiteral("functions[%1]").arg(name);
        if (a.contains(name) && b.contains(name))
            compare(place + QLatin1Char('.'), a.byName[name], b.byName[name], fields);
        else
            fields->append(difference(place, descriptionOf(a, name), descriptionOf(b, name)));
    }

    const QStringList orderA = commonNames(a, b);
    const QStringList orderB = commonNames(b, a);
    if (orderA != orderB)
        fields->append(difference("functions", orderA.join(", "), orderB.join(", ")));
}

} // namespace

QJsonObject HeaderJson::object(const FcfHeader& header)
{
    QJsonObject object = RecipeJson::fields(Recipe::of(header));
    for (const auto& field : FcfLayout::Numbers)
        object[QLatin1String(field.name)] = header.*field.value;
    for (const auto& field : FcfLayout::HeaderTexts)
        object[QLatin1String(field.name)] = header.*field.value;

    for (const char* const name : {"module", "device"}) {
        if (!object.contains(QLatin1String(name)))
            object[QLatin1String(name)] = QJsonValue();
    }
    return object;
}

QJsonArray HeaderJson::differences(const FcfHeader& headerA, const FcfHeader& headerB)
{
    QJsonObject a = object(headerA);
    QJsonObject b = object(headerB);
    const Functions functionsA(a.take("functions").toArray());
    const Functions functionsB(b.take("functions").toArray());

    QJsonArray fields;
    compare(QString(), a, b, &fields);
    compareFunctions(functionsA, functionsB, &fields);
    return fields;
}
