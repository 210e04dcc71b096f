#ifndef TOOL_CHECK_VALIDATOR_H
#define TOOL_CHECK_VALIDATOR_H

#include "fcf/FcfExactReader.h"
#include "tool/check/NewImageChecker.h"
#include "tool/files/Region.h"

#include <QList>

#include <QString>
#include <QVector>

#include <optional>

class InputFile;
class QTextCodec;
struct FcfFile;
struct FcfHeader;
struct HeaderPage;

/// Checks whether a file is a valid image or companion. What must not be is an error, what is
/// merely worth knowing a note. NewImageChecker checks what an image is to be made of.
class FcfFileChecker {
public:
    enum Kind { Image, Companion };

    /// The size in bytes of the largest image that can be valid.
    static constexpr qint64 LargestFile =
        NewImageChecker::LargestBinary + FcfExactReader::MaximumBytes;

    /// What is wrong with \p fcf, whose payload was measured. What it is follows from its name, or
    /// for other names from its length.
    static QList<Finding> errorsOf(const FcfFile& fcf, QTextCodec* codec);

    /// Findings go to \p findings. No pointer is owned.
    FcfFileChecker(const InputFile* file, Kind kind, QTextCodec* codec, Findings* findings);

    /// Checks \p page, which was read from the file, against the format and, of an image, against
    /// the file's length.
    void check(const HeaderPage& page) const;

    /// Checks the payload against \p binary byte for byte, and calls \p observe for each part. Of a
    /// companion it checks the sizes.
    void compareBinary(const HeaderPage& page, const Region& binary,
                       const CopyObserver& observe) const;

    /// Checks the header page against \p companion byte for byte.
    void compareCompanion(const HeaderPage& page, const InputFile& companion) const;

private:
    void checkLength(const HeaderPage& page) const;
    void checkSizes(const FcfHeader& header, qint64 payloadBytes) const;
    std::optional<QString> whatFollows(qint64 end) const;
    void checkModule(const FcfHeader& header) const;
    void checkVersion(const FcfHeader& header) const;
    void checkSlot(const FcfHeader& header) const;
    void checkCodes(const FcfHeader& header) const;
    void checkReservedWords(const QVector<quint32>& words) const;
    void checkEnd(const HeaderPage& page) const;
    void checkRecords(const HeaderPage& page) const;
    void checkTime(const HeaderPage& page) const;
    void checkName(const HeaderPage& page) const;
    void checkTexts(const HeaderPage& page) const;
    void checkFiller(const HeaderPage& page) const;
    void checkAgainstWriter(const HeaderPage& page) const;
    Finding& note(const QString& field, qint64 offset, const QString& reason) const;
    void invalid(qint32 FcfHeader::*number, const FcfHeader& header, const QString& reason,
                 const QString& expected) const;
    void invalid(const QString& field, qint64 offset, const QString& reason,
                 const QString& expected, const QString& found) const;

    /// Names the first byte in which \p found, from \p offset on in the file, is not as expected.
    void compare(const QString& field, qint64 offset, const QString& reason,
                 const QByteArray& expected, const QByteArray& found) const;
    std::optional<QByteArray> bytesAt(const InputFile& file, qint64 offset, qint64 bytes) const;

    const InputFile* m_file;
    Kind m_kind;
    QTextCodec* m_codec;
    Findings* m_findings;
};

#endif
