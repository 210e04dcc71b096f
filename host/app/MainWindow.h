#ifndef HOST_APP_MAINWINDOW_H
#define HOST_APP_MAINWINDOW_H

#include <QMainWindow>

class QFileSystemModel;
class QTreeView;

/// The reference host's one window: the open design, a menu bar that plug-ins add to, and the log.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);

    /// Shows the files of the design in the folder \p path.
    void openDesign(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildDesignView();
    void buildLogDock();
    void chooseDesign();

    QFileSystemModel* m_files = nullptr;
    QTreeView* m_designView = nullptr;
};

#endif
