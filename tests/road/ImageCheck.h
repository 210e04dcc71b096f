#ifndef TESTS_ROAD_IMAGECHECK_H
#define TESTS_ROAD_IMAGECHECK_H

#include <QList>
#include <QStringList>

/// Takes the image of \p binary apart with a reader of its own and checks it against the binary and
/// the companion; throws a RoadBlock where they do not fit.
class ImageCheck {
public:
    explicit ImageCheck(const QString& binary);

    /// Requires the header's eleven numbers to be \p target (module code, device code, slot,
    /// version) behind the sizes that the binary makes necessary.
    void expectTarget(const QList<int>& target) const;
    /// Requires the text to hold each of \p lines, one somewhere behind the other.
    void expectLines(const QStringList& lines) const;

    /// Both paths and sizes, and the decoded header.
    QString report() const;

private:
    QString m_image;
    QString m_companion;
    QList<int> m_numbers;
    QStringList m_lines;
    qint64 m_binaryBytes;
};

#endif
