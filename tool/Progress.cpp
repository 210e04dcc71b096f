#include "Progress.h"

#include "fcf/FcfWriter.h"
#include "tool/Session.h"

#include <QCryptographicHash>

namespace {

constexpr qint64 PatienceMilliseconds = 1000;

} // namespace

Progress::Progress(Session* session, const QString& label, qint64 total)
    : m_session(session), m_label(label), m_total(total),
      m_started(session->environment().milliseconds())
{
}

Progress::~Progress()
{
    if (m_percentTold >= 0)
        FcfWriter::writeAll(m_session->environment().err, "\r\033[K", nullptr);
}

void Progress::advance(qint64 bytes)
{
    m_done += bytes;
    Environment& environment = m_session->environment();
    if (!environment.errIsTerminal || m_session->quiet ||
        environment.milliseconds() - m_started <= PatienceMilliseconds)
        return;
    const int percent = m_total > 0 ? static_cast<int>(qMin(m_done, m_total) * 100 / m_total) : 0;
    if (percent == m_percentTold)
        return;
    m_percentTold = percent;
    const QString line = QStringLiteral("\r%1: %2 %").arg(m_label, QString::number(percent));
    FcfWriter::writeAll(environment.err, line.toLocal8Bit(), nullptr);
}

MeteredSource::MeteredSource(QIODevice* device, Progress* progress)
    : m_device(device), m_progress(progress)
{
    open(QIODevice::ReadOnly | QIODevice::Unbuffered);
}

qint64 MeteredSource::readData(char* data, qint64 maxSize)
{
    const qint64 count = m_device->read(data, maxSize);
    if (count < 0)
        setErrorString(m_device->errorString());
    else
        m_progress->advance(count);
    return count;
}

qint64 MeteredSource::writeData(const char*, qint64) { return -1; }

DigestingSink::DigestingSink(QIODevice* device, QCryptographicHash* hash)
    : m_device(device), m_hash(hash)
{
    open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

qint64 DigestingSink::readData(char*, qint64) { return -1; }

qint64 DigestingSink::writeData(const char* data, qint64 maxSize)
{
    const qint64 count = m_device->write(data, maxSize);
    if (count < 0)
        setErrorString(m_device->errorString());
    else
        m_hash->addData(data, static_cast<int>(count));
    return count;
}
