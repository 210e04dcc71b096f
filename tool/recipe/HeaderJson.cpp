#include "tool/recipe/HeaderJson.h"

#include "fcf/FcfLayout.h"
#include "tool/recipe/RecipeJson.h"

#include <QMap>
#include <QStringList>

namespace {

using Functions = QMap<QString, QJsonObject>;

/// The functions by their names; a name that several have gets a number.
Functions byName(const QJsonArray& functions)
{
    Functions all;
    for (const auto& function : functions) {
        const QString name = function.toObject()["name"].toString();
        QString key = name;
        for (int number = 2; all.contains(key); ++number)
            key = QStringLiteral("%1 #%2").arg(name).arg(number);

        all[key] = function.toObject();
    }
    return all;
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
    return functions.contains(name) ? functions[name]["description"] : QJsonValue();
}

void compareFunctions(const Functions& a, const Functions& b, QJsonArray* fields)
{
    QStringList names = a.keys() + b.keys();
    names.sort();
    names.removeDuplicates();

    for (const QString& name : names) {
        const QString place = QStringLiteral("functions[%1]").arg(name);
        if (a.contains(name) && b.contains(name))
            compare(place + QLatin1Char('.'), a[name], b[name], fields);
        else
            fields->append(difference(place, descriptionOf(a, name), descriptionOf(b, name)));
    }
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
    const Functions functionsA = byName(a.take("functions").toArray());
    const Functions functionsB = byName(b.take("functions").toArray());

    QJsonArray fields;
    compare(QString(), a, b, &fields);
    compareFunctions(functionsA, functionsB, &fields);
    return fields;
}
