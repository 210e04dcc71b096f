#include "tool/files/InputOpener.h"

#include "tool/base/Text.h"
#include "tool/files/Copy.h"
#include "tool/files/TemporaryFile.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Opens a file for reading and writing that has no name, and so cannot stay.
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

/// Reads what has come of \p file, up to \p bytes bytes; QFile would wait until it has them all.
FileSystem::OrReason<qint64> readAvailable(const QFile& file, char* data, qint64 bytes)
{
    ssize_t count = 0;
    do {
        count = ::read(file.handle(), data, static_cast<std::size_t>(bytes));
    } while (count < 0 && errno == EINTR);

    if (count < 0)
        return tl::make_unexpected(FileSystem::reason());
    return count;
}

/// Reads what has come of \p stream, up to \p bytes bytes; 0 at the end.
FileSystem::OrReason<qint64> readStream(QIODevice* stream, char* data, qint64 bytes)
{
    if (const auto* const file = qobject_cast<const QFile*>(stream))
        return readAvailable(*file, data, bytes);

    const qint64 count = stream->read(data, bytes);
    if (count < 0)
        return tl::make_unexpected(stream->errorString());
    return count;
}

} // namespace

QString ProtectedInput::refusal() const
{
    return QStringLiteral("is the input itself, \"%1\"").arg(shownText(label));
}

InputOpener::InputOpener(QIODevice* standardInput, Observers observers)
    : m_standardInput(standardInput), m_observers(std::move(observers))
{
}

Result<InputFile> InputOpener::open(const QString& path, qint64 limit, const QString& field,
                                    Protection protection)
{
    InputFile file;
    file.m_path = path;
    file.m_label = InputFile::labelOf(path);
    if (file.isStandardInput())
        return openStandardInput(std::move(file), limit, field);

    if (QFileInfo(path).isDir())
        return file.notRead("it is a folder", field);
    if (FileSystem::isDevice(path))
        return file.notRead("it is a device", field);

    auto opened = std::make_unique<QFile>(path);
    if (!opened->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return file.notRead(opened->errorString(), field);

    m_paths << path;
    if (protection == Protected)
        protect(*opened, file.label());
    if (opened->isSequential())
        return spool(opened.get(), limit, field, std::move(file));

    file.m_size = opened->size();
    file.m_version = FileSystem::versionOf(opened->handle());
    file.m_file = std::move(opened);
    return file;
}

Result<InputFile> InputOpener::openStandardInput(InputFile file, qint64 limit, const QString& field)
{
    if (!m_standardInput)
        return failure(ExitCode::Refused, file.label(), field, "it can be read only once");

    QIODevice* const stream = std::exchange(m_standardInput, nullptr);
    if (const auto* const redirected = qobject_cast<const QFile*>(stream))
        protect(*redirected, file.label());

    return spool(stream, limit, field, std::move(file));
}

Result<InputFile> InputOpener::spool(QIODevice* stream, qint64 limit, const QString& field,
                                     InputFile file) const
{
    const auto notSpooled = [&](const QString& reason) {
        return file.notRead(QStringLiteral("cannot be spooled: %1").arg(reason), field);
    };
    auto spooled = openNameless();
    if (!spooled)
        return notSpooled(spooled.error());

    const QString progress = QStringLiteral("reading %1").arg(shownText(file.label()));
    const CopyObserver observe = m_observers(progress);
    QByteArray chunk(ChunkBytes, Qt::Uninitialized);
    while (file.m_size <= limit) {
        const qint64 wanted = qMin<qint64>(ChunkBytes, limit + 1 - file.m_size);
        const auto count = readStream(stream, chunk.data(), wanted);
        if (!count)
            return file.notRead(count.error(), field);
        if (*count == 0)
            break;

        const auto part = QByteArray::fromRawData(chunk.constData(), static_cast<int>(*count));
        if (const auto written = writeBytes(spooled->get(), part); !written)
            return notSpooled(written.error());

        file.m_size += *count;
        observe(chunk.constData(), *count);
    }

    file.m_file = std::move(*spooled);
    return file;
}

void InputOpener::protect(const QFile& file, const QString& label)
{
    if (const auto identity = FileSystem::identityOf(file.handle()))
        m_protected.push_back({*identity, label});
}

const ProtectedInput* InputOpener::find(const std::optional<FileSystem::Identity>& identity) const
{
    for (const ProtectedInput& input : m_protected) {
        if (identity == input.identity)
            return &input;
    }
    return nullptr;
}

const ProtectedInput* InputOpener::behind(const QIODevice* output) const
{
    const auto* const file = qobject_cast<const QFile*>(output);
    if (!file || !FileSystem::isFile(file->handle()))
        return nullptr;

    return find(FileSystem::identityOf(file->handle()));
}
