#ifndef TOOL_RECIPE_RECIPEREADER_H
#define TOOL_RECIPE_RECIPEREADER_H

#include "tool/base/Result.h"
#include "tool/recipe/Recipe.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QList>

/// Reads the values of a recipe, and collects what is wrong with them.
class RecipeReader {
public:
    /// \p label is what messages call the recipe.
    explicit RecipeReader(const QString& label) : m_label(label) {}

    const QList<Finding>& errors() const { return m_errors; }

    /// Adds the error that the value \p name is refused.
    void refuse(const QString& name, const QString& reason);

    /// Reads \p value, or refuses it under \p name.
    void read(const QJsonValue& value, const QString& name, std::optional<QString>* text);
    void read(const QJsonValue& value, const QString& name, std::optional<qint32>* number);
    void read(const QJsonValue& value, const QString& name, std::optional<Version>* version);
    void read(const QJsonValue& value, const QString& name,
              std::optional<QVector<FcfFunction>>* functions);

    /// Refuses all that is left in \p object, under names that begin with \p place.
    void refuseUnknown(const QJsonObject& object, const QString& place);

private:
    FcfFunction readFunction(QJsonObject object, const QString& place);

    template <class Value>
    void readRequired(QJsonObject* object, const QString& place, const char* key,
                      std::optional<Value>* value);

    const QString m_label;
    QList<Finding> m_errors;
};

#endif
