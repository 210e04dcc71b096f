#ifndef TESTS_SUPPORT_FULLDISK_H
#define TESTS_SUPPORT_FULLDISK_H

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>

/// Lets the process write no file longer than so many bytes, as a disk that is full would.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    Q_DISABLE_COPY(FullDisk)

    rlimit m_before{};
    sighandler_t m_handler;
};

#endif
