#ifndef HOST_APP_DESIGNCOMMANDS_H
#define HOST_APP_DESIGNCOMMANDS_H

#include <QMessageBox>
#include <QObject>
#include <QStringList>

class DesignModel;
class DesignView;
class OpenDesigns;
class QAction;
class QModelIndex;
class QWidget;

namespace OrvanticCore {
class Design;
}

/// What the user can do with designs: the commands of the menus File and Design, with the questions
/// and the messages that belong to them.
///
/// For drivers, besides the object names of the actions, which are the commands' identifiers:
/// "NoDesignBox", "SaveChangesBox", "ChangedOnDiskBox", "CannotOpenBox", "CannotSaveBox",
/// "CannotAddBox".
class DesignCommands : public QObject {
    Q_OBJECT

public:
    /// Everything stays its owner's and outlives the commands. \p window is the parent of boxes.
    DesignCommands(OpenDesigns* designs, DesignModel* model, DesignView* view, QWidget* window);

    /// Adds the commands to the menus "File" and "Design", which must exist.
    void addToMenus();

    /// Opens the design in the folder, or the one of the description, at \p path. Offers to make a
    /// new one in a folder without.
    void openDesign(const QString& path);

    /// Adds files, and folders that are no designs, to \p design; folders that are designs are
    /// opened. Without a design a new one is offered in the place of the files.
    void takePaths(const QStringList& paths, OrvanticCore::Design* design);

    /// Asks about unsaved changes of each design; returns false when the user wants to go on
    /// working. Closes nothing.
    bool mayCloseAll();

private:
    QAction* addCommand(const QString& menu, const QString& id, const QString& text,
                        const QKeySequence& shortcut, void (DesignCommands::*slot)());
    void refresh();

    void chooseDesign();
    void newDesign();
    void saveCurrent();
    void archiveCurrent();
    void closeCurrent();
    void addFiles();
    void removeCurrent();
    void activate(const QModelIndex& index);
    void openFolder();
    void setLocked(bool locked);

    OrvanticCore::Design* makeDesign(const QString& folder);
    bool save(OrvanticCore::Design* design);
    bool mayReplace(const OrvanticCore::Design& design);
    bool mayClose(OrvanticCore::Design* design);
    void addPaths(const QStringList& paths, OrvanticCore::Design* design);
    /// Returns the button that the user chose.
    int ask(const QString& name, const QString& text, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
    void showError(const QString& name, const QString& text);
    int showBox(QMessageBox::Icon icon, const QString& name, const QString& text,
                QMessageBox::StandardButtons buttons, QMessageBox::StandardButton defaultButton);

    OpenDesigns* m_designs;
    DesignModel* m_model;
    DesignView* m_view;
    QWidget* m_window;

    QAction* m_save = nullptr;
    QAction* m_archive = nullptr;
    QAction* m_close = nullptr;
    QAction* m_add = nullptr;
    QAction* m_remove = nullptr;
    QAction* m_openFolder = nullptr;
    QAction* m_lock = nullptr;
};

#endif
