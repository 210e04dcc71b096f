#include "e2e/Scenario.h"

#include "e2e/GeneratorSteps.h"
#include "e2e/ImageCheck.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QStyle>
#include <QTreeView>
#include <QtTest>

using UserActions::find;
using UserActions::require;

namespace {

const char* const Description = "Front end with the new pulse compression";

QJsonObject entry(const QJsonArray& list, const char* key, const QString& value)
{
    for (const QJsonValue& item : list) {
        if (item.toObject()[key] == value)
            return item.toObject();
    }
    throw StepFailed("The design's description has no \"" + value + "\".");
}

/// What another tool says of a package.
QByteArray unzip(const QStringList& arguments)
{
    QProcess process;
    process.start("unzip", arguments);
    require(process.waitForFinished(UserActions::TimeoutMs) && process.exitCode() == 0,
            "unzip " + arguments.join(' ') + ": " + process.readAllStandardError());
    return process.readAllStandardOutput();
}

} // namespace

Scenario::Scenario(const QString& design, const QString& screenshot)
    : m_design(design), m_binary(path("top.bin")), m_screenshot(screenshot)
{
}

QString Scenario::path(const char* name) const { return QDir(m_design).filePath(name); }

void Scenario::run()
{
    m_host = UserActions::window("MainWindow");
    makeImageFromToolsMenu();
    remakeImageFromItsCompanion();
    makeImageFromDesign();
    checkDesignView();
    saveDesign();
    openCompanionFromDesign();
    archiveDesign();
    withArchiveDialog([](QWidget* dialog) {
        UserActions::select(dialog, "typeBox", "VKT Config Package");
        UserActions::select(dialog, "cmbPackageType", "7030 (Software)");
        dialog->close();
    });
}

void Scenario::runAfterRestart()
{
    m_host = UserActions::window("MainWindow");
    const QString style = QApplication::style()->objectName();
    require(style == "windows", "The style is " + style + " in place of windows.");
    const QStringList log = UserActions::column(find<QTreeView>(m_host, "logMessages"), 2);
    require(!log.filter(QRegularExpression("^Cannot load plug-in \".*/broken\\.so\": .")).isEmpty(),
            "The log does not name the broken library: " + log.join("; "));
    withArchiveDialog([](QWidget* dialog) {
        UserActions::select(dialog, "typeBox", "VKT Config Package");
        const QString type = find<QComboBox>(dialog, "cmbPackageType")->currentText();
        require(type == "7030 (Software)", "The package type is " + type + " after a restart.");
        dialog->close();
    });
    addToReport("Restarted",
                "  The package type is still 7030 (Software).\n"
                "  The style is the one asked for, and a broken library is reported.\n");
}

void Scenario::makeImageFromToolsMenu()
{
    UserActions::chooseFromMenuBar(m_host, "Tools", "Pelk FCF Generator");
    GeneratorSteps generator(&m_dialogs);
    generator.chooseBinary(m_binary);
    generator.type("AuthoEditBox", "R. Vos");
    generator.type("MajorVerEditBox", "1");
    generator.type("MinorVerEditBox", "4");
    generator.type("CiNumEditBox", "CI-0042");
    generator.describe(Description);
    generator.selectTarget("GPM", "Processing_FPGA_3", "2");
    generator.unfoldFunctions();
    generator.addFunction("Pulse compression", "R. Vos", "Matched filter,\n1024 taps");
    generator.addFunction("Doppler bank", "L. Mbeki", "64 channels");
    generator.generate(false);

    const ImageCheck image(m_binary);
    image.expectTarget({2, 8, 2, 1, 4});
    image.expectLines({"Filename: top.fcf", "CI No: CI-0042", "Author: R. Vos",
                       QString("Description: ") + Description, "---",
                       "Function name: Pulse compression", "Function author: R. Vos",
                       "Function CI No: F-1", "Function description: Matched filter,", "1024 taps",
                       "---", "Function name: Doppler bank", "Function author: L. Mbeki",
                       "Function CI No: F-2", "Function description: 64 channels", "---", "----"});
    addToReport("Made from the Tools menu", image.report());
    // The window of the Tools menu leaves designs alone.
    require(find<QTreeView>(m_host, "MainDesignWidget")
                ->model()
                ->match(find<QTreeView>(m_host, "MainDesignWidget")->model()->index(0, 0),
                        Qt::DisplayRole, "top.fcf", 1,
                        Qt::MatchFlags(Qt::MatchExactly | Qt::MatchRecursive))
                .isEmpty(),
            "The Tools menu's generator added its image to the design.");
}

void Scenario::remakeImageFromItsCompanion()
{
    UserActions::chooseFromMenuBar(m_host, "Tools", "Pelk FCF Generator");
    GeneratorSteps generator(&m_dialogs);
    generator.load(path("top.txt"));
    generator.expectFunctions({"Pulse compression", "Doppler bank"});
    generator.expect("DescriptionMemo", Description);
    generator.expect("ConfigComboBox", "2");
    generator.chooseBinary(m_binary);
    generator.type("CiNumEditBox", "CI-0043");
    generator.selectTarget("GPM", "Processing_FPGA_3", "2");
    generator.generate(true);

    const ImageCheck image(m_binary);
    image.expectTarget({2, 8, 2, 1, 4});
    // What a load changes: numbers gain a blank, and lines of a description are joined.
    image.expectLines({"CI No: CI-0043", "Function name: Pulse compression", "Function CI No:  F-1",
                       "Function description: Matched filter,1024 taps",
                       "Function name: Doppler bank", "Function CI No:  F-2", "----"});
    addToReport("Loaded, changed and made again", image.report());
}

void Scenario::makeImageFromDesign()
{
    const auto* const view = find<QTreeView>(m_host, "MainDesignWidget");
    UserActions::chooseFromContextMenu(view, "top.bin", "Create FCF");
    GeneratorSteps generator(&m_dialogs);
    generator.expect("txtInputFile", m_binary);
    generator.expect("MajorVerEditBox", "1");
    generator.expect("MinorVerEditBox", "0");
    generator.expect("CiNumEditBox", "0");
    generator.expect("ModuleComboBox", "GPM");
    generator.expect("FpgaComboBox", "Processing_FPGA_2");
    generator.expect("ConfigComboBox", "3");
    generator.unfoldFunctions();
    generator.addFunction("Range gate", "R. Vos", "64 samples");
    generator.selectTarget("GPM", "Processing_FPGA_2", "4");
    generator.generate(true);

    const ImageCheck image(m_binary);
    image.expectTarget({2, 4, 4, 1, 0});
    image.expectLines({"CI No: 0", "Function name: Range gate", "----"});
    addToReport("Made from the design", image.report());
}

void Scenario::checkDesignView()
{
    const auto* const view = find<QTreeView>(m_host, "MainDesignWidget");
    for (const char* name : {"top.fcf", "top.txt"})
        require(UserActions::row(view, name).mid(0, 3) == QStringList({name, "Generated", "1.0"}),
                QString("The design shows %1 as: ").arg(name) +
                    UserActions::row(view, name).join(", "));
    const QStringList log = UserActions::column(find<QTreeView>(m_host, "logMessages"), 2);
    const QStringList added = {
        "Successfully added generated file \"" + path("top.fcf") + "\" to design.",
        "Successfully added generated file \"" + path("top.txt") + "\" to design."};
    require(log.mid(log.indexOf(added[0]), 2) == added && log.filter("generated file").size() == 2,
            "The log does not name both files: " + log.join(" | "));
    addToReport("Log", "  " + log.join("\n  ") + '\n');
}

void Scenario::saveDesign()
{
    UserActions::chooseFromMenuBar(m_host, "File", "Save Design");
    QFile file(path("design.json"));
    require(file.open(QIODevice::ReadOnly), "The design has no description.");
    const QJsonObject design = QJsonDocument::fromJson(file.readAll()).object();
    for (const char* name : {"top.fcf", "top.txt"}) {
        const QJsonObject generated = entry(design["files"].toArray(), "path", name);
        require(generated["generated"] == true && generated["version"] == "1.0" &&
                    generated["node"] == "Bit-stream Files",
                QString("The design's description does not list %1 as generated.").arg(name));
    }
    const QJsonArray properties = design["properties"].toArray();
    require(entry(properties, "name", "ZORV Pelk Module")["value"] == "GPM" &&
                entry(properties, "name", "ZORV Pelk Device")["value"] == "Processing_FPGA_2" &&
                entry(properties, "name", "ZORV Pelk Config Number")["value"] == 4,
            "The target was not written back to the design.");
}

void Scenario::openCompanionFromDesign()
{
    UserActions::chooseFromContextMenu(find<QTreeView>(m_host, "MainDesignWidget"), "top.txt",
                                       "Open FCF");
    GeneratorSteps generator(&m_dialogs);
    generator.expect("txtInputFile", m_binary);
    generator.expect("CiNumEditBox", "0");
    generator.expectFunctions({"Range gate"});
    takeScreenshot();
    generator.cancel();
}

void Scenario::archiveDesign()
{
    withArchiveDialog([this](QWidget* dialog) { makePackage(dialog); });
    const QString package = path("7010-GNRL-ELEC-FW-01-V-01_00.zip");
    unzip({"-t", package});
    // The package delivers the image, so it contains what was generated as well.
    require(unzip({"-Z1", package}) == "design.json\ntop.bin\ntop.fcf\ntop.txt\n",
            "The package has other members.");
    for (const char* member : {"design.json", "top.bin", "top.fcf", "top.txt"}) {
        QFile file(path(member));
        require(file.open(QIODevice::ReadOnly) && unzip({"-p", package, member}) == file.readAll(),
                QString("The package's %1 is not the design's.").arg(member));
    }
    addToReport("Package", "  " + package + '\n');
}

void Scenario::makePackage(QWidget* dialog)
{
    const auto expectName = [&](const char* name) {
        const QString shown = find<QLineEdit>(dialog, "destinationPath")->text();
        require(shown == path(name), QString("The package is to go to %1.").arg(shown));
    };
    UserActions::select(dialog, "typeBox", "VKT Config Package");
    expectName("7010-GNRL-ELEC-FW-01-V-01_00.zip");
    UserActions::select(dialog, "cmbPackageType", "7030 (Software)");
    expectName("7030-GNRL-CMPL-SW-01-V-01_00.zip");
    UserActions::select(dialog, "cmbPackageType", "7010 (Firmware)");
    expectName("7010-GNRL-ELEC-FW-01-V-01_00.zip");
    UserActions::click(dialog, "archiveButton");
    require(QTest::qWaitFor([&] { return !dialog->isVisible(); }, UserActions::TimeoutMs),
            "The archive dialog stays open.");
}

void Scenario::withArchiveDialog(const std::function<void(QWidget*)>& use)
{
    // No exception may pass through the dialog's own event loop.
    std::exception_ptr failure;
    m_dialogs.leaveTo([&](QWidget* dialog) {
        try {
            use(dialog);
        } catch (const StepFailed&) {
            failure = std::current_exception();
            dialog->close();
        }
    });
    UserActions::chooseFromMenuBar(m_host, "File", "Archive Design...");
    if (failure)
        std::rethrow_exception(failure);
    require(m_dialogs.allGiven(),
            "Not exactly one archive dialog came up: " + m_dialogs.texts().join(" | "));
}

void Scenario::takeScreenshot() const
{
    if (m_screenshot.isEmpty())
        return;
    QCoreApplication::processEvents();
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    require(screen.save(m_screenshot), "Cannot save the screenshot to " + m_screenshot);
}

void Scenario::addToReport(const QString& title, const QString& text)
{
    m_report += "== " + title + '\n' + text + '\n';
}
