#ifndef TOOL_FILESYSTEM_H
#define TOOL_FILESYSTEM_H

#include <QString>

#include <optional>

#include <sys/types.h>

/// What Qt does not offer of POSIX. Functions that return an int give 0 or an errno.
namespace FileSystem {

/// Tells whether two names, links included, are one file.
struct Identity {
    dev_t device;
    ino_t inode;

    bool operator==(const Identity& other) const
    {
        return device == other.device && inode == other.inode;
    }
};

/// Of what stands at \p path itself: a link is not followed.
std::optional<Identity> entryIdentityOf(const QString& path);

/// Of what \p path leads to; nothing when it leads nowhere.
std::optional<Identity> identityOf(const QString& path);
std::optional<Identity> identityOf(int descriptor);

/// Whether the open file is what stands at \p path, by a link or itself.
bool standsAt(const QString& path, int descriptor);

/// Whether the open file is a file, and no device or stream.
bool isFile(int descriptor);

enum class Kind { Nothing, File, Link, Folder, Device, Stream };

/// What stands at \p path itself: a link is not followed.
Kind kindOf(const QString& path);

/// Whether anything stands at \p path itself.
bool exists(const QString& path);

/// How many names that has which stands at \p path itself; 0 for nothing.
unsigned linkCountOf(const QString& path);

/// What \p path leads to; links are followed.
Kind targetKindOf(const QString& path);

/// The name of the errno \p error, for people.
QString reason(int error);

/// Renames \p from to \p to in one step, unless something stands there: then EEXIST.
int renameToFree(const QString& from, const QString& to);

/// Renames \p from to \p to in one step, over what stands there.
int renameOver(const QString& from, const QString& to);

/// Gives what stands at \p from the name \p to as well; EEXIST when something stands there.
int link(const QString& from, const QString& to);

/// Whether link() gives \p error where a file cannot have a second name, for the file system's sake
/// or because it is someone else's.
bool isWithoutLinks(int error);

int unlink(const QString& path);

/// The mode of the file at \p path, if that is a file itself; nothing else than its permissions.
std::optional<mode_t> modeOf(const QString& path);

/// Gives the open file \p mode.
int setMode(int descriptor, mode_t mode);

/// Whether the folder that \p path is to be in is there, and can hold a name as long.
int findPlaceOf(const QString& path);

/// Brings all of an open file to the disk.
int sync(int descriptor);

/// Brings the names in the folder of \p path to the disk.
int syncFolderOf(const QString& path);

} // namespace FileSystem

#endif
