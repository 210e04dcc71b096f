#ifndef HOST_APP_ARCHIVE_ARCHIVEJOB_H
#define HOST_APP_ARCHIVE_ARCHIVEJOB_H

#include "host/app/archive/ArchiveFormat.h"
#include "host/app/archive/ArchivePlan.h"

#include <QThread>

#include <exception>

/// The user has cancelled the making of an archive.
class ArchiveCancelled : public std::exception {};

/// Makes one archive in a thread of its own.
///
/// The archive is written under a temporary name in the destination's folder and renamed when it
/// is complete. Ended otherwise, it leaves nothing: not even a folder made for it, and an archive
/// that was there before is as it was.
class ArchiveJob : public QThread {
    Q_OBJECT

public:
    struct Order {
        ArchivePlan plan;
        ArchiveFormat format;
        /// The absolute path of the archive.
        QString destination;
        /// Missing folders are made below this one, which must exist.
        QString baseFolder;
        /// Whether a file at the destination may be replaced.
        bool replace;
    };
    enum Outcome { Unfinished, Written, Cancelled, Failed };

    /// What progressed() reports when all is done.
    static constexpr int Whole = 1000;

    explicit ArchiveJob(const Order& order, QObject* parent = nullptr);
    /// Cancels a job that still runs, and waits for its end.
    ~ArchiveJob() override;

    const Order& order() const { return m_order; }

    /// Ends the job soon, unless it is about to end anyway; finished() follows.
    void cancel() { requestInterruption(); }

    /// How the job ended, and why it failed. Valid after finished().
    Outcome outcome() const { return m_outcome; }
    QString error() const { return m_error; }

signals:
    void progressed(int part);

protected:
    void run() override;

private:
    void makeArchive();
    void write(QIODevice* device, const std::vector<ArchiveMember>& members);
    void checkCancelled() const;
    void report(qint64 done, qint64 total);

    Order m_order;
    Outcome m_outcome = Unfinished;
    QString m_error;
    int m_reported = 0;
};

#endif
