#ifndef FRAMEWORK_IAVAILABLEPROPERTYPROVIDER_H
#define FRAMEWORK_IAVAILABLEPROPERTYPROVIDER_H

#include "QtilitiesCore_global.h"
#include <IObjectBase.h>

#include <QList>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace Qtilities {
namespace Core {

struct QTILITIES_CORE_EXPORT PropertySpecification {
    PropertySpecification();
    virtual ~PropertySpecification() {}
    QString propertyName() const;
    bool isValid() const;
    bool operator==(const PropertySpecification& other) const;

    QString d_displayed_name;
    QString d_property_name;
    QString d_description;
    QVariant::Type d_data_type;
    QVariant d_default_value;
    bool d_removable;
    bool d_read_only;
    QString d_class_name;
    bool d_add_during_construction;
    bool d_internal;
    bool d_is_exportable;
    QString d_further;
};

namespace Interfaces {

class IAvailablePropertyProvider : virtual public IObjectBase {
public:
    virtual QList<PropertySpecification> availableProperties() const
    {
        return QList<PropertySpecification>();
    }
    virtual QStringList prohibitedCustomPropertiesClasses() const { return QStringList(); }
    virtual int furtherProperties() const { return 0; }
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

Q_DECLARE_INTERFACE(Qtilities::Core::Interfaces::IAvailablePropertyProvider,
                    "com.Qtilities.Core.IAvailablePropertyProvider/1.0")

#endif
