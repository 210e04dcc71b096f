#ifndef QTILITIESCORE_QTILITIESPROPERTY_H
#define QTILITIESCORE_QTILITIESPROPERTY_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QByteArray>
#include <QMetaType>
#include <QVariant>

namespace Qtilities {
namespace Core {

class ObjectManager;

/// A named value that an object shows to all that use it. A plain value.
class QTILITIES_SHARED_EXPORT SharedProperty {
public:
    SharedProperty(const char* name = "", QVariant value = QVariant());

    /// Whether it has a name and a value.
    bool isValid();

    QVariant value() const;

    /// Returns false, and keeps the old value, when the property has no name.
    bool setValue(QVariant value);

private:
    friend class ObjectManager;

    QByteArray m_name;
    QVariant m_value;
};

} // namespace Core
} // namespace Qtilities

Q_DECLARE_METATYPE(Qtilities::Core::SharedProperty)

#endif
