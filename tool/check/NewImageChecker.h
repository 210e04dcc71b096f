#ifndef TOOL_CHECK_NEWIMAGECHECKER_H
#define TOOL_CHECK_NEWIMAGECHECKER_H

#include <QHash>
#include <QString>

class Findings;
class QTextCodec;
struct FcfHeader;
struct Recipe;

/// Checks what an image is to be made of, before it is made. What must not be is an error, what
/// should not be a warning. FcfFileChecker checks files that exist.
class NewImageChecker {
public:
    /// The size in bytes of the largest binary: with its header an image must be under 2 GiB, or
    /// the size fields have no room for it.
    static constexpr qint64 LargestBinary = 2147483647 - 2112;

    /// Findings go to \p findings, which is not owned. They are about \p file, or where a field is
    /// from another, about that one of \p origins.
    NewImageChecker(Findings* findings, const QString& file,
                    const QHash<QString, QString>& origins = {});

    /// Checks that all required fields are given, and that the target exists.
    void checkRecipe(const Recipe& recipe) const;

    /// Checks that a binary of \p bytes bytes fits.
    void checkBinarySize(qint64 bytes) const;

    /// Checks that a page can have all texts of \p header in the encoding of \p codec, and that
    /// they fit in it together.
    void checkTexts(const FcfHeader& header, QTextCodec* codec) const;

private:
    void checkRequired(const Recipe& recipe) const;
    void checkTarget(const QString& module, const QString& device) const;
    void checkSlot(qint32 slot) const;
    void checkFunctionNames(const Recipe& recipe) const;
    bool checkBytes(const FcfHeader& header, QTextCodec* codec) const;
    bool checkLength(const FcfHeader& header, QTextCodec* codec) const;
    void checkReaders(const FcfHeader& header, QTextCodec* codec) const;
    QString fileOf(const QString& field) const;
    void refuse(const QString& field, const QString& reason) const;

    Findings* m_findings;
    QString m_file;
    QHash<QString, QString> m_origins;
};

#endif
