#include "tests/pictures/PicturePlugin.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFont>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStyleFactory>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using Qtilities::CoreGui::QtilitiesApplication;

namespace {

void settle()
{
    // For the eye alone: nothing depends on it.
    QTest::qWait(400);
}

QModelIndex itemNamed(const QTreeView* view, const QString& name)
{
    return view->model()
        ->match(view->model()->index(0, 0), Qt::DisplayRole, name, 1,
                Qt::MatchFlags(Qt::MatchStartsWith | Qt::MatchRecursive))
        .value(0);
}

QWidget* windowNamed(const QString& name)
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == name && window->isVisible())
            return window;
    }
    qFatal("There is no window %s", qPrintable(name));
}

void trigger(const QWidget* host, const QString& text)
{
    for (const QAction* menu : qobject_cast<const QMainWindow*>(host)->menuBar()->actions()) {
        for (QAction* action : menu->menu()->actions()) {
            if (action->text().remove('&') == text)
                action->trigger();
        }
    }
}

void useDarkColours()
{
    QPalette dark(QColor(0x35, 0x37, 0x3a));
    dark.setColor(QPalette::Base, QColor(0x25, 0x26, 0x28));
    dark.setColor(QPalette::AlternateBase, QColor(0x2d, 0x2e, 0x31));
    dark.setColor(QPalette::Highlight, QColor(0x2f, 0x6f, 0xb5));
    QApplication::setPalette(dark);
}

void makeFunction(QWidget* generator, const QString& name, const QString& text)
{
    generator->findChild<QLineEdit*>("EditFunctionName")->setText(name);
    generator->findChild<QLineEdit*>("AuthorFunctions")->setText("R. Vos");
    generator->findChild<QTextEdit*>("DescriptionMemoFunctions")->setPlainText(text);
    generator->findChild<QLineEdit*>("CiNumberEditBoxFunctions")->setText("CI-0042");
    generator->findChild<QPushButton*>("UploadFunctionButton")->click();
}

void createFcf(QWidget* host)
{
    auto* const view = host->findChild<QTreeView*>("MainDesignWidget");
    view->setCurrentIndex(itemNamed(view, "top.bin"));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Return);
}

} // namespace

bool PicturePlugin::initialize(const QStringList&, QStringList* error_strings)
{
    m_folder = qEnvironmentVariable("PELK_PICTURES");
    if (m_folder.isEmpty())
        error_strings->append("PELK_PICTURES names no folder");
    if (qEnvironmentVariableIsSet("PELK_PICTURES_DARK"))
        useDarkColours();
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() *
                       qEnvironmentVariable("PELK_PICTURES_FONT", "1").toDouble());
    QApplication::setFont(font);
    return !m_folder.isEmpty();
}

bool PicturePlugin::initializeDependencies(QStringList*)
{
    QTimer::singleShot(0, this, &PicturePlugin::takeAll);
    return true;
}

void PicturePlugin::takeAll()
{
    m_host = windowNamed("MainWindow");
    settle();
    savePicture("host");
    takeSideBySide();
    takeDialogs();
    QCoreApplication::exit(0);
}

void PicturePlugin::takeSideBySide()
{
    // An image first, so that the design has files of every kind.
    createFcf(m_host);
    windowNamed("PelkFcfGenerator")->findChild<QPushButton*>("GenerateButton")->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    createFcf(m_host);
    QWidget* const generator = windowNamed("PelkFcfGenerator");
    settle();
    savePicture("generator-folded");
    auto* const panel = generator->findChild<QWidget*>("widgetFunctionDetailsHolder");
    panel->findChild<QToolButton*>("arrow")->click();
    generator->findChild<QLineEdit*>("AuthoEditBox")->setText("R. Vos");
    makeFunction(generator, "Doppler bank", "64 channels");
    makeFunction(generator, "Pulse compression", "Matched filter, 1024 taps");
    generator->findChild<QComboBox*>("FunctionComboBox")->setCurrentIndex(1);
    settle();
    savePicture("generator");

    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int margin = 8;
    const int title = 28;
    const int width = generator->width();
    if (screen.width() > width + 700) {
        m_host->setGeometry(margin, title, screen.width() - width - 4 * margin,
                            screen.height() - title - margin);
        generator->setGeometry(screen.width() - width - margin, title, width,
                               screen.height() - title - margin);
        auto* const view = m_host->findChild<QTreeView*>("MainDesignWidget");
        view->setCurrentIndex(itemNamed(view, "top.fcf"));
        settle();
        savePicture("side-by-side");
    }
    generator->close();
}

void PicturePlugin::takeDialogs()
{
    for (const char* name :
         {"New Design...", "Archive Design...", "About Plug-ins", "Inspect Image"}) {
        QTimer::singleShot(500, this, [this, name] {
            savePicture(QString(name).remove(' ').remove('.').remove('-'));
            if (QWidget* const dialog = QApplication::activeModalWidget())
                dialog->close();
        });
        trigger(m_host, name);
        settle();
        settle();
    }
    trigger(m_host, "Guide");
    settle();
    savePicture("guide");
}

void PicturePlugin::savePicture(const QString& name)
{
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    if (!screen.save(QDir(m_folder).filePath(name + ".png")))
        qFatal("cannot save the picture %s", qPrintable(name));
}
