#include "host/app/archive/ArchiveWriter.h"

#include "host/app/archive/ArchivePlan.h"
#include "host/app/common/HostError.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <clocale>
#include <new>

namespace {

constexpr int BlockBytes = 64 * 1024;
constexpr time_t StartOf1980 = 315532800;

struct FreeEntry {
    void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

struct ArchiveWriterTexts {
    Q_DECLARE_TR_FUNCTIONS(ArchiveWriter)
};

QString cannotRead(const QString& path, const QString& reason)
{
    return ArchiveWriterTexts::tr("Cannot read %1: %2").arg(QDir::toNativeSeparators(path), reason);
}

} // namespace

/// The archive library reads names in the encoding of the thread's locale.
class ArchiveWriter::Utf8Locale {
public:
    Utf8Locale() : m_utf8(newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr)), m_before(nullptr)
    {
        if (!m_utf8)
            throw HostError(tr("The system has no locale \"C.UTF-8\"."));
        m_before = uselocale(m_utf8);
    }
    ~Utf8Locale()
    {
        uselocale(m_before);
        freelocale(m_utf8);
    }

private:
    Q_DISABLE_COPY(Utf8Locale)

    locale_t m_utf8;
    locale_t m_before;
};

ArchiveWriter::ArchiveWriter(QIODevice* device, const QString& name, ArchiveFormat format)
    : m_locale(new Utf8Locale), m_sink{device, format != ArchiveFormat::Zip, {}}, m_name(name),
      m_format(format), m_archive(archive_write_new())
{
    if (!m_archive)
        throw std::bad_alloc();
    try {
        open();
    } catch (const HostError&) {
        archive_write_free(m_archive);
        throw;
    }
}

ArchiveWriter::~ArchiveWriter()
{
    // The library frees all of its memory only when an archive is complete. One that was given up
    // is completed into nothing.
    m_sink.device = nullptr;
    archive_write_free(m_archive);
}

void ArchiveWriter::open()
{
    if (m_format == ArchiveFormat::Zip) {
        require(archive_write_set_format_zip(m_archive));
    } else {
        require(archive_write_set_format_pax_restricted(m_archive));
        require(archive_write_add_filter_gzip(m_archive));
        // The time of the writing would make two archives of the same design differ.
        require(archive_write_set_filter_option(m_archive, "gzip", "timestamp", nullptr));
    }
    require(archive_write_set_bytes_per_block(m_archive, BlockBytes));
    // By default the last block is filled up, as a block device needs it.
    require(archive_write_set_bytes_in_last_block(m_archive, 1));

    // When its output is refused, the library does not free a zip archive. When it is passed over,
    // the library still goes through all data of a tar archive. So each format has its own way.
    const auto writeBlock = [](archive*, void* context, const void* data,
                               std::size_t size) -> la_ssize_t {
        auto* const sink = static_cast<Sink*>(context);
        if (sink->device && sink->error.isNull()) {
            const qint64 written =
                sink->device->write(static_cast<const char*>(data), static_cast<qint64>(size));
            if (written > 0)
                return written;
            sink->error = sink->device->errorString();
        }
        return sink->refuses ? -1 : static_cast<la_ssize_t>(size);
    };
    require(archive_write_open(m_archive, &m_sink, nullptr, writeBlock, nullptr));
}

void ArchiveWriter::add(const ArchiveMember& member, const Advance& advance)
{
    switch (member.kind) {
    case ArchiveMember::File:
        addFile(member, advance);
        break;
    case ArchiveMember::Folder:
        addHeader(member, 0, true);
        break;
    case ArchiveMember::Text:
        addHeader(member, member.text.size(), false);
        addData(member.text.constData(), member.text.size());
        advance(member.text.size());
        break;
    }
}

void ArchiveWriter::addFile(const ArchiveMember& member, const Advance& advance)
{
    QFile file(member.source);
    // A pipe may have come up since the members were listed, and would block the archive.
    if (file.exists() && !QFileInfo(file).isFile())
        throw HostError(cannotRead(member.source, tr("It is not a file.")));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw HostError(cannotRead(member.source, file.errorString()));

    const qint64 size = file.size();
    addHeader(member, size, file.permissions().testFlag(QFile::ExeOwner));

    std::array<char, BlockBytes> block;
    qint64 total = 0;
    while (const qint64 count = file.read(block.data(), BlockBytes)) {
        if (count < 0)
            throw HostError(cannotRead(member.source, file.errorString()));
        total += count;
        if (total > size)
            break;

        addData(block.data(), count);
        advance(count);
    }
    if (total != size)
        throw HostError(cannotRead(member.source, tr("The file changed while it was read.")));
}

void ArchiveWriter::addHeader(const ArchiveMember& member, qint64 size, bool executable)
{
    const bool isFolder = member.kind == ArchiveMember::Folder;
    const std::unique_ptr<archive_entry, FreeEntry> entry(archive_entry_new());
    if (!entry)
        throw std::bad_alloc();

    const QByteArray name = member.name.toUtf8();
    archive_entry_copy_pathname(entry.get(), name.constData());
    archive_entry_set_filetype(entry.get(), isFolder ? AE_IFDIR : AE_IFREG);
    archive_entry_set_perm(entry.get(), executable ? 0755 : 0644);
    archive_entry_set_size(entry.get(), size);
    // A zip archive stores local time, so that it gets none: it would depend on the time zone.
    if (m_format != ArchiveFormat::Zip)
        archive_entry_set_mtime(entry.get(), StartOf1980, 0);
    require(archive_write_header(m_archive, entry.get()));
}

void ArchiveWriter::addData(const char* data, qint64 size)
{
    if (archive_write_data(m_archive, data, static_cast<std::size_t>(size)) != size ||
        !m_sink.error.isNull())
        fail();
}

void ArchiveWriter::finish() { require(archive_write_close(m_archive)); }

void ArchiveWriter::require(int result)
{
    if (result != ARCHIVE_OK || !m_sink.error.isNull())
        fail();
}

void ArchiveWriter::fail()
{
    QString reason = m_sink.error;
    if (reason.isNull())
        reason = QString::fromUtf8(archive_error_string(m_archive));
    throw HostError(tr("Cannot write %1: %2").arg(m_name, reason));
}
