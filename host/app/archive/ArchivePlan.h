#ifndef HOST_APP_ARCHIVE_ARCHIVEPLAN_H
#define HOST_APP_ARCHIVE_ARCHIVEPLAN_H

#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <vector>

namespace OrvanticCore {
class Design;
}

/// One entry of an archive.
struct ArchiveMember {
    enum Kind { File, Folder, Text };

    Kind kind;
    /// Relative to the archive's root, with forward slashes.
    QString name;
    /// The path that a File is read from.
    QString source;
    /// The content of a Text.
    QByteArray text;

    /// The bytes of its content. Those of a File are looked up on the disk.
    qint64 size() const;
};

/// What of a design goes into an archive.
///
/// Each file of a design is of one kind: external when it lies outside the working folder, else
/// generated when it is noted so, else a source file. A folder outside counts as external too.
/// Members have their paths in the working folder, external ones lie in a folder "external".
class ArchivePlan {
    Q_DECLARE_TR_FUNCTIONS(ArchivePlan)

public:
    using Items = OrvanticCore::Interfaces::IDesignArchiveExtension::ArchiveItemFlags;

    ArchivePlan() = default;
    ArchivePlan(const OrvanticCore::Design& design, Items items);

    /// The design's description, as the host saves it. It replaces a file of that name.
    void setDescription(const QString& name, const QByteArray& text);

    /// Leaves out the file at \p path, the archive itself, where it lies in a folder.
    void leaveOut(const QString& path) { m_leftOut = path; }

    /// Looks at the disk and lists every member, sorted by the bytes of its name in UTF-8. The
    /// order depends on nothing else. Throws an HostError that names what is missing.
    std::vector<ArchiveMember> members() const;

private:
    class Listing;

    QString m_folder;
    QStringList m_files;
    QStringList m_folders;
    ArchiveMember m_description{ArchiveMember::Text, {}, {}, {}};
    QString m_leftOut;
};

#endif
