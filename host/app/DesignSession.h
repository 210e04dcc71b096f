#ifndef HOST_APP_DESIGNSESSION_H
#define HOST_APP_DESIGNSESSION_H

#include <QMessageBox>
#include <QObject>
#include <QStringList>

#include <memory>

class QWidget;

namespace OrvanticCore {
class Design;
class DesignFile;
} // namespace OrvanticCore

/// Opens, makes, changes, saves and closes designs, with the questions and messages that belong to
/// it. The open designs are owned, and are listed in the design manager in the order in which they
/// were opened.
///
/// For drivers, the object names of its boxes: "NoDesignBox", "SaveChangesBox", "ChangedOnDiskBox",
/// "ReloadBox", "CannotOpenBox", "CannotSaveBox", "CannotAddBox".
class DesignSession : public QObject {
    Q_OBJECT

public:
    /// \p window is the parent of the session and of its boxes.
    explicit DesignSession(QWidget* window);
    /// Closes all designs, saved or not.
    ~DesignSession() override;

    /// Opens the design in the folder, or the one of the description, at \p path. Offers to make a
    /// new one in a folder without. Returns null when there is none to show.
    OrvanticCore::Design* open(const QString& path);

    /// Opens the design in \p folder, unless it is open, without questions. Throws a HostError.
    OrvanticCore::Design* load(const QString& folder);

    /// Makes \p folder when there is none, writes the description of a new design into it and opens
    /// that. Throws a HostError, also when a design is there already.
    OrvanticCore::Design* create(const QString& folder, const QString& typeName, int versionMajor,
                                 int versionMinor);

    /// Asks for place, type and version of a new design and makes it. Null when nothing is made.
    OrvanticCore::Design* make(const QString& folder);

    /// Adds files, and folders that are no designs, to \p design, below \p node unless that is
    /// empty. A file that is in the design already moves to \p node. Folders that are designs, and
    /// descriptions of designs, are opened. When \p design is null, a new one is offered in the
    /// folder of the files.
    void addPaths(const QStringList& paths, OrvanticCore::Design* design, const QString& node);

    bool save(OrvanticCore::Design* design);
    void close(OrvanticCore::Design* design);
    /// Closes all designs but \p design, until the user cancels.
    void closeOthers(const OrvanticCore::Design* design);
    /// Reads the description of \p design again; asks first when that loses changes.
    void reload(OrvanticCore::Design* design);

    /// Asks about unsaved changes of each design; returns false when the user cancels. Closes
    /// nothing.
    bool mayCloseAll();

    /// Reopens the designs that were open when the host was last closed; those that are gone are
    /// logged.
    void restoreLast();
    void rememberOpen() const;
    /// Folders of the designs opened last, the newest first.
    static QStringList recentFolders();

    /// Asks whether \p design is to be archived, of whose files \p lines name what is wrong.
    bool mayArchive(const OrvanticCore::Design& design, const QStringList& lines);

    void showError(const QString& name, const QString& text);
    void showMessage(const QString& name, const QString& text);

signals:
    void opened(OrvanticCore::Design* design);
    void aboutToClose(OrvanticCore::Design* design);
    /// A design was opened or made, and is to be shown.
    void chosen(const OrvanticCore::Design* design);

private:
    /// What there is at a path that was added, if it could be.
    struct AddedItem {
        /// Null for a folder, and after an error.
        OrvanticCore::DesignFile* file = nullptr;
        /// Empty unless nothing could be added.
        QString error;
    };

    OrvanticCore::Design* take(std::unique_ptr<OrvanticCore::Design> loaded);
    void drop(OrvanticCore::Design* design);
    bool mayReplace(const OrvanticCore::Design& design);
    bool mayClose(OrvanticCore::Design* design);
    void addTo(OrvanticCore::Design* design, const QStringList& paths, const QString& node);
    /// What adding \p paths is called in the menu Edit.
    static QString stepOf(const OrvanticCore::Design& design, const QStringList& paths,
                          const QString& node);
    static AddedItem addItem(OrvanticCore::Design* design, const QString& path,
                             const QString& node);
    /// Returns the button that the user chose.
    int ask(const QString& name, const QString& text, QMessageBox::StandardButtons buttons,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

    QList<OrvanticCore::Design*> m_designs;
    QWidget* m_window;
};

#endif
