#include "InputFile.h"

#include "fcf/FcfWriter.h"
#include "tool/FileSystem.h"
#include "tool/Progress.h"
#include "tool/Session.h"

#include <QDir>
#include <QTemporaryFile>

namespace {

constexpr int ChunkBytes = 1024 * 1024;

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
    // Never asked for its name, it has none where the file system allows that, and so cannot stay.
    auto aside = std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/pelk-fcf"));
    if (!aside->open())
        return refuse(QStringLiteral("cannot be put aside: %1").arg(aside->errorString()), field,
                      session);
    Progress progress(session, QStringLiteral("reading %1").arg(shownText(m_label)),
                      Progress::Unknown);
    QByteArray chunk(ChunkBytes, Qt::Uninitialized);
    while (m_size <= limit) {
        const qint64 count =
            stream->read(chunk.data(), qMin<qint64>(ChunkBytes, limit + 1 - m_size));
        if (count < 0)
            return refuse(stream->errorString(), field, session);
        // A pipe says so in its own way when it has come to its end.
        if (count == 0)
            break;
        QString error;
        if (!FcfWriter::writeAll(
                aside.get(), QByteArray::fromRawData(chunk.constData(), static_cast<int>(count)),
                &error))
            return refuse(QStringLiteral("cannot be put aside: %1").arg(error), field, session);
        m_size += count;
        progress.advance(count);
    }
    if (!aside->flush() || !aside->seek(0))
        return refuse(QStringLiteral("cannot be put aside: %1").arg(aside->errorString()), field,
                      session);
    m_file = std::move(aside);
    return true;
}

std::optional<QByteArray> InputFile::bytesAt(qint64 offset, qint64 bytes, Session* session)
{
    QByteArray taken;
    if (!m_file->seek(offset)) {
        refuse(m_file->errorString(), QString(), session);
        return std::nullopt;
    }
    while (taken.size() < bytes) {
        QByteArray chunk(static_cast<int>(bytes - taken.size()), Qt::Uninitialized);
        const qint64 count = m_file->read(chunk.data(), chunk.size());
        if (count < 0) {
            refuse(m_file->errorString(), QString(), session);
            return std::nullopt;
        }
        if (count == 0)
            break;
        taken += chunk.left(static_cast<int>(count));
    }
    return taken;
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
