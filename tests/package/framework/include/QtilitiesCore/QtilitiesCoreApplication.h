#ifndef FRAMEWORK_QTILITIESCOREAPPLICATION_H
#define FRAMEWORK_QTILITIESCOREAPPLICATION_H

#include <IContextManager.h>
#include <IObjectManager.h>

#include <QCoreApplication>

namespace Qtilities {
namespace Core {

class QTILITIES_CORE_EXPORT QtilitiesCoreApplication : public QCoreApplication {
    Q_OBJECT

public:
    QtilitiesCoreApplication(int& argc, char** argv) : QCoreApplication(argc, argv) {}
    static Interfaces::IObjectManager* objectManager();
    static Interfaces::IContextManager* contextManager();
};

} // namespace Core
} // namespace Qtilities

#define OBJECT_MANAGER Qtilities::Core::QtilitiesCoreApplication::objectManager()

#endif
