#ifndef HOST_APP_MAINWINDOW_H
#define HOST_APP_MAINWINDOW_H

#include <QMainWindow>
#include <QStringList>

#include <memory>

class DesignModel;
class DesignSession;
class DesignView;
class HelpMenu;
class Panes;
class QDockWidget;
class QLabel;

namespace OrvanticCore {
class DesignFile;
}

namespace Ui {
class MainWindow;
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
    void buildViewMenu();
    void buildErrorCount();
    void connectDesigns();
    QList<QDockWidget*> docks() const;
    void resetLayout();
    /// Gives \p dock the height of that many lines, if it has less and the window has room.
    void growTo(QDockWidget* dock, int lines);
    void showCurrentDesign();
    /// Shows the current image or companion in the panes that are for it, if they are visible.
    void inspectCurrent();
    /// Says what does not work while several designs are open, above them.
    void showSeveralDesigns();
    /// Logs which of \p files, which were generated just now, are not what they should be.
    void logStates(const QList<OrvanticCore::DesignFile*>& files);

    const std::unique_ptr<Ui::MainWindow> m_ui;
    DesignModel* m_model;
    DesignView* m_view = nullptr;
    DesignSession* m_session = nullptr;
    HelpMenu* m_help = nullptr;
    Panes* m_panes = nullptr;
    QLabel* m_path = nullptr;
};

#endif
