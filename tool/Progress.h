#ifndef TOOL_PROGRESS_H
#define TOOL_PROGRESS_H

#include "tool/PassingDevice.h"

#include <QString>

class Session;

/// Tells a person at a terminal how far a run has come, once it takes longer than a second. Nobody
/// else sees any of it.
class Progress {
public:
    /// For a total that nobody knows yet.
    static constexpr qint64 Unknown = -1;

    /// Of \p total bytes, in the course of what \p label says.
    Progress(Session* session, const QString& label, qint64 total);
    /// Wipes what it told.
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void advance(qint64 bytes);

private:
    QString state() const;

    Session* m_session;
    QString m_label;
    qint64 m_total;
    qint64 m_done = 0;
    /// In milliseconds; before it nothing is told.
    qint64 m_nextTelling;
    QString m_told;
};

/// Hands on another device's bytes, and counts them.
class MeteredSource : public PassingDevice {
public:
    /// Neither becomes the source's own.
    MeteredSource(QIODevice* device, Progress* progress);

protected:
    void passed(const char* data, qint64 bytes) override;

private:
    Progress* m_progress;
};

#endif
