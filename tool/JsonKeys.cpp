#include "JsonKeys.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <vector>

namespace {

/// Behind the closing quotation mark of the string that starts at \p start.
int endOfString(const QByteArray& json, int start)
{
    int end = start + 1;
    while (end < json.size() && json.at(end) != '"')
        end += json.at(end) == '\\' ? 2 : 1;
    return qMin(end + 1, json.size());
}

bool isName(const QByteArray& json, int behindString)
{
    while (behindString < json.size() && QByteArray(" \t\r\n").contains(json.at(behindString)))
        ++behindString;
    return behindString < json.size() && json.at(behindString) == ':';
}

/// The same name can be written with different escapes.
QString unescaped(const QByteArray& string)
{
    return QJsonDocument::fromJson('[' + string + ']').array().at(0).toString();
}

} // namespace

std::optional<QString> JsonKeys::repeated(const QByteArray& json)
{
    std::vector<QSet<QString>> names;
    for (int position = 0; position < json.size(); ++position) {
        const char character = json.at(position);
        if (character == '{' || character == '[') {
            names.emplace_back();
        } else if ((character == '}' || character == ']') && !names.empty()) {
            names.pop_back();
        } else if (character == '"') {
            const int end = endOfString(json, position);
            const QByteArray string = json.mid(position, end - position);
            position = end - 1;
            if (names.empty() || !isName(json, end))
                continue;
            const QString name = unescaped(string);
            if (names.back().contains(name))
                return name;
            names.back().insert(name);
        }
    }
    return std::nullopt;
}
