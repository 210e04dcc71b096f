#ifndef DESIGN_ZORV_PROPERTYPROVIDER_H
#define DESIGN_ZORV_PROPERTYPROVIDER_H

#include <QtilitiesCore/IAvailablePropertyProvider.h>

#include <QObject>

namespace ZORV_Plugin {

// By this name moc also has the interface's short name accepted in meta-casts.
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;

/// Announces the properties in which a design records the target of its images.
class ZORV_PropertyProvider : public QObject, public IAvailablePropertyProvider {
    Q_OBJECT
    Q_INTERFACES(Qtilities::Core::Interfaces::IAvailablePropertyProvider)

public:
    ZORV_PropertyProvider() {}

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    /// Device, config number, module; none has a value to start with.
    QList<Qtilities::Core::PropertySpecification> availableProperties() const override;

    /// None.
    QStringList prohibitedCustomPropertiesClasses() const override;
};

} // namespace ZORV_Plugin

#endif
