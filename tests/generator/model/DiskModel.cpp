#include "generator/model/DiskModel.h"

#include <QFile>
#include <QStringList>

#include <cerrno>
#include <cstring>

namespace {

const int WholeBytes = 1024 * 1024;
const int EndBytes = 8 * 1024;

/// As Qt words it.
QString reason(int error)
{
    return error == ENOENT ? QString::fromLatin1("No such file or directory")
                           : QString::fromLocal8Bit(std::strerror(error));
}

} // namespace

FileState FileState::of(const QByteArray& bytes)
{
    FileState state;
    state.size = bytes.size();
    state.bytes = bytes.size() <= WholeBytes ? bytes : bytes.left(EndBytes) + bytes.right(EndBytes);
    return state;
}

FileState FileState::ofFile(const QString& path)
{
    QFile file(path);
    FileState state;
    if (!file.open(QIODevice::ReadOnly))
        return state;
    state.size = file.size();
    if (state.size <= WholeBytes) {
        state.bytes = file.readAll();
        return state;
    }
    state.bytes = file.read(EndBytes);
    file.seek(state.size - EndBytes);
    state.bytes += file.readAll();
    return state;
}

bool operator==(const FileState& left, const FileState& right)
{
    return left.size == right.size && left.bytes == right.bytes;
}

QString DiskModel::key(const QString& path) const
{
    const QString relative =
        path.startsWith(root + QLatin1Char('/')) ? path.mid(root.size() + 1) : path;
    // As the system has it, in which some characters may not exist.
    return QFile::decodeName(QFile::encodeName(relative));
}

QString DiskModel::target(const QString& path) const
{
    const QString link = key(path);
    const DiskEntry entry = entries.value(link);
    return entries.contains(link) && entry.kind == DiskEntry::Link
               ? key(QString::fromUtf8(entry.bytes))
               : link;
}

const DiskEntry* DiskModel::at(const QString& path) const
{
    const QMap<QString, DiskEntry>::const_iterator entry = entries.constFind(target(path));
    return entry == entries.constEnd() ? nullptr : &entry.value();
}

bool DiskModel::isOfKind(const QString& path, DiskEntry::Kind kind) const
{
    const DiskEntry* const entry = at(path);
    return entry && entry->kind == kind;
}

bool DiskModel::hasFolder(const QString& entry) const
{
    const int slash = entry.lastIndexOf(QLatin1Char('/'));
    return slash < 0 || isFolder(entry.left(slash));
}

qint64 DiskModel::size(const QString& path) const
{
    return isFile(path) ? at(path)->bytes.size() : 0;
}

QByteArray DiskModel::bytes(const QString& path) const
{
    return isFile(path) ? at(path)->bytes : QByteArray();
}

QString DiskModel::whyNotRead(const QString& path) const
{
    if (isPipe(path))
        return QString::fromLatin1("it is a named pipe");
    if (isFolder(path))
        return QString::fromLatin1("it is not a file");
    return isFile(path) ? QString() : reason(ENOENT);
}

QString DiskModel::whyNotAppend(const QString& path) const
{
    if (isPipe(path))
        return QString::fromLatin1("it is a named pipe");
    if (isFolder(path))
        return reason(EISDIR);
    return !path.isEmpty() && hasFolder(target(path)) ? QString() : reason(ENOENT);
}

QString DiskModel::truncate(const QString& path)
{
    const QString error = whyNotAppend(path);
    if (error.isEmpty())
        entries.insert(target(path), DiskEntry());
    return error;
}

void DiskModel::write(const QString& path, qint64 offset, const QByteArray& bytes)
{
    DiskEntry& entry = entries[target(path)];
    entry.bytes.replace(static_cast<int>(offset), bytes.size(), bytes);
}

bool DiskModel::add(const QString& path, const DiskEntry& entry)
{
    if (path.isEmpty() || entries.contains(key(path)) || !hasFolder(key(path)))
        return false;
    entries.insert(key(path), entry);
    return true;
}

bool DiskModel::replace(const QString& path, const QByteArray& bytes)
{
    if (!isFile(path))
        return add(path, DiskEntry(DiskEntry::File, bytes));
    entries[target(path)].bytes = bytes;
    return true;
}
