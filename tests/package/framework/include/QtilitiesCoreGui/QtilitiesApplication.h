#ifndef FRAMEWORK_QTILITIESAPPLICATION_H
#define FRAMEWORK_QTILITIESAPPLICATION_H

#include <IActionManager.h>
#include <IContextManager.h>
#include <IObjectManager.h>

#include <QApplication>

namespace Qtilities {
namespace CoreGui {

class QTILITIES_CORE_EXPORT QtilitiesApplication : public QApplication {
    Q_OBJECT

public:
    QtilitiesApplication(int& argc, char** argv);
    ~QtilitiesApplication() override;
    static Core::Interfaces::IObjectManager* objectManager();
    static Core::Interfaces::IContextManager* contextManager();
    static Interfaces::IActionManager* actionManager();
    static void setMainWindow(QWidget* window);
    static QWidget* mainWindow();

private:
    bool m_finalized;
};

} // namespace CoreGui
} // namespace Qtilities

#define ACTION_MANAGER Qtilities::CoreGui::QtilitiesApplication::actionManager()

#endif
