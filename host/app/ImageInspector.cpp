#include "host/app/ImageInspector.h"

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QPushButton>
#include <QTextBrowser>

ImageInspector::ImageInspector(QWidget* parent)
    : QWidget(parent), m_view(new QTextBrowser(this)), m_copy(new QPushButton(tr("Cop&y"), this))
{
    m_view->setObjectName("ImageReport");
    m_view->setAccessibleName(tr("Image"));
    m_view->setPlaceholderText(tr("Select an image or a companion, and Inspect Image."));
    m_copy->setObjectName("CopyReportButton");
    m_copy->setEnabled(false);
    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_view);
    layout->addWidget(m_copy, 0, Qt::AlignRight);
    connect(m_copy, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(m_report.text()); });
}

void ImageInspector::inspect(const QString& path)
{
    // A large image takes a while to be read for its digest.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    m_report = ImageReport::of(path);
    QApplication::restoreOverrideCursor();
    m_view->setHtml(m_report.html());
    m_copy->setEnabled(true);
}
