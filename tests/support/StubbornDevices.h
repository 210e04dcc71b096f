#ifndef TESTS_SUPPORT_STUBBORNDEVICES_H
#define TESTS_SUPPORT_STUBBORNDEVICES_H

#include <QBuffer>
#include <QIODevice>

#include <cstring>
#include <limits>

/// Takes a number of bytes, at most so many at a time, and then fails, or takes nothing more.
class LimitedSink : public QIODevice {
public:
    enum AtTheEnd { Fails, TakesNothing };

    LimitedSink(qint64 limit, AtTheEnd atTheEnd,
                qint64 atATime = std::numeric_limits<qint64>::max())
        : m_limit(limit), m_atTheEnd(atTheEnd), m_atATime(atATime)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    QByteArray bytes() const { return m_bytes; }

protected:
    qint64 readData(char*, qint64) override { return -1; }
    qint64 writeData(const char* data, qint64 count) override
    {
        const qint64 taken = qMin(qMin(count, m_atATime), m_limit - m_bytes.size());
        if (taken == 0 && m_atTheEnd == Fails) {
            setErrorString("No space left on device");
            return -1;
        }
        m_bytes.append(data, static_cast<int>(taken));
        return taken;
    }

private:
    qint64 m_limit;
    AtTheEnd m_atTheEnd;
    qint64 m_atATime;
    QByteArray m_bytes;
};

/// Gives its bytes up to a point and then fails.
class FailingSource : public QIODevice {
public:
    FailingSource(const QByteArray& bytes, int failsAt) : m_bytes(bytes.left(failsAt))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

protected:
    qint64 readData(char* data, qint64 count) override
    {
        if (m_position == m_bytes.size()) {
            setErrorString("Input/output error");
            return -1;
        }
        const qint64 taken = qMin<qint64>(count, m_bytes.size() - m_position);
        std::memcpy(data, m_bytes.constData() + m_position, static_cast<std::size_t>(taken));
        m_position += static_cast<int>(taken);
        return taken;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_bytes;
    int m_position = 0;
};

/// A start, then one text again and again, for as long as anyone reads; counts what was taken.
class EndlessSource : public QIODevice {
public:
    EndlessSource(const QByteArray& start, const QByteArray& repeated)
        // Long, so that few copies make a read.
        : m_start(start), m_repeated(repeated.repeated(4096))
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    qint64 taken() const { return m_taken; }

protected:
    qint64 readData(char* data, qint64 count) override
    {
        for (qint64 copied = 0; copied < count;) {
            const bool starts = m_taken < m_start.size();
            const QByteArray& from = starts ? m_start : m_repeated;
            const qint64 offset = starts ? m_taken : (m_taken - m_start.size()) % m_repeated.size();
            const qint64 length = qMin(count - copied, from.size() - offset);
            std::memcpy(data + copied, from.constData() + offset, static_cast<std::size_t>(length));
            copied += length;
            m_taken += length;
        }
        return count;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    QByteArray m_start;
    QByteArray m_repeated;
    qint64 m_taken = 0;
};

#endif
