#include "reliability/Effort.h"

#include <QFile>

namespace {

/// The number behind \p name in a file of lines "name: number".
qint64 numberIn(const char* path, const QByteArray& name)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", path);
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines) {
        if (line.startsWith(name + ':'))
            return line.mid(name.size() + 1).simplified().split(' ').first().toLongLong();
    }
    qFatal("%s has no %s", path, name.constData());
}

qint64 memory(const char* name) { return numberIn("/proc/self/status", name) * 1024; }

} // namespace

Effort::Effort()
{
    // Sets the peak back to what the process has now.
    QFile references("/proc/self/clear_refs");
    if (!references.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        references.write("5") != 1)
        qFatal("the peak of memory cannot be set back");
    m_residentBefore = residentBytes();
    m_readBefore = numberIn("/proc/self/io", "rchar");
    m_clockBefore = std::clock();
}

double Effort::processorSeconds() const
{
#ifdef __SANITIZE_ADDRESS__
    return 0;
#else
    return static_cast<double>(std::clock() - m_clockBefore) / CLOCKS_PER_SEC;
#endif
}

qint64 Effort::bytesRead() const { return numberIn("/proc/self/io", "rchar") - m_readBefore; }

qint64 Effort::peakBytes() const
{
#ifdef __SANITIZE_ADDRESS__
    return 0;
#else
    return memory("VmHWM") - m_residentBefore;
#endif
}

qint64 Effort::residentBytes() { return memory("VmRSS"); }
