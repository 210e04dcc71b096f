#include "tool/files/TemporaryFile.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int Signals[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

/// A signal handler can use no more than this: an image, a companion and a digest.
constexpr int MaximumNames = 3;
char names[MaximumNames][PATH_MAX];

extern "C" void removeNames(int signal)
{
    for (const char* const name : names) {
        if (*name != '\0')
            ::unlink(name);
    }
    std::signal(signal, SIG_DFL);
    ::raise(signal);
}

void handleSignals()
{
    for (const int signal : Signals) {
        struct sigaction action = {};
        ::sigaction(signal, nullptr, &action);
        // One that is ignored, as under nohup, stays so.
        if (action.sa_handler != SIG_DFL)
            continue;
        action.sa_handler = &removeNames;
        ::sigaction(signal, &action, nullptr);
    }
}

void remember(const QByteArray& path)
{
    char(*const free)[PATH_MAX] = std::find_if(std::begin(names), std::end(names),
                                               [](const auto& name) { return *name == '\0'; });
    if (free != std::end(names) && path.size() < PATH_MAX)
        std::memcpy(*free, path.constData(), static_cast<std::size_t>(path.size()) + 1);
}

FileSystem::OrReason<TemporaryFile::Opened> openNamed(const QByteArray& folder, mode_t mode)
{
    const SignalBlock block;
    for (int number = 0;; ++number) {
        const QByteArray name =
            QStringLiteral(".pelk-fcf-%1-%2").arg(::getpid()).arg(number).toLatin1();
        const QByteArray path = folder + '/' + name;
        const int descriptor =
            ::open(path.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (descriptor < 0 && errno == EEXIST)
            continue;
        if (descriptor < 0)
            return tl::make_unexpected(FileSystem::reason());
        remember(path);
        handleSignals();
        return TemporaryFile::Opened{descriptor, name};
    }
}

} // namespace

FileSystem::OrReason<TemporaryFile::Opened> TemporaryFile::open(const QByteArray& folder,
                                                                mode_t mode)
{
    // A file gets its name by way of /proc.
    if (::access("/proc/self/fd", X_OK) != 0)
        return openNamed(folder, mode);
    const int descriptor = ::open(folder.constData(), O_TMPFILE | O_RDWR | O_CLOEXEC, mode);
    if (descriptor >= 0)
        return Opened{descriptor, QByteArray()};
    if (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)
        return openNamed(folder, mode);
    return tl::make_unexpected(FileSystem::reason());
}

void TemporaryFile::forget(const QByteArray& folder, const QByteArray& name)
{
    const QByteArray path = folder + '/' + name;
    for (char* const known : names) {
        if (path == known)
            *known = '\0';
    }
}

SignalBlock::SignalBlock()
{
    sigset_t blocked;
    sigemptyset(&blocked);
    for (const int signal : Signals)
        sigaddset(&blocked, signal);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &m_before);
}

SignalBlock::~SignalBlock() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
