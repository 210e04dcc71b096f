#include "Progress.h"

#include "fcf/FcfWriter.h"
#include "tool/Session.h"

namespace {

constexpr qint64 PatienceMilliseconds = 1000;
/// A terminal is not to be kept busier than an eye can follow.
constexpr qint64 IntervalMilliseconds = 100;
constexpr double Mebibyte = 1024 * 1024;

} // namespace

Progress::Progress(Session* session, const QString& label, qint64 total)
    : m_session(session), m_label(label), m_total(total),
      m_nextTelling(session->environment().milliseconds() + PatienceMilliseconds + 1)
{
}

Progress::~Progress()
{
    if (!m_told.isEmpty())
        FcfWriter::writeAll(m_session->environment().err, "\r\033[K", nullptr);
}

void Progress::advance(qint64 bytes)
{
    m_done += bytes;
    const Environment& environment = m_session->environment();
    if (!environment.errIsTerminal || m_session->quiet)
        return;
    const qint64 now = environment.milliseconds();
    const QString telling = state();
    if (now < m_nextTelling || telling == m_told)
        return;
    m_told = telling;
    m_nextTelling = now + IntervalMilliseconds;
    const QString line = QStringLiteral("\r%1: %2").arg(m_label, telling);
    FcfWriter::writeAll(environment.err, line.toLocal8Bit(), nullptr);
}

QString Progress::state() const
{
    if (m_total == Unknown)
        return QStringLiteral("%1 MiB").arg(static_cast<double>(m_done) / Mebibyte, 0, 'f', 1);
    const qint64 percent = m_total > 0 ? qMin(m_done, m_total) * 100 / m_total : 0;
    return QStringLiteral("%1 %").arg(percent);
}

MeteredSource::MeteredSource(QIODevice* device, Progress* progress)
    : PassingDevice(device, QIODevice::ReadOnly), m_progress(progress)
{
}

void MeteredSource::passed(const char*, qint64 bytes) { m_progress->advance(bytes); }
