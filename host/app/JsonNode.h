#ifndef HOST_APP_JSONNODE_H
#define HOST_APP_JSONNODE_H

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// A value in a JSON document that knows its place in it, such as "files[2].path". Every access
/// that does not find what it expects throws a HostError with that place.
class JsonNode {
public:
    explicit JsonNode(const QJsonValue& value, const QString& place = QString())
        : m_value(value), m_place(place)
    {
    }

    const QJsonValue& value() const { return m_value; }
    bool isMissing() const { return m_value.isUndefined(); }

    /// The entry \p name of an object, which may be missing.
    JsonNode operator[](const QString& name) const;

    /// Throws when the value is no object, or has an entry that is not among \p names.
    void expectEntries(const QStringList& names) const;

    QString text() const;
    /// Empty for a missing entry.
    QString optionalText() const { return isMissing() ? QString() : text(); }
    /// A whole number from \p least to \p most.
    int number(int least, int most) const;
    /// False for a missing entry.
    bool optionalFlag() const;
    /// Empty for a missing entry.
    std::vector<JsonNode> optionalList() const;

    [[noreturn]] void fail(const QString& reason) const;

private:
    void expect(bool found, const QString& reason) const;

    QJsonValue m_value;
    QString m_place;
};

#endif
