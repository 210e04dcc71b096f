#include "generator/FcfOutput.h"

#include "fcf/FcfDevice.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "generator/FileOpening.h"

#include <QFileInfo>

namespace {

// Unbuffered, so that the result of each write is known at once and not only on closing the file.
const QIODevice::OpenMode Truncating =
    QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered;
// The kernel copies nothing to a file that is open for appending.
const QIODevice::OpenMode Continuing = QIODevice::ReadWrite | QIODevice::Unbuffered;

} // namespace

FcfOutput::FcfOutput(const QString& imagePath, const QString& binaryPath,
                     const QString& companionPath)
    : m_image(imagePath), m_companion(companionPath), m_binary(binaryPath), m_payloadBytes(0),
      m_outcome(NoFailure)
{
}

bool FcfOutput::open(OpenMode mode)
{
    QString reason;
    if (!FileOpening::open(&m_image.file, Truncating, &reason) && mode == EndAtFirstFailure)
        return fail(CannotOpen, m_image.file, reason);

    if (!FileOpening::open(&m_binary, QIODevice::ReadOnly, &m_binaryReason) &&
        mode == EndAtFirstFailure)
        return fail(CannotOpen, m_binary, m_binaryReason);

    if (!FileOpening::open(&m_companion.file, Truncating, &reason) && mode == EndAtFirstFailure)
        return fail(CannotOpen, m_companion.file, reason);

    // Measured only now: an image that is the binary itself, under whatever name, has emptied it.
    m_payloadBytes = m_binary.size();
    return true;
}

// A file that could not be opened fails when it is opened again.

bool FcfOutput::writeImageHeader(const QByteArray& header)
{
    return !m_image.file.isOpen() || append(&m_image, header);
}

bool FcfOutput::writeCompanionHeader(const QByteArray& header)
{
    return !m_companion.file.isOpen() || append(&m_companion, header);
}

bool FcfOutput::fillHeaders(const FcfWriter& writer)
{
    if (!closeWhole(&m_image) || !closeWhole(&m_companion))
        return false;
    if (m_companion.bytes > FcfLayout::PageBytes)
        return fail(HeaderTooLarge, m_companion.file);
    if (isFilled(m_image) && isFilled(m_companion))
        return true;

    if (!reopen(&m_image) || !reopen(&m_companion))
        return false;
    return fill(&m_image, writer) && fill(&m_companion, writer);
}

bool FcfOutput::appendPayload(const PayloadCopy::Observer& observer)
{
    if (!reopen(&m_image) || !goToEnd(&m_image))
        return false;
    if (!m_binary.isOpen())
        return fail(Failed, m_binary, m_binaryReason);

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
    const QByteArray filler = writer.fillerFor(static_cast<int>(page->bytes));
    if (!goToEnd(page) || !append(page, filler) || !closeWhole(page))
        return false;
    if (!isFilled(*page))
        return fail(Failed, page->file, tr("the filler adds nothing"));
    return true;
}

bool FcfOutput::reopen(Page* page)
{
    QString reason;
    return FileOpening::open(&page->file, Continuing, &reason) ||
           fail(CannotOpen, page->file, reason);
}

bool FcfOutput::goToEnd(Page* page)
{
    return page->file.seek(page->file.size()) || fail(Failed, page->file, page->file.errorString());
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

QList<FcfOutput::Remaining> FcfOutput::removeFiles()
{
    QList<Remaining> remaining;
    QFile* const files[] = {&m_companion.file, &m_image.file};
    for (QFile* file : files) {
        if (!file->exists() || file->remove())
            continue;

        const Remaining one = {file->fileName(), file->errorString()};
        remaining << one;
    }
    return remaining;
}

bool FcfOutput::fail(Outcome outcome, const QFile& file, const QString& reason)
{
    // A later failure follows from the first one.
    if (m_outcome != NoFailure)
        return false;

    m_outcome = outcome;
    m_path = file.fileName();
    m_reason = reason;
    return false;
}
