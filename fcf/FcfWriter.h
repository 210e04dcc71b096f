#ifndef FCF_FCFWRITER_H
#define FCF_FCFWRITER_H

#include "fcf/FcfHeader.h"

#include <QByteArray>

class QTextCodec;

/// Composes header pages.
class FcfWriter {
public:
    /// Texts are encoded with \p codec; null means the locale's. Not owned.
    explicit FcfWriter(QTextCodec* codec = nullptr);

    /// Preamble and text of \p header, without filler. May be longer than a page.
    QByteArray compose(const FcfHeader& header) const;

    /// The whole filler units that bring \p headerBytes to FcfLayout::PageBytes or just over it;
    /// empty when that many are there already, or when the codec makes nothing of a unit.
    QByteArray fillerFor(int headerBytes) const;

private:
    QTextCodec* m_codec;
};

#endif
