#ifndef HOST_APP_MAINWINDOW_H
#define HOST_APP_MAINWINDOW_H

#include <QMainWindow>

class DesignCommands;
class DesignDetails;
class DesignModel;
class DesignView;
class OpenDesigns;
class PropertyEditor;
class QStackedWidget;

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

    /// Opens the design in the folder \p path; see DesignCommands::openDesign().
    void openDesign(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildCentre();
    void buildMenus();
    void buildPropertyDock();
    void buildLogDock();
    void connectDesigns();
    void restoreLayout();
    void saveLayout() const;
    void showCurrentDesign();

    OpenDesigns* m_designs;
    DesignModel* m_model;
    DesignView* m_view = nullptr;
    DesignCommands* m_commands = nullptr;
    DesignDetails* m_details = nullptr;
    PropertyEditor* m_properties = nullptr;
    QStackedWidget* m_pages = nullptr;
};

#endif
