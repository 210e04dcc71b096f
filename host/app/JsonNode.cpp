#include "host/app/JsonNode.h"

#include "host/app/common/HostError.h"

#include <QCoreApplication>

namespace {

struct JsonNodeTexts {
    Q_DECLARE_TR_FUNCTIONS(JsonNode)
};

} // namespace

JsonNode JsonNode::operator[](const QString& name) const
{
    expect(m_value.isObject(), JsonNodeTexts::tr("an object is expected"));
    return JsonNode(m_value.toObject().value(name),
                    m_place.isEmpty() ? name : m_place + '.' + name);
}

void JsonNode::expectEntries(const QStringList& names) const
{
    expect(m_value.isObject(), JsonNodeTexts::tr("an object is expected"));
    for (const QString& name : m_value.toObject().keys())
        expect(names.contains(name), JsonNodeTexts::tr("the entry \"%1\" is not known").arg(name));
}

QString JsonNode::text() const
{
    expect(m_value.isString(), JsonNodeTexts::tr("a text is expected"));
    return m_value.toString();
}

int JsonNode::number(int least, int most) const
{
    const double exact = m_value.toDouble(-1.5);
    expect(exact >= least && exact <= most && exact == static_cast<int>(exact),
           JsonNodeTexts::tr("a whole number from %1 to %2 is expected").arg(least).arg(most));
    return static_cast<int>(exact);
}

bool JsonNode::optionalFlag() const
{
    expect(isMissing() || m_value.isBool(), JsonNodeTexts::tr("true or false is expected"));
    return m_value.toBool();
}

std::vector<JsonNode> JsonNode::optionalList() const
{
    expect(isMissing() || m_value.isArray(), JsonNodeTexts::tr("a list is expected"));
    const QJsonArray array = m_value.toArray();
    std::vector<JsonNode> nodes;
    nodes.reserve(static_cast<std::size_t>(array.size()));
    for (int index = 0; index < array.size(); ++index)
        nodes.emplace_back(array.at(index), QString("%1[%2]").arg(m_place).arg(index));
    return nodes;
}

void JsonNode::expect(bool found, const QString& reason) const
{
    if (!found)
        fail(isMissing() ? JsonNodeTexts::tr("the entry is missing") : reason);
}

void JsonNode::fail(const QString& reason) const
{
    const QString place = m_place.isEmpty() ? JsonNodeTexts::tr("the outermost object") : m_place;
    throw HostError(place + ": " + reason);
}
