#ifndef TESTS_RELIABILITY_EFFORT_H
#define TESTS_RELIABILITY_EFFORT_H

#include <QtGlobal>

#include <ctime>

/// What the process did since this was made, as the kernel counts it. A count does not depend on
/// how busy the machine is, as a time does.
class Effort {
public:
    Effort();

    /// Bytes read from files and pipes.
    qint64 bytesRead() const;
    /// Seconds that the processor worked for the process, which is less than a clock shows. Always
    /// 0 with a sanitizer, which makes each allocation slow.
    double processorSeconds() const;
    /// Bytes by which the memory of the process was larger at its peak than at the start. Always 0
    /// with a sanitizer, which keeps memory back for reasons of its own.
    qint64 peakBytes() const;

    /// Bytes of memory that the process has now.
    static qint64 residentBytes();

private:
    [[maybe_unused]] std::clock_t m_clockBefore;
    qint64 m_readBefore;
    qint64 m_residentBefore;
};

#endif
