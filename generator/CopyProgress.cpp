#include "generator/CopyProgress.h"

#include <QApplication>
#include <QProgressBar>

namespace {

/// Bytes from which a copy shows a bar. A smaller one ends before anyone could read it.
const qint64 LeastBytes = qint64(16) * 1024 * 1024;
const int Whole = 100;

} // namespace

CopyProgress::CopyProgress(QWidget* place, qint64 bytes) : m_bytes(bytes), m_copied(0)
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (bytes < LeastBytes || !place->isVisible())
        return;
    m_bar.reset(new QProgressBar(place));
    m_bar->setObjectName(QLatin1String("CopyProgressBar"));
    m_bar->setRange(0, Whole);
    m_bar->setGeometry(0, 0, place->width(), qMin(place->height(), m_bar->sizeHint().height()));
    m_bar->show();
    m_bar->repaint();
}

CopyProgress::~CopyProgress() { QApplication::restoreOverrideCursor(); }

void CopyProgress::advance(qint64 bytes)
{
    m_copied += bytes;
    const int part = static_cast<int>(m_copied * Whole / qMax<qint64>(1, m_bytes));
    if (!m_bar || part == m_bar->value())
        return;
    m_bar->setValue(part);
    m_bar->repaint();
}
