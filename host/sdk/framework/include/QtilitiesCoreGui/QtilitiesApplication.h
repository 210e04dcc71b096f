#ifndef QTILITIESCOREGUI_QTILITIESAPPLICATION_H
#define QTILITIESCOREGUI_QTILITIESAPPLICATION_H

#include <QtilitiesCore/IContextManager.h>
#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesCoreGui/IActionManager.h>

#include <QApplication>

namespace Qtilities {
namespace CoreGui {

/// The application object of a program with windows, and the way to the framework's managers.
class QTILITIES_SHARED_EXPORT QtilitiesApplication : public QApplication {
    Q_OBJECT

public:
    /// Both references must outlive the application, as Qt asks.
    QtilitiesApplication(int& argc, char** argv);
    ~QtilitiesApplication() override;

    /// Never null; made on first use. Not owned.
    static Core::Interfaces::IObjectManager* objectManager();
    static Core::Interfaces::IContextManager* contextManager();
    static Interfaces::IActionManager* actionManager();

    /// Names the main window, which may be deleted at any time. Not owned.
    static void setMainWindow(QWidget* window);

    /// The main window, or null when there is none (any more).
    static QWidget* mainWindow();
};

} // namespace CoreGui
} // namespace Qtilities

#endif
