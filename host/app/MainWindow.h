#ifndef HOST_APP_MAINWINDOW_H
#define HOST_APP_MAINWINDOW_H

#include <QMainWindow>
#include <QStringList>

class DesignEditor;
class DesignModel;
class DesignSession;
class DesignView;
class HelpMenu;
class QDockWidget;
class QLabel;
class QStackedWidget;
class QToolBar;

namespace OrvanticCore {
class Design;
}

/// The reference host's one window: the open designs with their properties, a menu bar that
/// plug-ins add to, and the log.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Opens the design in the folder \p path; see DesignSession::open().
    void openDesign(const QString& path);
    /// Shows what the image or companion at \p path contains.
    void inspect(const QString& path);
    /// Does the one for an image, as a desktop passes it, and the other for everything else.
    void open(const QString& path);
    /// Reopens the designs that were open when the host was last closed.
    void restoreSession();

    /// The folders from which plug-ins were loaded, for what the window says of these.
    void setPluginFolders(const QStringList& folders);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildCentre();
    void buildMenus();
    void buildDocks();
    void buildViewMenu();
    void connectDesigns();
    void resetLayout();
    void showCurrentDesign();

    DesignModel* m_model;
    DesignView* m_view = nullptr;
    DesignSession* m_session = nullptr;
    DesignEditor* m_editor = nullptr;
    HelpMenu* m_help = nullptr;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_path = nullptr;
    QToolBar* m_toolBar = nullptr;
    QDockWidget* m_propertyDock = nullptr;
    QDockWidget* m_inspectorDock = nullptr;
    QDockWidget* m_logDock = nullptr;
};

#endif
