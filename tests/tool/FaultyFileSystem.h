#ifndef TESTS_TOOL_FAULTYFILESYSTEM_H
#define TESTS_TOOL_FAULTYFILESYSTEM_H

#include <QByteArray>

#include <csignal>
#include <functional>
#include <limits>

/// What the file system of a test cannot do, or fails to. A test that has this in it calls
/// functions of its own in place of the library's.
struct Faults {
    /// Whether every file has a name from the start.
    bool hasNoUnnamedFiles = false;
    bool hasNoFlaggedRename = false;
    bool hasNoLock = false;
    bool failsSync = false;
    bool failsFolderSync = false;
    /// Bytes that are free for files among the temporary ones.
    qint64 room = std::numeric_limits<qint64>::max();
    /// Which read of such a file from now on fails, counted from 0, or -1.
    int failingRead = -1;
    /// How many bytes were read with an offset so far.
    qint64 bytesRead = 0;
    /// Before which write or change of a name from now on the process gets `signal`, counted from
    /// 0, or -1.
    int signalledChange = -1;
    int signal = SIGKILL;
    /// Whether a file cannot get a name, by a rename or a link.
    std::function<bool(const QByteArray& name)> failsTo;
    /// Called before a folder is locked.
    std::function<void()> beforeLocking;
    /// Called before a file gets a name.
    std::function<void(const QByteArray& name)> beforeNaming;
};

extern Faults faults;

#endif
