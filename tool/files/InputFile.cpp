#include "tool/files/InputFile.h"

#include "tool/base/Text.h"

#include <cerrno>

#include <unistd.h>

QString InputFile::labelOf(const QString& path)
{
    return path == StandardStream ? "standard input" : path;
}

bool InputFile::isStandardInput() const { return m_path == StandardStream; }

void InputFile::narrow(qint64 offset, qint64 bytes)
{
    m_start += offset;
    m_size = bytes;
    m_isPart = true;
}

Result<QByteArray> InputFile::bytesAt(qint64 offset, qint64 bytes) const
{
    if (m_isPart)
        bytes = qBound<qint64>(0, m_size - offset, bytes);

    QByteArray taken(static_cast<int>(bytes), Qt::Uninitialized);
    int count = 0;
    while (count < taken.size()) {
        const ssize_t more =
            ::pread(m_file->handle(), taken.data() + count,
                    static_cast<std::size_t>(taken.size() - count), m_start + offset + count);
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
    if (!m_version)
        return {};

    const int descriptor = m_file->handle();
    const auto version = FileSystem::versionOf(descriptor);
    if (m_mayBeReplaced && version && version->hasContentOf(*m_version))
        return {};

    const bool isInPlace = FileSystem::identityOf(descriptor) == FileSystem::identityOf(m_path);
    if (isInPlace && version == m_version)
        return {};

    return notRead("it was changed meanwhile", "payload");
}

tl::unexpected<Finding> InputFile::notRead(const QString& reason, const QString& field) const
{
    return failure(ExitCode::CannotAccess, m_label, field,
                   QStringLiteral("cannot be read: %1").arg(reason));
}
