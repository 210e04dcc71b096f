#include "host/app/HelpWindow.h"

#include "host/app/common/WindowPlace.h"

#include <QAction>
#include <QDesktopServices>
#include <QTextBrowser>
#include <QToolBar>

namespace {

const char FirstPage[] = "qrc:/guide/README.md";

} // namespace

HelpWindow::HelpWindow(QWidget* parent) : QMainWindow(parent), m_browser(new QTextBrowser(this))
{
    setObjectName("HelpWindow");
    setWindowTitle(tr("Guide"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_browser->setObjectName("HelpBrowser");
    m_browser->setAccessibleName(tr("Guide"));
    m_browser->setOpenLinks(false);
    m_browser->document()->setDocumentMargin(fontMetrics().averageCharWidth() * 2);
    m_browser->setSource(QUrl(FirstPage));
    setCentralWidget(m_browser);

    auto* const bar = addToolBar(tr("Guide"));
    bar->setMovable(false);
    QAction* const back = bar->addAction(tr("Back"), m_browser, &QTextBrowser::backward);
    back->setShortcut(QKeySequence::Back);
    back->setEnabled(false);
    bar->addAction(tr("Contents"), this, [this] { m_browser->setSource(QUrl(FirstPage)); });
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    // Pages that are not part of the program are shown by the desktop.
    connect(m_browser, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        const QUrl target = m_browser->source().resolved(link);
        if (target.scheme() == "qrc")
            m_browser->setSource(target);
        else
            QDesktopServices::openUrl(target);
    });
    resizeToScreen(this, QSize(760, 640));
}
