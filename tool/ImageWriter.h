#ifndef TOOL_IMAGEWRITER_H
#define TOOL_IMAGEWRITER_H

#include <QByteArray>
#include <QCryptographicHash>
#include <QString>

class InputFile;
class QIODevice;
class Session;
struct FcfHeader;
struct FileError;

/// Puts the bytes of one image together.
class ImageWriter {
public:
    /// Composes the page of \p header, filler included.
    ImageWriter(const FcfHeader& header, Session* session);

    const QByteArray& page() const { return m_page; }

    /// Writes page and payload, and digests them if \p digesting. Returns false with \p error,
    /// which keeps its path unless \p binary is what could not be read.
    bool write(const InputFile& binary, QIODevice* image, bool digesting, FileError* error);

    /// The digest of what was written and digested.
    QByteArray digest() const { return m_hash.result(); }

private:
    Session* m_session;
    QByteArray m_page;
    QCryptographicHash m_hash;
};

#endif
