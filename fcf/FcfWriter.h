#ifndef FCF_FCFWRITER_H
#define FCF_FCFWRITER_H

#include "fcf/FcfHeader.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

class QIODevice;
class QTextCodec;

/// Composes header pages and puts images together, on any device.
///
/// Each operation that writes returns false when the device did not take every byte, with the
/// reason in \p error if that is not null.
class FcfWriter {
    Q_DECLARE_TR_FUNCTIONS(FcfWriter)

public:
    /// Texts are encoded with \p codec, which stays the caller's; null means the locale's.
    explicit FcfWriter(QTextCodec* codec = nullptr);

    /// Preamble and text of \p header, without filler. May be longer than a page.
    QByteArray compose(const FcfHeader& header) const;

    /// The whole filler units that bring \p headerBytes to FcfLayout::PageBytes or just over it;
    /// empty when that many are there already, or when the codec makes nothing of a unit.
    QByteArray fillerFor(int headerBytes) const;

    /// Writes all of \p bytes.
    static bool writeAll(QIODevice* device, const QByteArray& bytes, QString* error);

private:
    QTextCodec* m_codec;
};

#endif
