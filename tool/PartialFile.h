#ifndef TOOL_PARTIALFILE_H
#define TOOL_PARTIALFILE_H

#include <QString>

/// Temporary files beside outputs.
///
/// The name follows from the output's own, and the file is locked while a run uses it. So a run
/// that was killed leaves at most one for each output, and the next run for the same output tells
/// from the missing lock that it is free to clear it.
namespace PartialFile {

/// Where the file at \p path is completed. A name too long to be added to gives way to its digest.
QString pathFor(const QString& path);

/// Where the file at \p path is kept until its replacement is sure to stay, on a file system that
/// cannot exchange two files.
QString backupPathFor(const QString& path);

/// Creates the temporary file for \p path with its lock and puts it into \p descriptor, once what a
/// killed run left is cleared. Returns 0 or an errno; EWOULDBLOCK while another run has it.
int create(const QString& path, int* descriptor);

/// Clears all that a killed run left for \p path. Returns 0 or an errno.
int clear(const QString& path);

/// Clears what a killed run kept of \p path, or puts it back if that run came no further. Returns 0
/// or an errno.
int clearBackup(const QString& path);

/// What stands under the temporary name for a path, kept from other runs while this lives.
class Found {
public:
    explicit Found(const QString& path);
    ~Found();
    Found(const Found&) = delete;
    Found& operator=(const Found&) = delete;

    /// 0 if it is this run's to take, ENOENT if there is nothing, EWOULDBLOCK while another run has
    /// it, or another errno.
    int error() const { return m_error; }

    /// Removes it, if it is this run's to take or not there. Returns 0 or an errno.
    int clear() const;

private:
    const QString m_partial;
    int m_descriptor = -1;
    int m_error = 0;
};

} // namespace PartialFile

#endif
