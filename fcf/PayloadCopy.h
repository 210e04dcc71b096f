#ifndef FCF_PAYLOADCOPY_H
#define FCF_PAYLOADCOPY_H

#include <QCoreApplication>
#include <QString>
#include <QtGlobal>

#include <functional>

class QIODevice;

/// Copies a payload of known length from one device to another.
///
/// Between two files the kernel copies, which saves moving each byte through the process. Where it
/// refuses, as for a file that is open for appending, or somebody wants to see the bytes, they are
/// read and written in pieces.
class PayloadCopy {
    Q_DECLARE_TR_FUNCTIONS(PayloadCopy)

public:
    /// Called after each piece, with its number of bytes. \p data is null unless a run() needs it.
    typedef std::function<void(const char* data, qint64 bytes)> Observer;

    enum Bytes {
        /// Observers only count.
        Unseen,
        /// Observers get the data of each piece.
        Seen
    };

    /// Copies \p bytes bytes from the current position of \p payload to that of \p image. Not
    /// owned.
    PayloadCopy(QIODevice* payload, qint64 bytes, QIODevice* image);

    /// Returns false, with error(), when a device fails, and when the payload ends before its bytes
    /// or goes on after them: what is then in the image is not the payload that was measured.
    bool run(Bytes use = Unseen, const Observer& observer = Observer());

    /// Empty after a run that returned true.
    QString error() const { return m_error; }
    /// Whether the payload caused the error, and not the image.
    bool isPayloadAtFault() const { return m_isPayloadAtFault; }

private:
    void copyInKernel(const Observer& observer);
    bool copyPieces(const Observer& observer);
    bool checkEnd();
    bool fail(bool isPayloadAtFault, const QString& error);

    QIODevice* m_payload;
    QIODevice* m_image;
    qint64 m_bytes;
    qint64 m_copied;
    QString m_error;
    bool m_isPayloadAtFault;
};

#endif
