#include "host/app/JsonNode.h"

#include <QCoreApplication>

namespace {

QString tr(const char* text) { return QCoreApplication::translate("JsonNode", text); }

} // namespace

JsonError::JsonError(const QString& place, const QString& reason)
    : std::runtime_error((place + ": " + reason).toStdString()), m_place(place), m_reason(reason)
{
}

JsonNode::JsonNode(const QJsonValue& value, const QString& place) : m_value(value), m_place(place)
{
}

JsonNode JsonNode::entry(const QString& name) const
{
    if (!hasEntry(name))
        fail(tr("the entry \"%1\" is missing").arg(name));
    return JsonNode(m_value.toObject().value(name),
                    m_place.isEmpty() ? name : m_place + '.' + name);
}

bool JsonNode::hasEntry(const QString& name) const
{
    if (!m_value.isObject())
        fail(tr("an object is expected"));
    return m_value.toObject().contains(name);
}

void JsonNode::expectEntries(const QStringList& names) const
{
    if (!m_value.isObject())
        fail(tr("an object is expected"));
    for (const QString& name : m_value.toObject().keys()) {
        if (!names.contains(name))
            fail(tr("the entry \"%1\" is not known").arg(name));
    }
}

QString JsonNode::text() const
{
    if (!m_value.isString())
        fail(tr("a text is expected"));
    return m_value.toString();
}

int JsonNode::number(int least, int most) const
{
    const double exact = m_value.toDouble(-1.5);
    if (exact < least || exact > most || exact != static_cast<int>(exact))
        fail(tr("a whole number from %1 to %2 is expected").arg(least).arg(most));
    return static_cast<int>(exact);
}

bool JsonNode::flag() const
{
    if (!m_value.isBool())
        fail(tr("true or false is expected"));
    return m_value.toBool();
}

std::vector<JsonNode> JsonNode::list() const
{
    if (!m_value.isArray())
        fail(tr("a list is expected"));
    const QJsonArray array = m_value.toArray();
    std::vector<JsonNode> nodes;
    nodes.reserve(static_cast<std::size_t>(array.size()));
    for (int index = 0; index < array.size(); ++index)
        nodes.emplace_back(array.at(index), QString("%1[%2]").arg(m_place).arg(index));
    return nodes;
}

QString JsonNode::textOr(const QString& name, const QString& fallback) const
{
    return hasEntry(name) ? entry(name).text() : fallback;
}

bool JsonNode::flagOr(const QString& name, bool fallback) const
{
    return hasEntry(name) ? entry(name).flag() : fallback;
}

std::vector<JsonNode> JsonNode::listOrNone(const QString& name) const
{
    return hasEntry(name) ? entry(name).list() : std::vector<JsonNode>();
}

void JsonNode::fail(const QString& reason) const
{
    throw JsonError(m_place.isEmpty() ? tr("the outermost object") : m_place, reason);
}
