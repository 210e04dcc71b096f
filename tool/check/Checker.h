#ifndef TOOL_CHECK_CHECKER_H
#define TOOL_CHECK_CHECKER_H

#include <QHash>
#include <QString>

class Findings;
class QTextCodec;
struct Build;
struct FcfHeader;

/// Asks whether an image may be composed. What must not be is an error, what should not be a
/// warning.
class Checker {
public:
    /// In bytes: the size fields have room for no more, with its header it must be under 2 GiB.
    static constexpr qint64 LargestBinary = 2147483647 - 2112;

    /// Findings go to \p findings, which does not become the checker's own. They are about \p file,
    /// or where a field is from another, that one of \p origins.
    Checker(Findings* findings, const QString& file, const QHash<QString, QString>& origins = {});

    /// Whether everything was said, and only what exists.
    void checkBuild(const Build& build) const;

    /// Whether a binary of \p bytes bytes fits.
    void checkBinarySize(qint64 bytes) const;

    /// Whether a page can have all texts of \p header in the encoding of \p codec, and whether they
    /// fit in it together.
    void checkTexts(const FcfHeader& header, QTextCodec* codec) const;

private:
    void checkTarget(const QString& module, const QString& device) const;
    QString fileOf(const QString& field) const;
    void refuse(const QString& field, const QString& reason) const;

    Findings* m_findings;
    QString m_file;
    QHash<QString, QString> m_origins;
};

#endif
