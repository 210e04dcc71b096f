#ifndef TESTS_E2E_IMAGECHECK_H
#define TESTS_E2E_IMAGECHECK_H

#include <QList>
#include <QStringList>

/// Reads the image of \p binary with a parser of its own and compares it with the binary and the
/// companion. Throws StepFailed if they differ.
class ImageCheck {
public:
    explicit ImageCheck(const QString& binary);

    /// Requires the header's eleven numbers to be \p target (module code, device code, slot,
    /// version) behind the sizes that the binary makes necessary.
    void expectTarget(const QList<int>& target) const;
    /// Requires the text to contain \p lines, in this order but not necessarily next to each other.
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
