#ifndef TOOL_VALIDATOR_H
#define TOOL_VALIDATOR_H

#include "fcf/FcfExactReader.h"
#include "tool/Checker.h"

#include <QString>
#include <QVector>

class InputFile;
class Session;
struct FcfHeader;
struct HeaderPage;

/// Asks whether a file is a valid image or companion. What must not be is an error, what is merely
/// worth knowing a note; both go to the findings of a session.
class Validator {
public:
    enum Kind { Image, Companion };

    /// In bytes; no valid image is larger.
    static constexpr qint64 LargestFile = Checker::LargestBinary + FcfExactReader::MaximumBytes;

    /// Neither becomes the validator's own.
    Validator(InputFile* file, Kind kind, Session* session);

    /// Checks \p page, which was read from the file, against the format and, of an image, against
    /// the file's length.
    void validate(const HeaderPage& page) const;

    /// Checks the payload against \p binary byte for byte; of a companion, the sizes against it.
    void compareBinary(const HeaderPage& page, InputFile* binary) const;

    /// Checks the header page against \p companion byte for byte.
    void compareCompanion(const HeaderPage& page, InputFile* companion) const;

private:
    void checkSizes(const FcfHeader& header, qint64 payloadBytes) const;
    void checkCodes(const FcfHeader& header) const;
    void checkReservedWords(const QVector<quint32>& words) const;
    void checkTexts(const HeaderPage& page) const;
    void checkFiller(const HeaderPage& page) const;
    void checkAgainstWriter(const HeaderPage& page) const;
    qint64 payloadBytes(const HeaderPage& page) const;
    void invalid(const QString& field, qint64 offset, const QString& reason,
                 const QString& expected, const QString& found) const;

    InputFile* m_file;
    Kind m_kind;
    Session* m_session;
};

#endif
