#ifndef CORE_DESIGNCONTENTS_H
#define CORE_DESIGNCONTENTS_H

#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QScopedPointer>
#include <QString>

#include <OrvanticCore/DesignFile.h>

namespace Qtilities {
namespace CoreGui {
class TreeNode;
}
} // namespace Qtilities

namespace OrvanticCore {

class Design;
class DesignFolder;

/// The files and folders of one design. Paths are absolute or relative to the working folder. What
/// it returns ends with it. Not owned by the caller.
class DesignContents : public QObject {
    Q_OBJECT

public:
    /// \p working_folder_path is absolute and clean. \p design outlives its contents.
    DesignContents(const QString& working_folder_path, Design* design);
    ~DesignContents() override;

    /// Has the files in it; never null.
    Qtilities::CoreGui::TreeNode* tree() const;

    /// In the order in which they were added.
    QList<DesignFile*> files() const;
    QList<DesignFolder*> folders() const;

    /// Null when there is none at \p path.
    DesignFile* fileAt(const QString& path) const;
    DesignFolder* folderAt(const QString& path) const;

    /// Why nothing can be added at \p path, as far as the disk and the contents go; empty if it
    /// can.
    QString refusal(const QString& path, bool folder) const;

    /// Adds it whether or not it exists; returns the one that is there already, if one is.
    DesignFile* addFile(const QString& path);
    DesignFolder* addFolder(const QString& path);

    /// Deletes the object, which may be null or another design's: that is ignored.
    void remove(DesignFile* file);
    void remove(DesignFolder* folder);

Q_SIGNALS:
    /// Something was added, removed or changed. Sent at once.
    void modified();

    /// The same for views: held back while a processing cycle of the tree runs, and sent once at
    /// its end, unless that is silent.
    void changed();

private Q_SLOTS:
    void handleItemChanged();
    void announce();
    void handleCycleEnded(bool broadcast);

private:
    QString absolutePath(const QString& path) const;

    QString m_workingFolder;
    Design* m_design;
    QScopedPointer<Qtilities::CoreGui::TreeNode> m_tree;
    /// By path, to find one among thousands. A file that a plug-in puts into the tree, takes out of
    /// it or deletes on its own is not followed.
    QHash<QString, QPointer<DesignFile>> m_addedFiles;
    QList<DesignFolder*> m_folders;
    /// The running cycle has changes of which the tree knows nothing.
    bool m_changePending;
};

} // namespace OrvanticCore

#endif
