#include <QtilitiesCategory.h>

namespace Qtilities {
namespace Core {

QtilitiesCategory::QtilitiesCategory(const QString& level)
{
    if (!level.isEmpty())
        d_levels.append(level);
}

QtilitiesCategory::QtilitiesCategory(const QString& levels, const QString& separator)
    : d_levels(levels.split(separator))
{
    d_levels.removeAll(QString());
}

QString QtilitiesCategory::toString(const QString& join) const { return d_levels.join(join); }

QStringList QtilitiesCategory::toStringList(int level) const
{
    return level < 0 ? d_levels : QStringList(d_levels.mid(0, level + 1));
}

bool QtilitiesCategory::isEmpty() const { return d_levels.isEmpty(); }

bool QtilitiesCategory::operator==(const QtilitiesCategory& other) const
{
    return d_levels == other.d_levels;
}

} // namespace Core
} // namespace Qtilities
