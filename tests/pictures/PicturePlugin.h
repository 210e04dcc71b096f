#ifndef TESTS_PICTURES_PICTUREPLUGIN_H
#define TESTS_PICTURES_PICTUREPLUGIN_H

#include "support/DriverPlugin.h"
#include "support/ModalAnswer.h"

#include <functional>

class QTreeView;
class QWidget;

/// Takes pictures of the running host and ends it. In the folder that PELK_PICTURES names:
/// "side-by-side.png" for the README, those of the guide, whose names begin with "guide-", and one
/// of each window for a look at its layout. Reports texts that are cut off and letters that two
/// controls have, and then ends the host with exit code 1.
class PicturePlugin : public DriverPlugin {
    Q_OBJECT
    Q_INTERFACES(Qtilities::ExtensionSystem::Interfaces::IPlugin)
    Q_PLUGIN_METADATA(IID "com.Qtilities.ExtensionSystem.IPlugin/1.0")

public:
    PicturePlugin();

protected:
    void run() override;

private:
    void takeGuide();
    void takeSideBySide();
    void takeDialogs();
    void takeLog();
    void takeTarget();
    /// Opens a dialog by a menu entry of a class of the host, and closes it after \p look.
    void withDialog(const char* context, const char* entry,
                    const std::function<void(QWidget*)>& look);
    QWidget* openGenerator();
    void saveScreen(const QString& name) const;
    /// The part of the screen that has \p window.
    void saveWindow(const QString& name, const QWidget* window);

    QString m_folder;
    ModalAnswer m_dialogs;
    QWidget* m_host = nullptr;
    QTreeView* m_view = nullptr;
    int m_exitCode = 0;
};

#endif
