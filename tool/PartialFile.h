#ifndef TOOL_PARTIALFILE_H
#define TOOL_PARTIALFILE_H

#include <QString>
#include <QStringList>

#include <sys/types.h>

/// Temporary names beside an output.
///
/// They follow from the output's own, and what stands under the first is locked as long as a run
/// needs any of them. It stays until the run is done with all its outputs, so that an output which
/// is the same file as it was put in place by that run. A run that was killed leaves no other files
/// than these, and the next run for the same output tells from the missing lock that they are free.
namespace PartialFile {

/// Where the file at \p path is completed. A name too long to be added to gives way to its digest.
QString pathFor(const QString& path);

/// Where the file at \p path is kept until its replacement is sure to stay.
QString backupPathFor(const QString& path);

/// Where the file at \p path is kept for good that could not be put back. No run clears it.
QString keptPathFor(const QString& path);

/// A second name of what is completed, from where it replaces the file at \p path in one step.
QString sparePathFor(const QString& path);

/// All of these that a run may clear.
QStringList namesFor(const QString& path);

/// Creates the temporary file for \p path with its lock and puts it into \p descriptor, in place of
/// one that a killed run left. \p mode is that of the file, less what the process masks. Returns 0
/// or an errno; EWOULDBLOCK while another run has it.
int create(const QString& path, mode_t mode, int* descriptor);

/// Whether the file at \p path was put there by the run whose temporary file is beside it.
bool isInPlace(const QString& path);

/// Whether that run put it in place, even if it was moved away since.
bool wasPlaced(const QString& path);

/// Clears the other names for \p path. What was put in place stays if \p keepPlaced, or else gives
/// way to what stood there before. Only for a run that has the lock. Returns 0 or an errno.
int recover(const QString& path, bool keepPlaced);

/// Clears all that a killed run left for \p path. Returns 0 or an errno.
int clear(const QString& path);

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
