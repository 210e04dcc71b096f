#ifndef TOOL_CHECKER_H
#define TOOL_CHECKER_H

#include <QHash>
#include <QString>
#include <QtGlobal>

class Session;
struct Build;
struct FcfHeader;

/// Asks whether an image may be composed. What must not be is an error, what should not be a
/// warning; both go to the findings of a session.
class Checker {
public:
    /// The largest binary of which the size fields can tell: with its header it must stay under
    /// 2 GiB.
    static constexpr qint64 LargestBinary = 2147483647 - 2112;

    /// Findings are about \p file, or where a field is from another, that one of \p origins. The
    /// session does not become the checker's own.
    Checker(Session* session, const QString& file, const QHash<QString, QString>& origins = {});

    /// Whether everything was said, and only what exists.
    void checkBuild(const Build& build) const;

    /// Whether a binary of \p bytes bytes fits.
    void checkBinarySize(qint64 bytes) const;

    /// Whether all texts of \p header can stand in a page, and fit in it together.
    void checkTexts(const FcfHeader& header) const;

private:
    void checkTarget(const Build& build) const;
    void checkNumbers(const Build& build) const;
    QString fileOf(const QString& field) const;
    void refuse(const QString& field, const QString& reason) const;

    Session* m_session;
    QString m_file;
    QHash<QString, QString> m_origins;
};

#endif
