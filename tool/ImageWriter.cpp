#include "ImageWriter.h"

#include "fcf/FcfWriter.h"
#include "tool/FileError.h"
#include "tool/InputFile.h"
#include "tool/PassingDevice.h"
#include "tool/PayloadCopy.h"
#include "tool/Session.h"

namespace {

/// Hands bytes on to another device, and digests them.
class DigestingSink : public PassingDevice {
public:
    /// Neither becomes the sink's own.
    DigestingSink(QIODevice* device, QCryptographicHash* hash)
        : PassingDevice(device, QIODevice::WriteOnly), m_hash(hash)
    {
    }

protected:
    void passed(const char* data, qint64 bytes) override
    {
        m_hash->addData(data, static_cast<int>(bytes));
    }

private:
    QCryptographicHash* m_hash;
};

} // namespace

ImageWriter::ImageWriter(const FcfHeader& header, Session* session)
    : m_session(session), m_hash(QCryptographicHash::Sha256)
{
    const FcfWriter writer(session->codec());
    m_page = writer.compose(header);
    m_page += writer.fillerFor(m_page.size());
}

bool ImageWriter::write(const InputFile& binary, QIODevice* image, bool digesting, FileError* error)
{
    DigestingSink digestingSink(image, &m_hash);
    QIODevice* const sink = digesting ? &digestingSink : image;
    return FcfWriter::writeAll(sink, m_page, &error->reason) &&
           copyPayload(binary, 0, "create", sink, m_session, error);
}
