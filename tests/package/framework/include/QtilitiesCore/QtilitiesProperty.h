#ifndef FRAMEWORK_QTILITIESPROPERTY_H
#define FRAMEWORK_QTILITIESPROPERTY_H

#include "QtilitiesCore_global.h"

#include <QMetaType>
#include <QString>
#include <QVariant>

namespace Qtilities {
namespace Core {

class QTILITIES_CORE_EXPORT SharedProperty {
public:
    SharedProperty(const char* name = "", QVariant value = QVariant());
    virtual ~SharedProperty() {}
    bool isValid();
    QVariant value() const { return m_value; }
    bool setValue(QVariant value);
    QString propertyName() const { return m_name; }

private:
    bool m_locked;
    QVariant m_value;
    QString m_name;
};

} // namespace Core
} // namespace Qtilities

Q_DECLARE_METATYPE(Qtilities::Core::SharedProperty)

#endif
