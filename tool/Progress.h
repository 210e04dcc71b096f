#ifndef TOOL_PROGRESS_H
#define TOOL_PROGRESS_H

#include <QIODevice>
#include <QString>

class QCryptographicHash;
class Session;

/// Tells a person at a terminal how far a run has come, once it takes longer than a second. Nobody
/// else sees any of it.
class Progress {
public:
    /// Of \p total bytes, in the course of what \p label says.
    Progress(Session* session, const QString& label, qint64 total);
    /// Wipes what it told.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void advance(qint64 bytes);

private:
    Session* m_session;
    QString m_label;
    qint64 m_total;
    qint64 m_done = 0;
    qint64 m_started;
    int m_percentTold = -1;
};

/// Hands on another device's bytes, and counts them.
class MeteredSource : public QIODevice {
public:
    /// Neither becomes the source's own.
    MeteredSource(QIODevice* device, Progress* progress);

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    QIODevice* m_device;
    Progress* m_progress;
};

/// Hands bytes on to another device, and digests them.
class DigestingSink : public QIODevice {
public:
    /// Neither becomes the sink's own.
    DigestingSink(QIODevice* device, QCryptographicHash* hash);

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    QIODevice* m_device;
    QCryptographicHash* m_hash;
};

#endif
