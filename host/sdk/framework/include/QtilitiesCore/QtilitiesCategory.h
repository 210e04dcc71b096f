#ifndef QTILITIESCORE_QTILITIESCATEGORY_H
#define QTILITIESCORE_QTILITIESCATEGORY_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QString>
#include <QStringList>

namespace Qtilities {
namespace Core {

/// A path of level names, outermost first. A plain value; the default one is empty.
class QTILITIES_SHARED_EXPORT QtilitiesCategory {
public:
    /// A category of one level, or an empty one when \p level is empty.
    QtilitiesCategory(const QString& level = QString());

    /// Splits \p levels at each \p separator; empty levels are dropped.
    QtilitiesCategory(const QString& levels, const QString& separator);

    /// All levels, outermost first, with \p join between them.
    QString toString(const QString& join = QLatin1String("::")) const;

    /// The levels down to and including index \p level (from 0); all of them for -1.
    QStringList toStringList(int level = -1) const;

    bool isEmpty() const;
    bool operator==(const QtilitiesCategory& other) const;

private:
    QStringList m_levels;
};

} // namespace Core
} // namespace Qtilities

#endif
