#include "HeaderJson.h"

#include "fcf/FcfLayout.h"

#include <QJsonArray>

namespace {

template <class Record, int Count>
void addTexts(const FcfLayout::TextField<Record> (&fields)[Count], const Record& record,
              QJsonObject* object)
{
    for (const auto& field : fields)
        (*object)[QLatin1String(field.name)] = record.*field.value;
}

} // namespace

QJsonObject HeaderJson::of(const FcfHeader& header)
{
    QJsonObject object;
    for (const auto& field : FcfLayout::Numbers)
        object[QLatin1String(field.name)] = header.*field.value;
    addTexts(FcfLayout::HeaderTexts, header, &object);
    QJsonArray functions;
    for (const FcfFunction& function : header.functions) {
        QJsonObject texts;
        addTexts(FcfLayout::FunctionTexts, function, &texts);
        functions.append(texts);
    }
    object["functions"] = functions;
    return object;
}
