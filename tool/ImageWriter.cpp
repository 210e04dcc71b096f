#include "ImageWriter.h"

#include "fcf/FcfWriter.h"
#include "tool/InputFile.h"
#include "tool/Progress.h"
#include "tool/Session.h"

ImageWriter::ImageWriter(const FcfHeader& header, Session* session)
    : m_session(session), m_hash(QCryptographicHash::Sha256)
{
    const FcfWriter writer(session->codec());
    m_page = writer.compose(header);
    m_page += writer.fillerFor(m_page.size());
}

bool ImageWriter::write(InputFile* binary, QIODevice* image, bool digesting, QString* error)
{
    Progress progress(m_session, QStringLiteral("create"), binary->size());
    MeteredSource payload(&binary->device(), &progress);
    DigestingSink digestingSink(image, &m_hash);
    QIODevice* const sink = digesting ? &digestingSink : image;
    if (!binary->device().seek(0)) {
        *error = binary->device().errorString();
        return false;
    }
    return FcfWriter::writeAll(sink, m_page, error) &&
           FcfWriter::copyPayload(&payload, binary->size(), sink, error);
}
