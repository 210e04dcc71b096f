#ifndef HOST_APP_ARCHIVE_ARCHIVEWRITER_H
#define HOST_APP_ARCHIVE_ARCHIVEWRITER_H

#include "host/app/archive/ArchiveFormat.h"

#include <QCoreApplication>
#include <QIODevice>

#include <functional>
#include <memory>

struct archive;
struct ArchiveMember;

/// Writes an archive to a device, a member at a time.
///
/// The bytes depend on the members alone: each one has the same time, the start of 1980, which is
/// the first that every format can store, no owner, and the permissions 755 (folders and files that
/// their owner may execute) or 644. Names are in UTF-8 whatever the process's locale is. All
/// operations throw an HostError. For use by the thread that made it.
class ArchiveWriter {
    Q_DECLARE_TR_FUNCTIONS(ArchiveWriter)

public:
    /// Called with the number of content bytes that were just added. It may throw, and so end the
    /// writing.
    using Advance = std::function<void(qint64 bytes)>;

    /// \p device is open. Not owned. \p name is what errors call it.
    ArchiveWriter(QIODevice* device, const QString& name, ArchiveFormat format);
    /// Writes nothing more. Without finish() the archive is not valid.
    ~ArchiveWriter();

    /// Adds \p member. A file must keep its size while it is read.
    void add(const ArchiveMember& member, const Advance& advance);

    /// Writes what an archive ends with.
    void finish();

private:
    Q_DISABLE_COPY(ArchiveWriter)

    class Utf8Locale;
    /// Where the library's output goes.
    struct Sink {
        /// Null once nothing more is to be written.
        QIODevice* device;
        /// Whether what is not written is refused or passed over.
        bool refuses;
        /// Why the device took no more; null while it does.
        QString error;
    };

    void open();
    void addFile(const ArchiveMember& member, const Advance& advance);
    void addHeader(const ArchiveMember& member, qint64 size, bool executable);
    void addData(const char* data, qint64 size);
    void require(int result);
    [[noreturn]] void fail();

    std::unique_ptr<Utf8Locale> m_locale;
    Sink m_sink;
    QString m_name;
    ArchiveFormat m_format;
    archive* m_archive;
};

#endif
