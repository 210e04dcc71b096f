#ifndef GENERATOR_COPYPROGRESS_H
#define GENERATOR_COPYPROGRESS_H

#include <QScopedPointer>
#include <QtGlobal>

class QProgressBar;
class QWidget;

/// Shows that a long copy goes on, while it lives: a busy cursor, and a bar over a part of a
/// window. It is painted at once and handles no events, so that nothing can be clicked meanwhile.
class CopyProgress {
public:
    /// The bar covers \p place, which lives longer. A copy of few bytes shows no bar. Not owned.
    CopyProgress(QWidget* place, qint64 bytes);
    ~CopyProgress();

    /// Notes \p bytes more bytes as copied.
    void advance(qint64 bytes);

private:
    Q_DISABLE_COPY(CopyProgress)

    QScopedPointer<QProgressBar> m_bar;
    qint64 m_bytes;
    qint64 m_copied;
};

#endif
