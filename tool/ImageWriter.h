#ifndef TOOL_IMAGEWRITER_H
#define TOOL_IMAGEWRITER_H

#include <QByteArray>
#include <QCryptographicHash>
#include <QString>

class InputFile;
class QIODevice;
class Session;
struct FcfHeader;

/// Puts the bytes of one image together.
class ImageWriter {
public:
    /// Composes the page of \p header, filler included.
    ImageWriter(const FcfHeader& header, Session* session);

    const QByteArray& page() const { return m_page; }

    /// Writes page and payload, and digests them if \p digesting. Returns false with the reason in
    /// \p error.
    bool write(InputFile* binary, QIODevice* image, bool digesting, QString* error);

    /// The digest of what was written and digested.
    QByteArray digest() const { return m_hash.result(); }

private:
    Session* m_session;
    QByteArray m_page;
    QCryptographicHash m_hash;
};

#endif
