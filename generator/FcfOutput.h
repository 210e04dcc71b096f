#ifndef GENERATOR_FCFOUTPUT_H
#define GENERATOR_FCFOUTPUT_H

#include "fcf/PayloadCopy.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QList>
#include <QString>

class FcfWriter;

/// The files of one generation: the image and its companion, written, and the binary, read.
///
/// Call open(), writeImageHeader(), writeCompanionHeader(), fillHeaders() and appendPayload(), in
/// this order and up to the first that returns false; outcome(), path() and reason() then say what
/// went wrong. What has been written by then stays where it is.
class FcfOutput {
    Q_DECLARE_TR_FUNCTIONS(FcfOutput)

public:
    enum Outcome {
        NoFailure,
        /// path() cannot be opened.
        CannotOpen,
        /// The header does not fit in its page. Call removeFiles().
        HeaderTooLarge,
        /// path() cannot be read or written, or did not keep what was written; see reason().
        Failed
    };

    /// Whether open() ends at the first file that cannot be opened, or leaves that to the later
    /// steps, where it appears as missing output.
    enum OpenMode { EndAtFirstFailure, ShowFailuresLater };

    /// A file that could not be deleted.
    struct Remaining {
        QString path;
        QString reason;
    };

    FcfOutput(const QString& imagePath, const QString& binaryPath, const QString& companionPath);

    /// Opens the image (truncating it), the binary and the companion (truncating it).
    bool open(OpenMode mode);

    bool writeImageHeader(const QByteArray& header);
    bool writeCompanionHeader(const QByteArray& header);

    /// Brings both headers to the length of a page.
    bool fillHeaders(const FcfWriter& writer);

    /// Appends the binary to the image, and closes all files. \p observer is called after each
    /// piece with its number of bytes.
    bool appendPayload(const PayloadCopy::Observer& observer);

    /// Deletes the companion, then the image. Returns those that are still there.
    QList<Remaining> removeFiles();

    /// Bytes of the binary when it was opened.
    qint64 payloadBytes() const { return m_payloadBytes; }

    Outcome outcome() const { return m_outcome; }
    QString path() const { return m_path; }
    QString reason() const { return m_reason; }

private:
    struct Page {
        explicit Page(const QString& path) : file(path), bytes(0) {}

        QFile file;
        /// Bytes that the file must have by now.
        qint64 bytes;
    };

    /// Opens a page that was written and closed, to go on with it.
    bool reopen(Page* page);
    /// Two pages may be one file, so that its end is known only when something is added to it.
    bool goToEnd(Page* page);
    static bool isFilled(const Page& page);
    bool fill(Page* page, const FcfWriter& writer);
    bool append(Page* page, const QByteArray& bytes);
    bool closeWhole(Page* page);
    /// Notes the first failure, and returns false.
    bool fail(Outcome outcome, const QFile& file, const QString& reason = QString());

    Page m_image;
    Page m_companion;
    QFile m_binary;
    /// Why the binary could not be opened.
    QString m_binaryReason;
    qint64 m_payloadBytes;
    Outcome m_outcome;
    QString m_path;
    QString m_reason;
};

#endif
