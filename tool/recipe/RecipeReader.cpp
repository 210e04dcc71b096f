#include "tool/recipe/RecipeReader.h"

#include "fcf/FcfLayout.h"

#include <QJsonArray>

#include <limits>

namespace {

/// \p number as a whole number of 32 bits, if it is one.
std::optional<qint32> wholeNumberOf(double number)
{
    const bool fits = number >= std::numeric_limits<qint32>::min() &&
                      number <= std::numeric_limits<qint32>::max();
    if (!fits || number != static_cast<qint32>(number))
        return std::nullopt;

    return static_cast<qint32>(number);
}

} // namespace

void RecipeReader::refuse(const QString& name, const QString& reason)
{
    m_errors.append(failure(ExitCode::Refused, m_label, name, reason).value());
}

void RecipeReader::read(const QJsonValue& value, const QString& name, std::optional<QString>* text)
{
    if (value.isString())
        *text = value.toString();
    else
        refuse(name, "is not a text");
}

void RecipeReader::read(const QJsonValue& value, const QString& name, std::optional<qint32>* number)
{
    if (value.isDouble())
        *number = wholeNumberOf(value.toDouble());
    if (!*number)
        refuse(name, "is not a whole number of 32 bits");
}

void RecipeReader::read(const QJsonValue& value, const QString& name,
                        std::optional<Version>* version)
{
    // A number would lose the zero of "1.10".
    if (value.isDouble()) {
        refuse(name, "is a number, not a text like \"1.12\"");
        return;
    }
    if (!value.isString()) {
        refuse(name, "is not a text like \"1.12\"");
        return;
    }

    *version = Version::of(value.toString());
    if (!*version)
        refuse(name, "is not two numbers like \"1.12\"");
}

void RecipeReader::read(const QJsonValue& value, const QString& name,
                        std::optional<QVector<FcfFunction>>* functions)
{
    if (!value.isArray()) {
        refuse(name, "is not a list");
        return;
    }

    functions->emplace();
    int index = 0;
    for (const auto& function : value.toArray()) {
        const QString place = QStringLiteral("%1[%2]").arg(name).arg(index++);
        if (function.isObject())
            (*functions)->append(readFunction(function.toObject(), place + QLatin1Char('.')));
        else
            refuse(place, "is not an object");
    }
}

FcfFunction RecipeReader::readFunction(QJsonObject object, const QString& place)
{
    FcfFunction function;
    for (const auto& field : FcfLayout::FunctionTexts) {
        std::optional<QString> text;
        readRequired(&object, place, field.name, &text);
        function.*field.value = text.value_or(QString());
    }
    refuseUnknown(object, place);
    return function;
}

void RecipeReader::refuseUnknown(const QJsonObject& object, const QString& place)
{
    for (const QString& name : object.keys())
        refuse(place + name, "is not known in a recipe");
}

template <class Value>
void RecipeReader::readRequired(QJsonObject* object, const QString& place, const char* key,
                                std::optional<Value>* value)
{
    const QString name = place + QLatin1String(key);
    const QJsonValue taken = object->take(QLatin1String(key));
    if (taken.isUndefined())
        refuse(name, "is missing");
    else
        read(taken, name, value);
}
