#ifndef TESTS_SUPPORT_UNPRIVILEGED_H
#define TESTS_SUPPORT_UNPRIVILEGED_H

#include <QtGlobal>

#include <sys/prctl.h>
#include <unistd.h>

/// Makes an administrator's process one of a user for whom permissions count, while it lives.
///
/// That user can enter only those folders of the test that are open to all.
class Unprivileged {
public:
    Unprivileged() : m_wasRoot(geteuid() == 0)
    {
        constexpr uid_t nobody = 65534;
        // The saved identity stays, as the way back.
        m_succeeded = !m_wasRoot || setresuid(nobody, nobody, 0) == 0;
        // Or its own files below /proc are out of its reach.
        prctl(PR_SET_DUMPABLE, 1);
    }
    ~Unprivileged()
    {
        if (m_wasRoot && setresuid(0, 0, 0) != 0)
            qFatal("cannot become root again");
    }

    /// False where there is no such user, as in some containers.
    bool succeeded() const { return m_succeeded; }

private:
    Q_DISABLE_COPY(Unprivileged)

    bool m_wasRoot;
    bool m_succeeded;
};

#endif
