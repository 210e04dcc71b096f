#ifndef HOST_APP_ARCHIVE_ARCHIVECONTENTS_H
#define HOST_APP_ARCHIVE_ARCHIVECONTENTS_H

#include <QWidget>

class ArchivePlan;
class QLabel;
class QTreeWidget;

/// Lists what goes into an archive, with the sizes on the disk before compression.
///
/// For drivers: "contentsList", "contentsTotal".
class ArchiveContents : public QWidget {
    Q_OBJECT

public:
    explicit ArchiveContents(QWidget* parent = nullptr);

    /// Looks at the disk. What is missing there is named in place of the list.
    void show(const ArchivePlan& plan);
    void clear();

private:
    QTreeWidget* m_list;
    QLabel* m_total;
};

#endif
