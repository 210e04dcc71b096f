#ifndef FRAMEWORK_QTILITIESCATEGORY_H
#define FRAMEWORK_QTILITIESCATEGORY_H

#include "QtilitiesCore_global.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace Qtilities {
namespace Core {

struct CategoryLevel {
    QString name;
    int access;
};

class QTILITIES_CORE_EXPORT QtilitiesCategory {
public:
    QtilitiesCategory(const QString& level = QString());
    QtilitiesCategory(const QString& levels, const QString& separator);
    QString toString(const QString& join = QLatin1String("::")) const;
    QStringList toStringList(int level = -1) const;
    bool isEmpty() const { return m_levels.isEmpty(); }
    bool operator==(const QtilitiesCategory& other) const;

private:
    int m_access;
    QList<CategoryLevel> m_levels;
};

} // namespace Core
} // namespace Qtilities

#endif
