#include "host/app/HelpMenu.h"

#include "host/app/Commands.h"
#include "host/app/common/PlainMessageBox.h"
#include "host/app/common/WindowPlace.h"
#include "host/app/PluginList.h"

#include <QAction>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QImage>
#include <QMainWindow>
#include <QMenu>
#include <QTextBrowser>
#include <QToolBar>

namespace {

/// The guide is part of the program.
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

} // namespace

HelpMenu::HelpMenu(QMainWindow* window) : QObject(window), m_window(window)
{
    QAction* const guide = Commands::add("Help.Guide", tr("&Guide"), QKeySequence::HelpContents,
                                         this, [this] { showGuide(); });
    // Windows of plug-ins have no help of their own.
    guide->setShortcutContext(Qt::ApplicationShortcut);
    Commands::menu("Help")->addSeparator();
    Commands::add("Help.About", tr("&About Pelk Design Host"), QKeySequence(), this,
                  [this] { showAbout(); });
    Commands::add("Help.AboutPlugins", tr("About &Plug-ins"), QKeySequence(), this,
                  [this] { PluginList::showAbout(m_pluginFolders, m_window); });
}

void HelpMenu::showGuide()
{
    if (!m_guide) {
        m_guide = new QMainWindow(m_window);
        m_guide->setObjectName("HelpWindow");
        m_guide->setWindowTitle(tr("Guide"));
        m_guide->setAttribute(Qt::WA_DeleteOnClose);
        auto* const browser = new GuideBrowser(m_guide);
        browser->setObjectName("HelpBrowser");
        browser->setAccessibleName(tr("Guide"));
        browser->setOpenLinks(false);
        browser->document()->setDocumentMargin(m_window->fontMetrics().averageCharWidth() * 2);
        browser->setSource(QUrl(FirstPage));
        m_guide->setCentralWidget(browser);

        QToolBar* const bar = m_guide->addToolBar(tr("Guide"));
        bar->setMovable(false);
        QAction* const back = bar->addAction(tr("Back"), browser, &QTextBrowser::backward);
        back->setShortcut(QKeySequence::Back);
        back->setEnabled(false);
        bar->addAction(tr("Contents"), browser, [browser] { browser->setSource(QUrl(FirstPage)); });
        connect(browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
        // Pages that are not part of the program are shown by the desktop.
        connect(browser, &QTextBrowser::anchorClicked, browser, [browser](const QUrl& link) {
            const QUrl target = browser->source().resolved(link);
            if (target.scheme() == "qrc")
                browser->setSource(target);
            else
                QDesktopServices::openUrl(target);
        });
        resizeToScreen(m_guide, QSize(760, 640));
    }
    m_guide->show();
    m_guide->raise();
    m_guide->activateWindow();
}

void HelpMenu::showAbout()
{
    PlainMessageBox box(QMessageBox::NoIcon, tr("About Pelk Design Host"),
                        tr("Pelk Design Host %1\n\nA small host in which plug-ins for designs of "
                           "the Pelk radar signal processor run.\n\nQt %2")
                            .arg(QCoreApplication::applicationVersion(), qVersion()),
                        QMessageBox::Ok, QMessageBox::Ok, m_window);
    box.setObjectName("AboutBox");
    box.setIconPixmap(m_window->windowIcon().pixmap(64));
    box.exec();
}
