#ifndef TESTS_SUPPORT_READCOUNT_H
#define TESTS_SUPPORT_READCOUNT_H

#include <QFile>

/// More bytes than it takes to ask for the count itself.
constexpr int CountingBytes = 512;

/// The bytes that this process has read, as the kernel counts them.
inline qint64 bytesReadSoFar()
{
    QFile io("/proc/self/io");
    if (!io.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        qFatal("%s", qPrintable(io.errorString()));
    return io.read(CountingBytes).split('\n').first().mid(sizeof("rchar:")).toLongLong();
}

#endif
