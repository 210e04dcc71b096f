#include "tool/console/Progress.h"

#include "tool/base/Text.h"
#include "tool/console/Environment.h"
#include "tool/files/Copy.h"

#include <memory>

namespace {

constexpr qint64 PatienceMilliseconds = 1000;
/// An eye cannot follow what changes more often.
constexpr qint64 IntervalMilliseconds = 100;
constexpr double Mebibyte = 1024 * 1024;

class Line {
public:
    Line(const Environment* environment, const QString& label, qint64 total)
        : m_environment(environment), m_label(shownText(label)), m_total(total),
          m_nextShow(environment->milliseconds() + PatienceMilliseconds + 1)
    {
    }

    ~Line()
    {
        if (!m_shown.isEmpty())
            write("\r\033[K");
    }
    Q_DISABLE_COPY(Line)

    void advance(qint64 bytes)
    {
        m_done += bytes;
        const qint64 now = m_environment->milliseconds();
        const QString text = state();
        if (now < m_nextShow || text == m_shown)
            return;

        m_shown = text;
        m_nextShow = now + IntervalMilliseconds;
        write(QStringLiteral("\r%1: %2").arg(m_label, text).toLocal8Bit());
    }

private:
    void write(const QByteArray& bytes) const { writeBytes(m_environment->err, bytes); }

    QString state() const
    {
        if (m_total == Progress::Unknown)
            return QStringLiteral("%1 MiB").arg(static_cast<double>(m_done) / Mebibyte, 0, 'f', 1);

        const qint64 percent = m_total > 0 ? qMin(m_done, m_total) * 100 / m_total : 0;
        return QStringLiteral("%1 %").arg(percent);
    }

    /// Not owned.
    const Environment* m_environment;
    QString m_label;
    qint64 m_total;
    qint64 m_done = 0;
    /// Nothing is shown before this time, in milliseconds.
    qint64 m_nextShow;
    QString m_shown;
};

} // namespace

CopyObserver Progress::observer(const Environment* environment, const QString& label, qint64 total)
{
    if (!environment->errIsTerminal)
        return [](const char*, qint64) {};

    const auto line = std::make_shared<Line>(environment, label, total);
    return [line](const char*, qint64 bytes) { line->advance(bytes); };
}
