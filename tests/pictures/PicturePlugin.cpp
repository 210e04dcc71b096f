#include "pictures/PicturePlugin.h"

#include "host/app/FormRules.h"
#include "support/TestFile.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesLogging/Logger.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
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
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using Qtilities::Logging::Logger;

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

/// Chooses the entry of a menu that the host's class \p context made.
void trigger(const QWidget* host, const char* context, const char* entry)
{
    const QString text = QCoreApplication::translate(context, entry);
    for (const QAction* menu : qobject_cast<const QMainWindow*>(host)->menuBar()->actions()) {
        for (QAction* action : menu->menu()->actions()) {
            if (action->text() == text)
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

void fillFunctions(QWidget* generator)
{
    auto* const panel = generator->findChild<QWidget*>("widgetFunctionDetailsHolder");
    panel->findChild<QToolButton*>("arrow")->click();
    generator->findChild<QLineEdit*>("AuthoEditBox")->setText("R. Vos");
    makeFunction(generator, "Doppler bank", "64 channels");
    makeFunction(generator, "Pulse compression", "Matched filter, 1024 taps");
    generator->findChild<QComboBox*>("FunctionComboBox")->setCurrentIndex(1);
}

} // namespace

PicturePlugin::PicturePlugin()
    : DriverPlugin("PELK_PICTURES"), m_folder(qEnvironmentVariable("PELK_PICTURES"))
{
    if (qEnvironmentVariableIsSet("PELK_PICTURES_DARK"))
        useDarkColours();
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() *
                       qEnvironmentVariable("PELK_PICTURES_FONT", "1").toDouble());
    QApplication::setFont(font);
}

void PicturePlugin::run()
{
    m_host = windowNamed("MainWindow");
    m_view = m_host->findChild<QTreeView*>("MainDesignWidget");
    settle();
    saveScreen("host");
    // An image first, so that the design has files of every kind.
    const QWidget* const generator = openGenerator();
    generator->findChild<QLineEdit*>("AuthoEditBox")->setText("R. Vos");
    generator->findChild<QPushButton*>("GenerateButton")->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (qEnvironmentVariableIsSet("PELK_PICTURES_GUIDE")) {
        takeGuide();
    } else {
        takeSideBySide();
        takeDialogs();
    }
    QCoreApplication::exit(m_exitCode);
}

QWidget* PicturePlugin::openGenerator()
{
    m_view->setCurrentIndex(itemNamed(m_view, "top.bin"));
    m_view->setFocus();
    QTest::keyClick(m_view, Qt::Key_Return);
    QWidget* const generator = windowNamed("PelkFcfGenerator");
    settle();
    return generator;
}

void PicturePlugin::takeGuide()
{
    m_host->setGeometry(8, 8, 1000, 700);
    settle();
    m_view->setCurrentIndex(itemNamed(m_view, "top.fcf"));
    const QPoint place = m_view->visualRect(itemNamed(m_view, "top.bin")).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place,
                            m_view->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(m_view->viewport(), &event);
    settle();
    saveWindow("guide-design", m_host);
    if (QWidget* const menu = QApplication::activePopupWidget())
        menu->close();

    m_view->setCurrentIndex(itemNamed(m_view, "top.fcf"));
    trigger(m_host, "ItemCommands", "&Inspect Image");
    m_host->findChild<QPushButton*>("ShowPageButton")->click();
    auto* const fields = m_host->findChild<QTreeView*>("PageFields");
    fields->setCurrentIndex(itemNamed(fields, "author"));
    settle();
    saveWindow("guide-inspector", m_host);

    QWidget* generator = openGenerator();
    fillFunctions(generator);
    generator->setGeometry(8, 8, 760, 800);
    settle();
    saveWindow("guide-generator", generator);
    generator->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    m_view->setCurrentIndex(itemNamed(m_view, "top.txt"));
    QTest::keyClick(m_view, Qt::Key_Return);
    generator = windowNamed("PelkFcfGenerator");
    generator->setGeometry(8, 8, 760, 560);
    settle();
    saveWindow("guide-loaded", generator);
    generator->close();

    withDialog("DesignCommands", "&Archive Design...", [this](QWidget* dialog) {
        dialog->findChild<QComboBox*>("typeBox")->setCurrentIndex(1);
        dialog->setGeometry(8, 8, 640, 560);
        settle();
        saveWindow("guide-package", dialog);
    });
}

void PicturePlugin::takeSideBySide()
{
    QWidget* const generator = openGenerator();
    saveScreen("generator-folded");
    fillFunctions(generator);
    settle();
    saveScreen("generator");

    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const int margin = 8;
    const int title = 28;
    const int width = generator->width();
    if (screen.width() > width + 700) {
        m_host->setGeometry(margin, title, screen.width() - width - 4 * margin,
                            screen.height() - title - margin);
        generator->setGeometry(screen.width() - width - margin, title, width,
                               screen.height() - title - margin);
        m_view->setCurrentIndex(itemNamed(m_view, "top.fcf"));
        settle();
        saveScreen("side-by-side");
    }
    generator->close();
}

void PicturePlugin::takeDialogs()
{
    const auto look = [this](const QString& name) {
        return [this, name](const QWidget* dialog) { saveWindow(name, dialog); };
    };
    withDialog("DesignCommands", "&New Design...", look("NewDesign"));
    withDialog("DesignCommands", "&Archive Design...", look("ArchiveDesign"));
    withDialog("HelpMenu", "About &Plug-ins", look("AboutPlugins"));
    m_view->setCurrentIndex(itemNamed(m_view, "top.fcf"));
    trigger(m_host, "ItemCommands", "&Inspect Image");
    settle();
    saveScreen("InspectImage");
    m_host->findChild<QPushButton*>("ShowPageButton")->click();
    settle();
    saveScreen("HeaderPage");
    takeLog();
    takeTarget();
    trigger(m_host, "HelpMenu", "&Guide");
    settle();
    saveScreen("guide");
}

void PicturePlugin::takeLog()
{
    for (const auto type : {Logger::Info, Logger::Warning, Logger::Error})
        Logger::instance()->logPriorityMessage(
            QString(), type,
            QString("A message that is longer than the pane is wide. ").repeated(6));
    m_host->findChild<QAction*>("View.GoTo.LogDock")->trigger();
    m_host->findChild<QToolButton*>("WrapLogButton")->click();
    settle();
    saveScreen("Log");
    m_host->findChild<QPushButton*>("ErrorCount")->click();
    settle();
    saveScreen("LogErrors");
}

void PicturePlugin::takeTarget()
{
    auto* const design = dynamic_cast<OrvanticCore::Design*>(
        OrvanticCore::DesignManager::instance()->designs().first());
    for (const char* property : {"ZORV Pelk Module", "ZORV Pelk Device", "ZORV Pelk Config Number"})
        design->removeDesignProperty(property);
    // Codes of no device, so that the target is asked for.
    QByteArray image = TestFile::read(design->workingFolderPath() + "/top.fcf");
    image[27] = 1;
    image[31] = 8;
    TestFile::write(design->workingFolderPath() + "/top.fcf", image);
    m_view->setCurrentIndex(itemNamed(m_view, "top.fcf"));
    withDialog("RemakeCommands", "Make Image A&gain",
               [this](const QWidget* dialog) { saveWindow("MakeImageAgain", dialog); });
}

void PicturePlugin::withDialog(const char* context, const char* entry,
                               const std::function<void(QWidget*)>& look)
{
    m_dialogs.leaveTo([look](QWidget* dialog) {
        settle();
        look(dialog);
        dialog->close();
    });
    trigger(m_host, context, entry);
}

void PicturePlugin::saveScreen(const QString& name) const
{
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    if (!screen.save(QDir(m_folder).filePath(name + ".png")))
        qFatal("cannot save the picture %s", qPrintable(name));
}

void PicturePlugin::saveWindow(const QString& name, const QWidget* window)
{
    for (const QString& problem : FormRules::cutOff(window) + FormRules::ambiguous(window)) {
        qWarning("%s: %s", qPrintable(name), qPrintable(problem));
        m_exitCode = 1;
    }
    const QRect part = window->geometry();
    const QPixmap picture = QGuiApplication::primaryScreen()->grabWindow(
        0, part.x(), part.y(), part.width(), part.height());
    if (!picture.save(QDir(m_folder).filePath(name + ".png")))
        qFatal("cannot save the picture %s", qPrintable(name));
}

#include "moc_PicturePlugin.cpp"
