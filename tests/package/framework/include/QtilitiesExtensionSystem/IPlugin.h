#ifndef FRAMEWORK_IPLUGIN_H
#define FRAMEWORK_IPLUGIN_H

#include <IObjectBase.h>
#include <QtilitiesCategory.h>
#include <VersionInformation.h>

#include <QStringList>

namespace Qtilities {
namespace ExtensionSystem {
namespace Interfaces {

class IPlugin : virtual public Core::Interfaces::IObjectBase {
public:
    IPlugin() : m_state(0) {}
    virtual bool initialize(const QStringList& arguments, QStringList* error_strings) = 0;
    virtual bool initializeDependencies(QStringList* error_strings) = 0;
    virtual void finalize() {}
    virtual QString pluginName() const = 0;
    virtual Core::QtilitiesCategory pluginCategory() const = 0;
    virtual Core::VersionInformation pluginVersionInformation() const = 0;
    virtual QString pluginPublisher() const = 0;
    virtual QString pluginPublisherWebsite() const = 0;
    virtual QString pluginPublisherContact() const = 0;
    virtual QString pluginDescription() const = 0;
    virtual QString pluginCopyright() const = 0;
    virtual QString pluginLicense() const = 0;
    virtual bool isCorePlugin() const { return m_state > 0; }

private:
    int m_state;
};

} // namespace Interfaces
} // namespace ExtensionSystem
} // namespace Qtilities

Q_DECLARE_INTERFACE(Qtilities::ExtensionSystem::Interfaces::IPlugin,
                    "com.Qtilities.ExtensionSystem.IPlugin/1.0")

#endif
