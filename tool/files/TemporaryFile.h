#ifndef TOOL_FILES_TEMPORARYFILE_H
#define TOOL_FILES_TEMPORARYFILE_H

#include "tool/files/FileSystem.h"

#include <QByteArray>

#include <csignal>

/// Files that are not yet where they belong.
namespace TemporaryFile {

struct Opened {
    int descriptor;
    /// Empty, or where the file system has no files without a name, the one in the folder.
    QByteArray name;
};

/// Opens a file in \p folder for reading and writing, with \p mode less what the process masks. If
/// it has a name, SIGHUP, SIGINT, SIGQUIT and SIGTERM remove it before they end the program.
FileSystem::OrReason<Opened> open(const QByteArray& folder, mode_t mode);

/// Has the signals not remove \p name any more.
void forget(const QByteArray& folder, const QByteArray& name);

} // namespace TemporaryFile

/// Blocks these signals as long as it exists.
class SignalBlock {
public:
    SignalBlock();
    ~SignalBlock();
    Q_DISABLE_COPY(SignalBlock)

private:
    sigset_t m_before;
};

#endif
