#ifndef HOST_APP_PROPERTYCHOICES_H
#define HOST_APP_PROPERTYCHOICES_H

#include <QString>
#include <QStringList>
#include <QVariant>

namespace OrvanticCore {
class Design;
}

/// The values that image generators know for the target properties of a design. Any other value
/// may be entered as well.
namespace PropertyChoices {

/// Empty for a property that is no target property. The devices are those of the module that the
/// design has.
QStringList valuesOf(const OrvanticCore::Design& design, const QString& property);

/// What is wrong with \p value, for the user; empty for a value that is known, or for none.
QString warning(const OrvanticCore::Design& design, const QString& property, const QVariant& value);

} // namespace PropertyChoices

#endif
