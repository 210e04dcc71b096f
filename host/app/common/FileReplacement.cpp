#include "host/app/common/FileReplacement.h"

#include "fcf/FcfDevice.h"
#include "host/app/common/FileProblem.h"
#include "host/app/common/HostError.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cerrno>
#include <unistd.h>

namespace {

struct FileReplacementTexts {
    Q_DECLARE_TR_FUNCTIONS(FileReplacement)
};

} // namespace

FileReplacement::FileReplacement(const QString& path) : m_file(path)
{
    // A link may lead to a device of the system, which would be replaced.
    const QFileInfo present(path);
    if (present.exists() && !present.isFile())
        fail(FileReplacementTexts::tr("It is not a file."));

    // The file is unbuffered, since QSaveFile would not notice when the last of its buffer cannot
    // be written.
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        fail(m_file.errorString());
}

void FileReplacement::write(const QByteArray& bytes)
{
    QString problem;
    if (!FcfDevice::writeAll(&m_file, bytes, &problem))
        fail(problem);
}

void FileReplacement::sync()
{
    if (fsync(m_file.handle()) != 0)
        fail(qt_error_string(errno));
}

void FileReplacement::commit()
{
    if (!m_file.commit())
        fail(m_file.errorString());
}

void FileReplacement::fail(const QString& reason) const
{
    throw HostError(fileProblem(m_file.fileName(), reason));
}
