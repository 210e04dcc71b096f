#ifndef HOST_APP_ARCHIVE_ARCHIVEPLAN_H
#define HOST_APP_ARCHIVE_ARCHIVEPLAN_H

#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <stdexcept>
#include <vector>

namespace OrvanticCore {
class IDesign;
}

/// Why there is no archive: text for the user, which names the file and the reason.
class ArchiveError : public std::runtime_error {
public:
    explicit ArchiveError(const QString& text) : std::runtime_error(text.toStdString()) {}

    QString text() const { return QString::fromUtf8(what()); }
};

/// The user has cancelled the making of the archive.
class ArchiveCancelled : public std::exception {};

/// One entry of an archive.
struct ArchiveMember {
    enum Kind { File, Folder, Text };

    Kind kind;
    /// With forward slashes, relative to the archive's root.
    QString name;
    /// The path that a File is read from.
    QString source;
    /// The content of a Text.
    QByteArray text;

    /// Of its content, in bytes. That of a File is looked up on the disk.
    qint64 size() const;
};

/// What of a design goes into an archive.
///
/// Each file of a design is of one kind: external when it lies outside the working folder, else
/// generated when it is noted so, else a source file. A folder outside counts as external
/// too. Members have their paths in the working folder, external ones lie in a folder "external".
class ArchivePlan {
    Q_DECLARE_TR_FUNCTIONS(ArchivePlan)

public:
    using Items = OrvanticCore::Interfaces::IDesignArchiveExtension::ArchiveItemFlags;

    ArchivePlan() = default;
    ArchivePlan(const OrvanticCore::IDesign& design, Items items);

    /// The design's description, as the host saves it; it replaces a file of that
    /// name.
    void setDescription(const QString& name, const QByteArray& text);

    /// A path that is left out where a folder has it in it: that of the archive itself.
    void leaveOut(const QString& path) { m_leftOut = path; }

    /// Looks at the disk and lists every member, sorted by the bytes of its name in UTF-8. The
    /// order depends on nothing else. Throws an ArchiveError that names what is missing.
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
