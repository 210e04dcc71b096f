#ifndef HOST_APP_JSONNODE_H
#define HOST_APP_JSONNODE_H

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <stdexcept>
#include <vector>

/// What is wrong with a description, and at which place in it.
class JsonError : public std::runtime_error {
public:
    JsonError(const QString& place, const QString& reason);

    QString place() const { return m_place; }
    QString reason() const { return m_reason; }

private:
    QString m_place;
    QString m_reason;
};

/// A value in a JSON document that knows its place in it, such as "files[2].path". Every access
/// that does not find what it expects throws a JsonError.
class JsonNode {
public:
    explicit JsonNode(const QJsonValue& value, const QString& place = QString());

    QString place() const { return m_place; }
    const QJsonValue& value() const { return m_value; }

    /// The entry \p name of an object; throws when it is missing.
    JsonNode entry(const QString& name) const;
    bool hasEntry(const QString& name) const;

    /// Throws when the value is no object, or has an entry that is not among \p names.
    void expectEntries(const QStringList& names) const;

    QString text() const;
    /// A whole number from \p least to \p most.
    int number(int least, int most) const;
    bool flag() const;
    std::vector<JsonNode> list() const;

    /// The entry's text or flag, or the default for an object without it.
    QString textOr(const QString& name, const QString& fallback) const;
    bool flagOr(const QString& name, bool fallback) const;
    /// The entry's list, empty for an object without it.
    std::vector<JsonNode> listOrNone(const QString& name) const;

    [[noreturn]] void fail(const QString& reason) const;

private:
    QJsonValue m_value;
    QString m_place;
};

#endif
