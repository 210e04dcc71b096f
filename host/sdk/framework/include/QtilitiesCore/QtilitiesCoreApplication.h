#ifndef QTILITIESCORE_QTILITIESCOREAPPLICATION_H
#define QTILITIESCORE_QTILITIESCOREAPPLICATION_H

#include <QtilitiesCore/IContextManager.h>
#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QCoreApplication>

namespace Qtilities {
namespace Core {

/// The way to the framework's managers for code that needs no widgets.
class QTILITIES_SHARED_EXPORT QtilitiesCoreApplication : public QCoreApplication {
    Q_OBJECT

public:
    /// Both references must outlive the application, as Qt asks.
    QtilitiesCoreApplication(int& argc, char** argv);
    ~QtilitiesCoreApplication() override;

    /// Never null; made on first use. Not owned.
    static Interfaces::IObjectManager* objectManager();
    static Interfaces::IContextManager* contextManager();
};

} // namespace Core
} // namespace Qtilities

#endif
