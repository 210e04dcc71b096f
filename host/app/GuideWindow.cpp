#include "host/app/GuideWindow.h"

#include "host/app/common/WindowPlace.h"

#include <QAction>
#include <QDesktopServices>
#include <QImage>
#include <QTextBrowser>
#include <QToolBar>

namespace {

const char FirstPage[] = "qrc:/guide/README.md";

/// Shows pictures no wider than a page, and fine on a fine screen.
class GuideBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override
    {
        constexpr double PageWidth = 680;
        QVariant resource = QTextBrowser::loadResource(type, name);
        if (type != QTextDocument::ImageResource)
            return resource;

        QImage image = QImage::fromData(resource.toByteArray());
        image.setDevicePixelRatio(qMax(1.0, image.width() / PageWidth));
        return image;
    }
};

void follow(QTextBrowser* browser, const QUrl& link)
{
    // The desktop shows pages that are not part of the program.
    const QUrl target = browser->source().resolved(link);
    if (target.scheme() == "qrc")
        browser->setSource(target);
    else
        QDesktopServices::openUrl(target);
}

} // namespace

GuideWindow::GuideWindow(QWidget* parent) : QMainWindow(parent)
{
    setObjectName("HelpWindow");
    setWindowTitle(tr("Guide"));
    setAttribute(Qt::WA_DeleteOnClose);

    auto* const browser = new GuideBrowser(this);
    browser->setObjectName("HelpBrowser");
    browser->setAccessibleName(tr("Guide"));
    browser->setOpenLinks(false);
    browser->document()->setDocumentMargin(parent->fontMetrics().averageCharWidth() * 2);
    browser->setSource(QUrl(FirstPage));
    setCentralWidget(browser);

    QToolBar* const bar = addToolBar(tr("Guide"));
    bar->setMovable(false);
    QAction* const back = bar->addAction(tr("Back"), browser, &QTextBrowser::backward);
    back->setShortcut(QKeySequence::Back);
    back->setEnabled(false);
    bar->addAction(tr("Contents"), browser, [browser] { browser->setSource(QUrl(FirstPage)); });

    connect(browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser, &QTextBrowser::anchorClicked, browser,
            [browser](const QUrl& link) { follow(browser, link); });

    resizeToScreen(this, QSize(760, 640));
}
