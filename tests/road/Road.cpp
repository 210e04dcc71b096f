#include "Road.h"

#include "support/PlainFcf.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QPushButton>
#include <QScreen>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

using Qtilities::CoreGui::QtilitiesApplication;

namespace {

constexpr int PatienceMs = 10000;

void require(bool condition, const QString& complaint)
{
    if (!condition)
        throw RoadBlock(complaint);
}

QAction* actionWithText(const QList<QAction*>& actions, QString text)
{
    for (QAction* action : actions) {
        if (action->text().remove('&') == text)
            return action;
    }
    throw RoadBlock("There is no menu entry \"" + text + "\".");
}

QString shownPath(const QString& path)
{
    return QString("%1 (%2 bytes)").arg(path).arg(QFileInfo(path).size());
}

} // namespace

Road::Road(const QString& binary, const QString& screenshot)
    : m_binary(binary), m_image(QString(binary).replace(".bin", ".fcf")),
      m_companion(QString(binary).replace(".bin", ".txt")), m_screenshot(screenshot)
{
}

void Road::drive()
{
    QFile::remove(m_image);
    QFile::remove(m_companion);

    openGenerator();
    chooseBinary();
    describeBuild();
    addFunction("Pulse compression", "R. Vos", "Matched filter,\n1024 taps");
    addFunction("Doppler bank", "L. Mbeki", "64 channels");
    takeScreenshot();
    generate();
    checkOutput();

    reload();
    type("CiNumEditBox", "CI-0043");
    chooseBinary();
    m_dialogs.click(QMessageBox::Yes);
    generate();
    checkOutput();
}

void Road::openGenerator()
{
    QWidget* const host = QtilitiesApplication::mainWindow();
    require(host && QTest::qWaitForWindowExposed(host, PatienceMs), "The host shows no window.");
    chooseFromMenu(host, "Tools", "Pelk FCF Generator");

    const auto generator = [] {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->objectName() == "PelkFcfGenerator" && window->isVisible())
                return window;
        }
        return static_cast<QWidget*>(nullptr);
    };
    require(QTest::qWaitFor([&generator] { return generator() != nullptr; }, PatienceMs),
            "The menu entry opens no generator.");
    m_generator = generator();
    require(QTest::qWaitForWindowExposed(m_generator, PatienceMs), "The generator stays hidden.");
}

void Road::chooseBinary()
{
    m_dialogs.choose(m_binary);
    click("btnLoad");
    require(find<QLabel>("StatusBar")->text() == "Loaded " + m_binary + " successfully.",
            "The generator did not load the binary: " + find<QLabel>("StatusBar")->text());
}

void Road::describeBuild()
{
    type("AuthoEditBox", "R. Vos");
    type("MajorVerEditBox", "1");
    type("MinorVerEditBox", "4");
    type("CiNumEditBox", "CI-0042");
    QTest::keyClicks(find<QTextEdit>("DescriptionMemo"),
                     "Front end with the new pulse compression");
    QTest::keyClick(find<QComboBox>("ModuleComboBox"), Qt::Key_End);
    QTest::keyClick(find<QComboBox>("FpgaComboBox"), Qt::Key_End);
    QTest::keyClick(find<QComboBox>("ConfigComboBox"), Qt::Key_Down);

    const auto arrows = find<QWidget>("widgetFunctionDetailsHolder")->findChildren<QToolButton*>();
    require(arrows.size() == 1, "The function list cannot be unfolded.");
    QTest::mouseClick(arrows.first(), Qt::LeftButton);
}

void Road::addFunction(const QString& name, const QString& author, const QString& description)
{
    const int count = find<QComboBox>("FunctionComboBox")->count();
    click("AddNewFunction");
    type("EditFunctionName", name);
    type("AuthorFunctions", author);
    auto* const memo = find<QTextEdit>("DescriptionMemoFunctions");
    for (const QChar letter : description) {
        if (letter == '\n')
            QTest::keyClick(memo, Qt::Key_Return);
        else
            QTest::keyClick(memo, letter.toLatin1());
    }
    type("CiNumberEditBoxFunctions", QString("F-%1").arg(count + 1));
    click("UploadFunctionButton");
    require(find<QComboBox>("FunctionComboBox")->count() == count + 1,
            "The function \"" + name + "\" is not in the list.");
}

void Road::generate()
{
    click("GenerateButton");
    const QString status = find<QLabel>("StatusBar")->text();
    require(status.contains("Successfully generated output files."),
            "The generator reports: " + status);
    require(!m_generator->isVisible(), "The generator stays open.");
    require(m_dialogs.allGiven(),
            "Not all boxes came up, or others: " + m_dialogs.texts().join(" | "));
}

void Road::checkOutput()
{
    const PlainFcf image = PlainFcf::fromFile(m_image.toStdString());
    const PlainFcf companion = PlainFcf::fromFile(m_companion.toStdString());
    m_report = shownPath(m_image) + '\n' + shownPath(m_companion) + "\n\n";
    for (std::size_t i = 0; i < image.numbers.size(); ++i) {
        static const char* const names[] = {"total pages",   "total blocks",  "total size",
                                            "binary pages",  "binary blocks", "binary size",
                                            "module code",   "device code",   "configuration",
                                            "version major", "version minor"};
        m_report += QString("%1 %2\n").arg(names[i], -14).arg(image.numbers[i]);
    }
    for (const std::string& line : image.lines)
        m_report += QString::fromStdString(line) + '\n';

    require(image.fault.empty(), "The image is none: " + QString::fromStdString(image.fault));
    require(image.payload == bytesOfFile(m_binary.toStdString()),
            "The image's payload is not the binary.");
    require(companion.payload.empty() && companion.headerBytes == image.headerBytes,
            "The companion is not the image's header page.");
    require(image.numbers[5] == static_cast<int>(image.payload.size()),
            "The header does not tell the payload's size.");
    require(image.numbers[2] == image.numbers[5] + 2112,
            "The header does not tell the total size.");
}

void Road::reload()
{
    openGenerator();
    m_dialogs.choose(m_companion);
    chooseFromMenu(m_generator, "File", "Load");
    require(find<QLabel>("StatusBar")->text() ==
                "<font color='green'>Loaded " + m_companion + " successfully.</font>",
            "The generator did not load the companion: " + find<QLabel>("StatusBar")->text());
    require(find<QComboBox>("FunctionComboBox")->count() == 2, "Not both functions came back.");
    require(find<QTextEdit>("DescriptionMemo")->toPlainText() ==
                "Front end with the new pulse compression",
            "The description did not come back.");
}

void Road::takeScreenshot() const
{
    if (m_screenshot.isEmpty())
        return;
    QCoreApplication::processEvents();
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    require(screen.save(m_screenshot), "Cannot save the screenshot to " + m_screenshot);
}

template <class Widget>
Widget* Road::find(const char* name) const
{
    auto* const widget = m_generator->findChild<Widget*>(name);
    require(widget, QString("The generator has no \"%1\".").arg(name));
    return widget;
}

void Road::click(const char* button)
{
    QTest::mouseClick(find<QPushButton>(button), Qt::LeftButton);
}

void Road::type(const char* field, const QString& text)
{
    auto* const edit = find<QLineEdit>(field);
    QTest::mouseClick(edit, Qt::LeftButton);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, text);
}

void Road::chooseFromMenu(QWidget* window, const QString& menu, const QString& entry)
{
    QMenuBar* const bar = qobject_cast<QMainWindow*>(window)->menuBar();
    QAction* const menuAction = actionWithText(bar->actions(), menu);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menuAction).center());
    require(QTest::qWaitForWindowExposed(menuAction->menu(), PatienceMs),
            "The menu \"" + menu + "\" does not open.");
    QAction* const action = actionWithText(menuAction->menu()->actions(), entry);
    QTest::mouseClick(menuAction->menu(), Qt::LeftButton, {},
                      menuAction->menu()->actionGeometry(action).center());
}
