#include "host/app/archive/ArchiveJob.h"

#include "host/app/archive/ArchivePlan.h"
#include "host/app/archive/ArchiveWriter.h"
#include "host/app/common/FileProblem.h"
#include "host/app/common/FileReplacement.h"
#include "host/app/common/HostError.h"

#include <QDir>
#include <QFileInfo>

namespace {

struct ArchiveJobTexts {
    Q_DECLARE_TR_FUNCTIONS(ArchiveJob)
};

/// Makes the missing folders on the way to a file, and removes them again unless they are kept.
class MissingFolders {
public:
    MissingFolders(const QString& file, const QString& base)
        : m_folder(QFileInfo(file).absolutePath()), m_present(m_folder)
    {
        while (!QFileInfo::exists(m_present))
            m_present = QFileInfo(m_present).absolutePath();

        const bool isBelow = m_folder.startsWith(base + '/') && QFileInfo(base).isDir();
        if (!isBelow && !QFileInfo(m_folder).isDir())
            throw HostError(
                fileProblem(m_folder, ArchiveJobTexts::tr("The folder does not exist.")));
        if (!QDir().mkpath(m_folder)) {
            remove();
            throw HostError(
                fileProblem(m_folder, ArchiveJobTexts::tr("The folder cannot be made.")));
        }
    }
    ~MissingFolders() { remove(); }

    void keep() { m_present = m_folder; }

private:
    Q_DISABLE_COPY(MissingFolders)

    void remove()
    {
        // Only empty folders are removed, so that nothing is lost that was added meanwhile.
        for (; m_folder != m_present; m_folder = QFileInfo(m_folder).absolutePath())
            QDir().rmdir(m_folder);
    }

    QString m_folder;
    /// The one above it that was there before.
    QString m_present;
};

} // namespace

ArchiveJob::ArchiveJob(const Order& order, QObject* parent) : QThread(parent), m_order(order)
{
    m_order.plan.leaveOut(order.destination);
}

ArchiveJob::~ArchiveJob()
{
    cancel();
    wait();
}

void ArchiveJob::run()
{
    try {
        makeArchive();
        m_outcome = Written;
    } catch (const ArchiveCancelled&) {
        m_outcome = Cancelled;
    } catch (const HostError& error) {
        m_error = error.text();
        m_outcome = Failed;
    } catch (const std::bad_alloc&) {
        m_error = tr("There is not enough memory.");
        m_outcome = Failed;
    }
}

void ArchiveJob::makeArchive()
{
    const std::vector<ArchiveMember> members = m_order.plan.members();
    if (members.empty())
        throw HostError(tr("There is nothing to archive."));
    checkCancelled();

    MissingFolders folders(m_order.destination, m_order.baseFolder);
    FileReplacement file(m_order.destination);
    write(file.device(), members);
    file.sync();

    checkCancelled();
    if (!m_order.replace && QFileInfo::exists(m_order.destination))
        throw HostError(fileProblem(m_order.destination, tr("The file has come up meanwhile.")));
    file.commit();
    folders.keep();
}

void ArchiveJob::write(QIODevice* device, const std::vector<ArchiveMember>& members)
{
    qint64 total = 0;
    for (const ArchiveMember& member : members)
        total += member.size();

    qint64 done = 0;
    ArchiveWriter writer(device, QDir::toNativeSeparators(m_order.destination), m_order.format);
    for (const ArchiveMember& member : members) {
        writer.add(member, [this, &done, total](qint64 bytes) {
            done += bytes;
            report(done, total);
            checkCancelled();
        });
        checkCancelled();
    }
    writer.finish();
}

void ArchiveJob::checkCancelled() const
{
    if (isInterruptionRequested())
        throw ArchiveCancelled();
}

void ArchiveJob::report(qint64 done, qint64 total)
{
    // Files may have grown since they were counted.
    const int part =
        done < total
            ? static_cast<int>(static_cast<double>(done) / static_cast<double>(total) * Whole)
            : Whole;
    if (part == m_reported)
        return;
    m_reported = part;
    emit progressed(part);
}
