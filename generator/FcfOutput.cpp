#include "generator/FcfOutput.h"

#include "fcf/FcfDevice.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "fcf/PayloadCopy.h"

#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

// Unbuffered, so that the result of each write is known at once and not only on closing the file.
const QIODevice::OpenMode Truncating =
    QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
const QIODevice::OpenMode Appending = QIODevice::Append | QIODevice::Unbuffered;

/// Whether opening \p file would wait for another program, and the host with it.
bool isPipe(const QFile& file)
{
#ifdef Q_OS_UNIX
    struct stat status;
    return ::stat(QFile::encodeName(file.fileName()).constData(), &status) == 0 &&
           S_ISFIFO(status.st_mode);
#else
    Q_UNUSED(file)
    return false;
#endif
}

bool openUnlessPipe(QFile* file, QIODevice::OpenMode mode)
{
    return !isPipe(*file) && file->open(mode);
}

} // namespace

FcfOutput::FcfOutput(const QString& imagePath, const QString& binaryPath,
                     const QString& companionPath)
    : m_image(imagePath), m_companion(companionPath), m_binary(binaryPath), m_payloadBytes(0),
      m_outcome(NoFailure)
{
}

bool FcfOutput::open(OpenMode mode)
{
    if (mode == EndAtFirstFailure) {
        if (!openFile(&m_image.file, Truncating) || !openFile(&m_binary, QIODevice::ReadOnly) ||
            !openFile(&m_companion.file, Truncating))
            return false;
    } else {
        openUnlessPipe(&m_image.file, Truncating);
        openUnlessPipe(&m_binary, QIODevice::ReadOnly);
        openUnlessPipe(&m_companion.file, Truncating);
    }
    // Measured only now: an image that is the binary itself, under whatever name, has emptied it.
    m_payloadBytes = m_binary.size();
    return true;
}

bool FcfOutput::writeImageHeader(const QByteArray& header) { return writeHeader(&m_image, header); }

bool FcfOutput::writeCompanionHeader(const QByteArray& header)
{
    return writeHeader(&m_companion, header);
}

bool FcfOutput::fillHeaders(const FcfWriter& writer)
{
    if (!closeWhole(&m_image) || !closeWhole(&m_companion))
        return false;
    if (m_companion.bytes > FcfLayout::PageBytes)
        return fail(HeaderTooLarge, m_companion.file);
    if (isFilled(m_image) && isFilled(m_companion))
        return true;

    if (!openFile(&m_image.file, Appending) || !openFile(&m_companion.file, Appending))
        return false;
    return fill(&m_image, writer) && fill(&m_companion, writer);
}

bool FcfOutput::appendPayload(const PayloadCopy::Observer& observer)
{
    if (!openFile(&m_image.file, Appending))
        return false;
    if (!m_binary.isOpen())
        return fail(Failed, m_binary, reasonNotOpened(m_binary));
    PayloadCopy copy(&m_binary, m_payloadBytes, &m_image.file);
    if (!copy.run(PayloadCopy::Unseen, observer))
        return fail(Failed, m_image.file, copy.error());
    m_image.bytes += m_payloadBytes;
    m_binary.close();
    return closeWhole(&m_image);
}

bool FcfOutput::isFilled(const Page& page) { return page.bytes >= FcfLayout::PageBytes; }

bool FcfOutput::fill(Page* page, const FcfWriter& writer)
{
    if (!append(page, writer.fillerFor(static_cast<int>(page->bytes))) || !closeWhole(page))
        return false;
    return isFilled(*page) || fail(Failed, page->file, tr("the filler adds nothing"));
}

bool FcfOutput::openFile(QFile* file, QIODevice::OpenMode mode)
{
    return openUnlessPipe(file, mode) || fail(CannotOpen, *file, reasonNotOpened(*file));
}

QString FcfOutput::reasonNotOpened(const QFile& file)
{
    return isPipe(file) ? tr("it is a named pipe") : file.errorString();
}

bool FcfOutput::writeHeader(Page* page, const QByteArray& header)
{
    // One that could not be opened fails when it is opened again.
    return !page->file.isOpen() || append(page, header);
}

bool FcfOutput::append(Page* page, const QByteArray& bytes)
{
    QString error;
    if (!FcfDevice::writeAll(&page->file, bytes, &error))
        return fail(Failed, page->file, error);
    page->bytes += bytes.size();
    return true;
}

bool FcfOutput::closeWhole(Page* page)
{
    if (!page->file.isOpen())
        return true;
    page->file.close();
    if (page->file.error() != QFile::NoError)
        return fail(Failed, page->file, page->file.errorString());
    const qint64 found = QFileInfo(page->file.fileName()).size();
    if (found != page->bytes)
        return fail(Failed, page->file,
                    tr("it has %1 bytes, but %2 were written").arg(found).arg(page->bytes));
    return true;
}

bool FcfOutput::removeFiles()
{
    bool areRemoved = true;
    QFile* const files[] = {&m_companion.file, &m_image.file};
    for (QFile* file : files) {
        if (file->remove())
            continue;
        areRemoved = false;
        m_path = file->fileName();
        m_reason = file->errorString();
    }
    return areRemoved;
}

bool FcfOutput::fail(Outcome outcome, const QFile& file, const QString& reason)
{
    if (m_outcome != NoFailure)
        return false;
    m_outcome = outcome;
    m_path = file.fileName();
    m_reason = reason;
    return false;
}
