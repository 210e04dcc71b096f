#ifndef TOOL_FILES_FILESYSTEM_H
#define TOOL_FILES_FILESYSTEM_H

#include "tool/base/Result.h"

#include <QString>

#include <optional>
#include <utility>

#include <ctime>

#include <sys/types.h>

/// What Qt does not offer of POSIX.
namespace FileSystem {

/// Device and inode: two names, links included, with the same identity are one file.
using Identity = std::pair<dev_t, ino_t>;

/// The identity of what \p path leads to; nothing when it leads nowhere.
std::optional<Identity> identityOf(const QString& path);
std::optional<Identity> identityOf(int descriptor);

/// What cannot stay as it is when a file is written to.
struct Version {
    using Time = std::pair<time_t, long>;

    /// In bytes.
    off_t size = 0;
    /// When its content was changed, in seconds and nanoseconds.
    Time contentTime;
    /// When its content, its names or its mode were changed.
    Time changeTime;

    bool operator==(const Version& other) const
    {
        return hasContentOf(other) && changeTime == other.changeTime;
    }

    bool hasContentOf(const Version& other) const
    {
        return size == other.size && contentTime == other.contentTime;
    }
};

/// The version of an open file.
std::optional<Version> versionOf(int descriptor);

/// Whether the open file is a regular file, and no device or stream.
bool isFile(int descriptor);

/// Whether \p path leads to a device.
bool isDevice(const QString& path);

/// Whether there is something at \p path, be it a link that leads nowhere.
bool exists(const QString& path);

/// The folder of \p path as system calls take it.
QByteArray folderOf(const QString& path);

/// The last name of \p path as system calls take it.
QByteArray nameOf(const QString& path);

/// Why the system call before failed.
QString reason();

/// A value, or the reason why there is none.
template <class Value>
using OrReason = tl::expected<Value, QString>;

/// Whether the folder that \p path is to be in exists, and allows a name as long.
Status checkPlaceOf(const QString& path);

/// The error that the output \p path cannot be written, and why.
tl::unexpected<Finding> notWritten(const QString& path, const QString& reason);

/// The error that the output \p path exists.
tl::unexpected<Finding> alreadyExists(const QString& path);

} // namespace FileSystem

#endif
