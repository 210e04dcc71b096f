#ifndef QTILITIESEXTENSIONSYSTEM_IPLUGIN_H
#define QTILITIESEXTENSIONSYSTEM_IPLUGIN_H

#include <QtilitiesCore/IObjectBase.h>
#include <QtilitiesCore/QtilitiesCategory.h>
#include <QtilitiesCore/VersionInformation.h>

#include <QString>
#include <QStringList>

namespace Qtilities {
namespace ExtensionSystem {
namespace Interfaces {

/// A library that adds to the application.
///
/// Life cycle, on the GUI thread: the extension system makes the library's one instance and reads
/// the metadata; calls initialize() on every plug-in, in which a plug-in makes and registers its
/// objects and may not assume those of another; calls initializeDependencies() on every plug-in,
/// in which it may. At shutdown it calls finalize() on every plug-in while all objects still
/// exist, and then deletes the instances. It never unloads a library, so that objects a plug-in
/// left behind keep their code until the process ends.
class IPlugin : virtual public Core::Interfaces::IObjectBase {
public:
    IPlugin() {}
    ~IPlugin() override {}

    /// \p arguments are those of the program. On failure returns false and appends the reasons to
    /// \p error_strings. Not owned.
    virtual bool initialize(const QStringList& arguments, QStringList* error_strings) = 0;
    virtual bool initializeDependencies(QStringList* error_strings) = 0;
    virtual void finalize() = 0;

    /// Unique among the plug-ins of one application.
    virtual QString pluginName() const = 0;
    virtual Core::QtilitiesCategory pluginCategory() const = 0;
    virtual Core::VersionInformation pluginVersionInformation() const = 0;
    virtual QString pluginPublisher() const = 0;
    virtual QString pluginPublisherWebsite() const = 0;
    virtual QString pluginPublisherContact() const = 0;
    virtual QString pluginDescription() const = 0;
    virtual QString pluginCopyright() const = 0;
    virtual QString pluginLicense() const = 0;
};

} // namespace Interfaces
} // namespace ExtensionSystem
} // namespace Qtilities

Q_DECLARE_INTERFACE(Qtilities::ExtensionSystem::Interfaces::IPlugin,
                    "com.Qtilities.ExtensionSystem.IPlugin/1.0")

#endif
