#include "StagedFiles.h"

#include "tool/FileSystem.h"
#include "tool/Findings.h"

#include <csignal>

namespace {

/// Holds back what would end the program while files that belong together are partly in place.
class SignalPause {
public:
    SignalPause()
    {
        sigset_t held;
        sigemptyset(&held);
        for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGTERM})
            sigaddset(&held, number);
        pthread_sigmask(SIG_BLOCK, &held, &m_before);
    }
    ~SignalPause() { pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalPause(const SignalPause&) = delete;
    SignalPause& operator=(const SignalPause&) = delete;

private:
    sigset_t m_before;
};

} // namespace

StagedFiles::StagedFiles(std::function<void(const char*)> beforeStep)
    : m_beforeStep(std::move(beforeStep))
{
}

/// The first file's lock keeps other runs away to the end.
void StagedFiles::release()
{
    for (; !m_files.empty(); m_files.pop_back()) {
        if (!m_files.back()->release())
            m_leftBehind << m_files.back()->partialPath();
    }
}

QFile* StagedFiles::add(const QString& path, FileError* error)
{
    m_beforeStep("open");
    auto staged = std::make_unique<StagedFile>(path);
    if (!staged->open(error))
        return nullptr;
    m_files.push_back(std::move(staged));
    return &m_files.back()->file();
}

bool StagedFiles::place(bool replacing, FileError* error)
{
    if (!completeAll(error))
        return false;
    const SignalPause pause;
    const bool isPlaced = putInPlace(replacing, error);
    release();
    return isPlaced;
}

bool StagedFiles::putInPlace(bool replacing, FileError* error)
{
    if (!placeAll(replacing, error) || !syncFolder(error)) {
        takeAllBack(error);
        return false;
    }
    for (const auto& file : m_files) {
        m_beforeStep("settle");
        if (!file->settle())
            m_leftBehind << file->keptPath();
    }
    return true;
}

void StagedFiles::takeAllBack(FileError* error)
{
    for (const auto& file : m_files) {
        if (!file->takeBack())
            error->reason += QStringLiteral("; %1 could not be put back, what stood there before "
                                            "is kept as %2")
                                 .arg(shownText(file->path()), shownText(file->setAside()));
    }
}

/// All outputs are in one folder.
bool StagedFiles::syncFolder(FileError* error)
{
    m_beforeStep("sync folder");
    const QString path = m_files.front()->path();
    return error->take(FileSystem::syncFolderOf(path), path);
}

bool StagedFiles::completeAll(FileError* error)
{
    for (const auto& file : m_files) {
        m_beforeStep("complete");
        if (!file->complete(error))
            return false;
    }
    return true;
}

bool StagedFiles::placeAll(bool replacing, FileError* error)
{
    for (auto file = m_files.rbegin(); file != m_files.rend(); ++file) {
        m_beforeStep("place");
        if (!(*file)->place(replacing, error))
            return false;
    }
    return true;
}
