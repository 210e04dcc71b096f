#ifndef QTILITIESCORE_IAVAILABLEPROPERTYPROVIDER_H
#define QTILITIESCORE_IAVAILABLEPROPERTYPROVIDER_H

#include <QtilitiesCore/IObjectBase.h>
#include <QtilitiesCore/QtilitiesGlobal.h>

#include <toolkit/QtDifferences.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace Qtilities {
namespace Core {

/// What a property editor has to know of a property that may be added to an object. A plain value.
struct QTILITIES_SHARED_EXPORT PropertySpecification {
    PropertySpecification();

    /// The name under which the value is kept. A property without a name of its own is kept under
    /// the one that is shown.
    QString propertyName() const;

    /// Whether it has a name and a type.
    bool isValid() const;

    bool operator==(const PropertySpecification& other) const;

    QString d_displayed_name;
    QString d_property_name;
    /// Shown as help; may contain Qt's rich text.
    QString d_description;
    Toolkit::ValueType d_data_type;
    /// Invalid when a new property starts without a value.
    QVariant d_default_value;
    /// Whether the user may remove the property again.
    bool d_removable;
    bool d_read_only;
    /// The class, with its namespaces, to whose objects the property may be added.
    QString d_class_name;
    /// Whether objects have the property from the start.
    bool d_add_during_construction;
    /// Hidden from the user.
    bool d_internal;
    /// Whether the value is saved with the object.
    bool d_is_exportable;
};

namespace Interfaces {

/// Announces properties that users may add to objects.
///
/// Life cycle: registered in the object pool, where property editors find it by its identifier and
/// ask it each time they are shown. Not owned by the pool.
class IAvailablePropertyProvider : virtual public IObjectBase {
public:
    IAvailablePropertyProvider() {}
    ~IAvailablePropertyProvider() override {}

    virtual QList<PropertySpecification> availableProperties() const
    {
        return QList<PropertySpecification>();
    }

    /// The classes to whose objects no properties may be added but the announced ones.
    virtual QStringList prohibitedCustomPropertiesClasses() const { return QStringList(); }
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

Q_DECLARE_INTERFACE(Qtilities::Core::Interfaces::IAvailablePropertyProvider,
                    "com.Qtilities.Core.IAvailablePropertyProvider/1.0")

#endif
