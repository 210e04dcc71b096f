#ifndef TESTS_TOOL_FAULTYFILESYSTEM_H
#define TESTS_TOOL_FAULTYFILESYSTEM_H

#include <QByteArray>

#include <functional>

/// What the file system of a test cannot do, or refuses to. A test that has this in it goes through
/// functions of its own in place of the library's.
struct Faults {
    bool hasNoFlaggedRename = false;
    bool hasNoLink = false;
    bool syncsNoFolder = false;
    bool hasNoLock = false;
    /// Before which write, rename, link or removal from now on the process is killed, counted from
    /// 0, or -1.
    int killedBeforeChange = -1;
    /// Whether nothing can be put to a path, by a rename or a link.
    std::function<bool(const QByteArray&)> failsTo;
    std::function<bool(const QByteArray&)> failsUnlink;
};

extern Faults faults;

#endif
