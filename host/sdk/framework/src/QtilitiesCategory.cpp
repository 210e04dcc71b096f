#include <QtilitiesCore/QtilitiesCategory.h>

namespace Qtilities {
namespace Core {

QtilitiesCategory::QtilitiesCategory(const QString& level)
{
    if (!level.isEmpty())
        m_levels.append(level);
}

QtilitiesCategory::QtilitiesCategory(const QString& levels, const QString& separator)
    : m_levels(levels.split(separator))
{
    m_levels.removeAll(QString());
}

QString QtilitiesCategory::toString(const QString& join) const { return m_levels.join(join); }

QStringList QtilitiesCategory::toStringList(int level) const
{
    return level < 0 ? m_levels : QStringList(m_levels.mid(0, level + 1));
}

bool QtilitiesCategory::isEmpty() const { return m_levels.isEmpty(); }

bool QtilitiesCategory::operator==(const QtilitiesCategory& other) const
{
    return m_levels == other.m_levels;
}

} // namespace Core
} // namespace Qtilities
