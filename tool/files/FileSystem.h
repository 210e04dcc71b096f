#ifndef TOOL_FILES_FILESYSTEM_H
#define TOOL_FILES_FILESYSTEM_H

#include "tool/base/Result.h"

#include <QString>

#include <optional>

#include <ctime>

#include <sys/types.h>

/// What Qt does not offer of POSIX.
namespace FileSystem {

/// Two names, links included, with the same identity are one file.
struct Identity {
    dev_t device;
    ino_t inode;

    bool operator==(const Identity& other) const
    {
        return device == other.device && inode == other.inode;
    }
};

/// Of what \p path leads to; nothing when it leads nowhere.
std::optional<Identity> identityOf(const QString& path);
std::optional<Identity> identityOf(int descriptor);

/// What cannot stay as it is when a file is written to.
struct Version {
    Identity identity;
    off_t bytes;
    timespec modified;
    timespec changed;

    bool operator==(const Version& other) const;
};

/// Of an open file.
std::optional<Version> versionOf(int descriptor);

/// Whether the open file is a regular file, and no device or stream.
bool isFile(int descriptor);

enum class Kind { Nothing, File, Link, Folder, Device, Stream };

/// Of \p path itself: a link is not followed.
Kind kindOf(const QString& path);

/// Of what \p path leads to; links are followed.
Kind targetKindOf(const QString& path);

bool exists(const QString& path);

/// The folder of \p path as system calls take it.
QByteArray folderOf(const QString& path);

/// The last name of \p path as system calls take it.
QByteArray nameOf(const QString& path);

/// The text for the errno \p error.
QString reason(int error);

/// Whether the folder that \p path is to be in exists, and allows a name as long.
Status checkPlaceOf(const QString& path);

/// The error that the output \p path cannot be written on account of \p reason.
tl::unexpected<Finding> notWritten(const QString& path, const QString& reason);

/// The error that the output \p path exists.
tl::unexpected<Finding> alreadyExists(const QString& path);

} // namespace FileSystem

#endif
