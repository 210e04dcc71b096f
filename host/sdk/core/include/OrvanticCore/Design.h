#ifndef ORVANTICCORE_DESIGN_H
#define ORVANTICCORE_DESIGN_H

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/IDesign.h>
#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QtilitiesCore/QtilitiesCategory.h>

#include <QList>
#include <QObject>
#include <QScopedPointer>
#include <QString>
#include <QVariant>

namespace OrvanticCore {

class DesignFolder;

/// A property as a design keeps it. A plain value.
struct DesignProperty {
    QString name;
    QVariant value;
    Qtilities::Core::QtilitiesCategory category;
};

/// A design in memory.
///
/// Made, stored and deleted by the host; a design that is deleted leaves the design manager by
/// itself. The host itself keeps from changing what is locked: addFile() refuses then, and the
/// properties and what is noted about files and folders stay as they are.
class ORVANTICCORE_SHARED_EXPORT Design : public QObject, public IDesign {
    Q_OBJECT

public:
    /// An unmodified design of version 0.0 with no files, properties and structure.
    explicit Design(const QString& working_folder_path, const QString& type_name,
                    QObject* parent = nullptr);
    ~Design() override;

    QObject* objectBase() override { return this; }
    QString typeName() const override;
    int versionMajor() const override;
    int versionMinor() const override;
    QString versionString(const QString& separator) const override;
    QVariant designProperty(const QString& name) const override;
    void setDesignProperty(const QString& name, const QVariant& value,
                           const Qtilities::Core::QtilitiesCategory& category) override;
    QString workingFolderPath() const override;
    DesignStructure* structure() const override;
    Qtilities::CoreGui::TreeNode* tree() const override;
    DesignFile* fileAt(const QString& path) const override;
    DesignFile* addFile(const QString& path, QString* error) override;
    void refreshFiles(const QList<DesignFile*>& files) override;

    /// The last part of the working folder's path.
    QString name() const;

    void setVersion(int major, int minor);

    /// What is new in the current version. An empty text removes the shared property.
    void setVersionChanges(const QString& text);
    QString versionChanges() const;

    /// In the order in which they were added.
    QList<DesignProperty> designProperties() const;
    void removeDesignProperty(const QString& name);

    /// Replaces and deletes the structure of before. \p structure may be null. Owned.
    void setStructure(DesignStructure* structure);

    /// In the order in which they were added.
    QList<DesignFile*> files() const;

    /// Takes the file at \p path into the design whether or not it exists, as a stored description
    /// asks for it. Returns the file that is there already, if one is.
    DesignFile* restoreFile(const QString& path);

    /// Takes \p file out of the design and deletes the object, but not the file on the disk.
    void removeFile(DesignFile* file);

    QList<DesignFolder*> folders() const;

    /// The same for a folder as addFile() and restoreFile() for a file.
    DesignFolder* addFolder(const QString& path, QString* error);
    DesignFolder* restoreFolder(const QString& path);
    void removeFolder(DesignFolder* folder);

    /// The name of the node under which \p file is shown: its custom node, else the one that the
    /// structure maps its name to, else the structure's node for unassigned files.
    QString nodeOf(const DesignFile* file) const;

    /// Whether a person has locked the design, and whether its place on the disk does not let it
    /// be written.
    bool isLocked() const;
    void setLocked(bool locked);
    bool isReadOnly() const;
    void setReadOnly(bool read_only);

    /// Whether \p what, for example "the version of \"top.fcf\"", must stay as it is, since the
    /// design is locked or read-only; then that is logged.
    bool refusesChange(const QString& what) const;

    /// Whether it has changed since the host last called setModified(false).
    bool isModified() const;
    void setModified(bool modified);

Q_SIGNALS:
    /// Files or folders were added, removed or changed. While a processing cycle of the tree runs
    /// it is held back, and comes once for all changes, or not at all when the cycle ends silently.
    void filesChanged();
    void filesRefreshed(const QList<OrvanticCore::DesignFile*>& files);
    void propertiesChanged();
    void versionChanged();
    void stateChanged(bool locked, bool read_only);
    void modifiedChanged(bool modified);

private Q_SLOTS:
    void markModified();

private:
    /// Whether nothing can be added at \p path; then sets \p error, unless that is null, to the
    /// reason.
    bool isRefused(const QString& path, bool folder, QString* error) const;
    int indexOfProperty(const QString& name) const;

    struct Private;
    QScopedPointer<Private> d;
};

} // namespace OrvanticCore

#endif
