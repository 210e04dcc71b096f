#ifndef HOST_APP_DESIGNMODEL_H
#define HOST_APP_DESIGNMODEL_H

#include <QStandardItemModel>
#include <QTimer>

namespace OrvanticCore {
class Design;
class DesignFile;
class DesignFolder;
} // namespace OrvanticCore

/// The open designs as a tree: under each design the nodes of its structure, under these the files.
///
/// It follows the designs, and looks at their files on the disk twice a second.
class DesignModel : public QStandardItemModel {
    Q_OBJECT

public:
    enum Column { NameColumn, StateColumn, VersionColumn, SizeColumn, DateColumn, ColumnCount };

    enum Role {
        /// A text that stays the same for an item while the rows of its design are made anew.
        KeyRole = Qt::UserRole + 1,
        /// The design, file or folder of a row. Guarded, since a row may outlive its subject while
        /// a processing cycle delays the changes.
        SubjectRole,
        /// The name of a node, whatever an extension shows in its place.
        NodeRole
    };

    explicit DesignModel(QObject* parent = nullptr);

    /// \p design must be removed before it is deleted. Not owned.
    void addDesign(OrvanticCore::Design* design);
    void removeDesign(OrvanticCore::Design* design);

    /// The design that \p index belongs to. Null for an invalid index.
    OrvanticCore::Design* designAt(const QModelIndex& index) const;
    /// Null unless \p index is that of a file, or that of a folder.
    OrvanticCore::DesignFile* fileAt(const QModelIndex& index) const;
    OrvanticCore::DesignFolder* folderAt(const QModelIndex& index) const;

    /// The name of the node of \p index, or of the one around it. Empty outside of nodes.
    QString nodeAt(const QModelIndex& index) const;
    bool isNode(const QModelIndex& index) const;

    /// Files are dragged as their paths, so that other programs take them as well.
    QMimeData* mimeData(const QModelIndexList& indexes) const override;

    /// The index with that key, or an invalid one.
    QModelIndex indexOfKey(const QString& key) const;
    QModelIndex indexOf(const OrvanticCore::Design* design) const;
    QModelIndex indexOf(const OrvanticCore::DesignFile* file) const;

public slots:
    /// Looks at all files on the disk again.
    void refreshFromDisk();

signals:
    /// The rows of a design are made anew: views lose what they know of them.
    void aboutToRebuild();
    void rebuilt();

private:
    void rebuild(OrvanticCore::Design* design);
    void refreshDesign(OrvanticCore::Design* design);
    void refreshRows(const QModelIndex& parent);

    QTimer m_lookAtDisk;
};

#endif
