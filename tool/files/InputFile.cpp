#include "tool/files/InputFile.h"

#include "tool/base/Text.h"
#include "tool/files/TemporaryFile.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int ChunkBytes = 1024 * 1024;

/// A file for reading and writing that has no name, and so cannot stay.
FileSystem::OrReason<std::unique_ptr<QFile>> openNameless()
{
    const QByteArray folder = QFile::encodeName(QDir::tempPath());
    const auto opened = TemporaryFile::open(folder, S_IRUSR | S_IWUSR);
    if (!opened)
        return tl::make_unexpected(opened.error());
    if (!opened->name.isEmpty()) {
        ::unlink((folder + '/' + opened->name).constData());
        TemporaryFile::forget(folder, opened->name);
    }
    auto file = std::make_unique<QFile>();
    file->open(opened->descriptor, QIODevice::ReadWrite | QIODevice::Unbuffered,
               QFileDevice::AutoCloseHandle);
    return file;
}

/// How many bytes have come of a stream, up to \p bytes; 0 at the end.
FileSystem::OrReason<qint64> readStream(QIODevice* stream, char* data, qint64 bytes)
{
    // A QFile would wait until it has them all.
    const auto* const file = qobject_cast<const QFile*>(stream);
    qint64 count = 0;
    do {
        count = file ? ::read(file->handle(), data, static_cast<std::size_t>(bytes))
                     : stream->read(data, bytes);
    } while (count < 0 && file && errno == EINTR);
    if (count < 0)
        return tl::make_unexpected(file ? FileSystem::reason() : stream->errorString());
    return count;
}

} // namespace

QString InputFile::labelOf(const QString& path)
{
    return path == StandardStream ? "standard input" : path;
}

bool InputFile::isStandardInput() const { return m_path == StandardStream; }

Result<QByteArray> InputFile::bytesAt(qint64 offset, qint64 bytes) const
{
    QByteArray taken(static_cast<int>(bytes), Qt::Uninitialized);
    int count = 0;
    while (count < taken.size()) {
        const ssize_t more =
            ::pread(m_file->handle(), taken.data() + count,
                    static_cast<std::size_t>(taken.size() - count), offset + count);
        if (more < 0 && errno == EINTR)
            continue;
        if (more < 0)
            return notRead(FileSystem::reason());
        if (more == 0)
            break;
        count += static_cast<int>(more);
    }
    return taken.left(count);
}

Status InputFile::checkUnchanged() const
{
    if (!m_version || (m_version == FileSystem::versionOf(m_file->handle()) &&
                       FileSystem::identityOf(m_file->handle()) == FileSystem::identityOf(m_path)))
        return {};
    return notRead("it was changed meanwhile", "payload");
}

tl::unexpected<Finding> InputFile::notRead(const QString& reason, const QString& field) const
{
    return failure(ExitCode::CannotAccess, m_label, field,
                   QStringLiteral("cannot be read: %1").arg(reason));
}

Inputs::Inputs(QIODevice* standardInput, Observers observers)
    : m_in(standardInput), m_observers(std::move(observers))
{
}

Result<InputFile> Inputs::open(const QString& path, qint64 limit, const QString& field, Use use)
{
    InputFile file;
    file.m_path = path;
    file.m_label = InputFile::labelOf(path);
    if (file.isStandardInput()) {
        if (!m_in)
            return failure(ExitCode::Refused, file.m_label, field, "it can be read only once");
        QIODevice* const in = std::exchange(m_in, nullptr);
        if (const auto* const stream = qobject_cast<const QFile*>(in))
            guard(*stream, file);
        return spool(in, limit, field, std::move(file));
    }
    if (QFileInfo(path).isDir())
        return file.notRead("it is a folder", field);
    if (FileSystem::isDevice(path))
        return file.notRead("it is a device", field);
    auto opened = std::make_unique<QFile>(path);
    if (!opened->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return file.notRead(opened->errorString(), field);
    if (use == Guarded)
        guard(*opened, file);
    if (opened->isSequential())
        return spool(opened.get(), limit, field, std::move(file));
    file.m_size = opened->size();
    file.m_version = FileSystem::versionOf(opened->handle());
    file.m_file = std::move(opened);
    return file;
}

Result<InputFile> Inputs::spool(QIODevice* stream, qint64 limit, const QString& field,
                                InputFile file) const
{
    const auto notSpooled = [&](const QString& reason) {
        return file.notRead(QStringLiteral("cannot be spooled: %1").arg(reason), field);
    };
    auto spooled = openNameless();
    if (!spooled)
        return notSpooled(spooled.error());
    const CopyObserver observe =
        m_observers(QStringLiteral("reading %1").arg(shownText(file.m_label)));
    QByteArray chunk(ChunkBytes, Qt::Uninitialized);
    while (file.m_size <= limit) {
        const auto count =
            readStream(stream, chunk.data(), qMin<qint64>(ChunkBytes, limit + 1 - file.m_size));
        if (!count)
            return file.notRead(count.error(), field);
        if (*count == 0)
            break;
        const auto part = QByteArray::fromRawData(chunk.constData(), static_cast<int>(*count));
        if (const auto written = writeAll(spooled->get(), part); !written)
            return notSpooled(written.error());
        file.m_size += *count;
        observe(chunk.constData(), *count);
    }
    file.m_file = std::move(*spooled);
    return file;
}

void Inputs::guard(const QFile& file, const InputFile& input)
{
    if (const auto identity = FileSystem::identityOf(file.handle()))
        m_files.push_back({*identity, input.label()});
}

const ReadFile* Inputs::find(const std::optional<FileSystem::Identity>& identity) const
{
    for (const ReadFile& file : m_files) {
        if (identity == file.identity)
            return &file;
    }
    return nullptr;
}

const ReadFile* Inputs::behind(const QIODevice* out) const
{
    const auto* const file = qobject_cast<const QFile*>(out);
    if (!file || !FileSystem::isFile(file->handle()))
        return nullptr;
    return find(FileSystem::identityOf(file->handle()));
}
