#ifndef TOOL_FILES_TEMPORARYFILE_H
#define TOOL_FILES_TEMPORARYFILE_H

#include <QByteArray>

#include <csignal>

#include <sys/types.h>

/// Files that are not yet where they belong.
namespace TemporaryFile {

/// Opens a file without a name in \p folder for reading and writing, with \p mode less what the
/// process masks. Where the file system has none, the file has a name, which is then put into
/// \p name; SIGHUP, SIGINT, SIGQUIT and SIGTERM remove it before they end the program. Returns -1
/// with errno when neither is possible.
int open(const QByteArray& folder, mode_t mode, QByteArray* name);

/// Has the signals not remove \p name any more.
void forget(const QByteArray& folder, const QByteArray& name);

} // namespace TemporaryFile

/// Blocks these signals as long as it exists.
class SignalBlock {
public:
    SignalBlock();
    ~SignalBlock();
    SignalBlock(const SignalBlock&) = delete;
    SignalBlock& operator=(const SignalBlock&) = delete;

private:
    sigset_t m_before;
};

#endif
