#include "InputFile.h"

#include "fcf/FcfWriter.h"
#include "tool/FileSystem.h"
#include "tool/Progress.h"
#include "tool/Session.h"

#include <QDir>

#include <cerrno>
#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int ChunkBytes = 1024 * 1024;

/// A file for reading and writing that has no name, and so cannot stay; or null, with errno.
std::unique_ptr<QFile> openNameless()
{
    const QByteArray folder = QFile::encodeName(QDir::tempPath());
    int descriptor = ::open(folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0 && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
        QByteArray name = folder + "/pelk-fcf-XXXXXX";
        descriptor = ::mkostemp(name.data(), O_CLOEXEC);
        if (descriptor >= 0)
            ::unlink(name.constData());
    }
    if (descriptor < 0)
        return nullptr;
    // Without a buffer each write tells itself why it fails.
    auto file = std::make_unique<QFile>();
    file->open(descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered,
               QFileDevice::AutoCloseHandle);
    return file;
}

qint64 readDescriptor(int descriptor, char* data, qint64 bytes)
{
    for (;;) {
        const ssize_t count = ::read(descriptor, data, static_cast<std::size_t>(bytes));
        if (count >= 0 || errno != EINTR)
            return count;
    }
}

/// What has come of a stream, up to \p bytes bytes. Returns how many, 0 at the end, or -1 with the
/// reason in \p error.
qint64 readStream(QIODevice* stream, char* data, qint64 bytes, QString* error)
{
    // A QFile would wait until it has them all.
    const auto* const file = qobject_cast<const QFile*>(stream);
    const qint64 count =
        file ? readDescriptor(file->handle(), data, bytes) : stream->read(data, bytes);
    if (count < 0)
        *error = file ? FileSystem::reason(errno) : stream->errorString();
    return count;
}

} // namespace

QString InputFile::labelOf(const QString& path)
{
    return path == StandardStream ? QStringLiteral("standard input") : path;
}

bool InputFile::open(const QString& path, qint64 limit, const QString& field, Session* session)
{
    m_path = path;
    m_label = labelOf(path);
    if (isStandardInput() && !session->takeStandardInput()) {
        session->findings.error(ExitCode::Refused, m_label, field,
                                QStringLiteral("it can be read only once"));
        return false;
    }
    if (isStandardInput()) {
        QIODevice* const in = session->environment().in;
        if (const auto* const file = qobject_cast<const QFile*>(in))
            keepFromOutputs(*file, session);
        return putAside(in, limit, field, session);
    }

    const FileSystem::Kind kind = FileSystem::targetKindOf(path);
    if (kind == FileSystem::Kind::Folder)
        return refuse(QStringLiteral("it is a folder"), field, session);
    if (kind == FileSystem::Kind::Device)
        return refuse(QStringLiteral("it is a device"), field, session);
    m_file = std::make_unique<QFile>(path);
    if (!m_file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return refuse(m_file->errorString(), field, session);
    keepFromOutputs(*m_file, session);
    if (m_file->isSequential()) {
        const std::unique_ptr<QFile> stream = std::move(m_file);
        return putAside(stream.get(), limit, field, session);
    }
    m_size = m_file->size();
    return true;
}

bool InputFile::isStandardInput() const { return m_path == StandardStream; }

bool InputFile::putAside(QIODevice* stream, qint64 limit, const QString& field, Session* session)
{
    std::unique_ptr<QFile> aside = openNameless();
    if (!aside)
        return refuse(QStringLiteral("cannot be put aside: %1").arg(FileSystem::reason(errno)),
                      field, session);
    Progress progress(session, QStringLiteral("reading %1").arg(shownText(m_label)),
                      Progress::Unknown);
    QByteArray chunk(ChunkBytes, Qt::Uninitialized);
    QString error;
    while (m_size <= limit) {
        const qint64 count =
            readStream(stream, chunk.data(), qMin<qint64>(ChunkBytes, limit + 1 - m_size), &error);
        if (count < 0)
            return refuse(error, field, session);
        // A pipe says so in its own way when it has come to its end.
        if (count == 0)
            break;
        if (!FcfWriter::writeAll(
                aside.get(), QByteArray::fromRawData(chunk.constData(), static_cast<int>(count)),
                &error))
            return refuse(QStringLiteral("cannot be put aside: %1").arg(error), field, session);
        m_size += count;
        progress.advance(count);
    }
    m_file = std::move(aside);
    return true;
}

std::optional<QByteArray> InputFile::bytesAt(qint64 offset, qint64 bytes, Session* session) const
{
    InputSource source(this, offset);
    QByteArray taken;
    while (taken.size() < bytes) {
        const QByteArray more = source.read(bytes - taken.size());
        if (more.isEmpty())
            break;
        taken += more;
    }
    if (source.failure().isEmpty())
        return taken;
    refuse(source.failure(), QString(), session);
    return std::nullopt;
}

qint64 InputFile::readAt(qint64 offset, char* data, qint64 bytes) const
{
    for (;;) {
        const ssize_t count =
            ::pread(m_file->handle(), data, static_cast<std::size_t>(bytes), offset);
        if (count >= 0 || errno != EINTR)
            return count;
    }
}

void InputFile::keepFromOutputs(const QFile& file, Session* session) const
{
    if (const auto identity = FileSystem::identityOf(file.handle()))
        session->inputs.push_back({*identity, m_label});
}

bool InputFile::refuse(const QString& reason, const QString& field, Session* session) const
{
    session->findings.error(ExitCode::CannotAccess, m_label, field,
                            QStringLiteral("cannot be read: %1").arg(reason));
    return false;
}

InputSource::InputSource(const InputFile* file, qint64 offset) : m_file(file), m_offset(offset)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 InputSource::readData(char* data, qint64 maxSize)
{
    const qint64 count = m_file->readAt(m_offset, data, maxSize);
    if (count < 0) {
        m_failure = FileSystem::reason(errno);
        setErrorString(m_failure);
        return count;
    }
    m_offset += count;
    m_hasEnded = m_hasEnded || count == 0;
    return count;
}

bool InputSource::isAtFault() const
{
    return !m_failure.isEmpty() || m_offset > m_file->size() ||
           (m_hasEnded && m_offset < m_file->size());
}

qint64 InputSource::writeData(const char*, qint64) { return -1; }
