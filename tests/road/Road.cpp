#include "Road.h"

#include "GeneratorSteps.h"
#include "ImageCheck.h"

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
#include <QScreen>
#include <QTreeView>
#include <QtTest>

using Hands::find;
using Hands::require;

namespace {

const char* const Description = "Front end with the new pulse compression";

QJsonObject entry(const QJsonArray& list, const char* key, const QString& value)
{
    for (const QJsonValue& item : list) {
        if (item.toObject()[key] == value)
            return item.toObject();
    }
    throw RoadBlock("The design's description has no \"" + value + "\".");
}

/// What another tool says of a package.
QByteArray unzip(const QStringList& arguments)
{
    QProcess process;
    process.start("unzip", arguments);
    require(process.waitForFinished(Hands::PatienceMs) && process.exitCode() == 0,
            "unzip " + arguments.join(' ') + ": " + process.readAllStandardError());
    return process.readAllStandardOutput();
}

} // namespace

Road::Road(const QString& design, const QString& screenshot)
    : m_design(design), m_binary(path("top.bin")), m_screenshot(screenshot)
{
}

QString Road::path(const char* name) const { return QDir(m_design).filePath(name); }

void Road::drive()
{
    m_host = Hands::window("MainWindow");
    makeImageFromToolsMenu();
    remakeImageFromItsCompanion();
    makeImageFromDesign();
    checkDesignView();
    saveDesign();
    openCompanionFromDesign();
    archiveDesign();
    withArchiveDialog([](QWidget* dialog) {
        Hands::select(dialog, "typeBox", "VKT Config Package");
        Hands::select(dialog, "cmbPackageType", "7030 (Software)");
        dialog->close();
    });
}

void Road::driveAfterRestart()
{
    m_host = Hands::window("MainWindow");
    withArchiveDialog([](QWidget* dialog) {
        Hands::select(dialog, "typeBox", "VKT Config Package");
        const QString type = find<QComboBox>(dialog, "cmbPackageType")->currentText();
        require(type == "7030 (Software)", "The package type is " + type + " after a restart.");
        dialog->close();
    });
    tell("Restarted", "  The package type is still 7030 (Software).\n");
}

void Road::makeImageFromToolsMenu()
{
    Hands::chooseFromMenuBar(m_host, "Tools", "Pelk FCF Generator");
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
    tell("Made from the Tools menu", image.report());
    // The window of the Tools menu leaves designs alone.
    require(find<QTreeView>(m_host, "MainDesignWidget")
                ->model()
                ->match(find<QTreeView>(m_host, "MainDesignWidget")->model()->index(0, 0),
                        Qt::DisplayRole, "top.fcf", 1,
                        Qt::MatchFlags(Qt::MatchExactly | Qt::MatchRecursive))
                .isEmpty(),
            "The Tools menu's generator added its image to the design.");
}

void Road::remakeImageFromItsCompanion()
{
    Hands::chooseFromMenuBar(m_host, "Tools", "Pelk FCF Generator");
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
    tell("Loaded, changed and made anew", image.report());
}

void Road::makeImageFromDesign()
{
    const auto* const view = find<QTreeView>(m_host, "MainDesignWidget");
    Hands::chooseFromContextMenu(view, "top.bin", "Create FCF");
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
    tell("Made from the design", image.report());
}

void Road::checkDesignView()
{
    const auto* const view = find<QTreeView>(m_host, "MainDesignWidget");
    for (const char* name : {"top.fcf", "top.txt"})
        require(Hands::row(view, name) == QStringList({name, "Generated", "1.0"}),
                QString("The design shows %1 as: ").arg(name) + Hands::row(view, name).join(", "));
    const QStringList log = Hands::column(find<QTreeView>(m_host, "LogPane"), 2);
    const QStringList added = {
        "Successfully added generated file \"" + path("top.fcf") + "\" to design.",
        "Successfully added generated file \"" + path("top.txt") + "\" to design."};
    require(log.mid(log.indexOf(added[0]), 2) == added && log.filter("generated file").size() == 2,
            "The log does not tell of both files: " + log.join(" | "));
    tell("Log", "  " + log.join("\n  ") + '\n');
}

void Road::saveDesign()
{
    Hands::chooseFromMenuBar(m_host, "File", "Save Design");
    QFile file(path("design.json"));
    require(file.open(QIODevice::ReadOnly), "The design has no description.");
    const QJsonObject design = QJsonDocument::fromJson(file.readAll()).object();
    for (const char* name : {"top.fcf", "top.txt"}) {
        const QJsonObject generated = entry(design["files"].toArray(), "path", name);
        require(generated["generated"] == true && generated["version"] == "1.0" &&
                    generated["node"] == "Bit-stream Files",
                QString("The design's description does not hold %1 as generated.").arg(name));
    }
    const QJsonArray properties = design["properties"].toArray();
    require(entry(properties, "name", "ZORV Pelk Module")["value"] == "GPM" &&
                entry(properties, "name", "ZORV Pelk Device")["value"] == "Processing_FPGA_2" &&
                entry(properties, "name", "ZORV Pelk Config Number")["value"] == 4,
            "The target was not written back to the design.");
}

void Road::openCompanionFromDesign()
{
    Hands::chooseFromContextMenu(find<QTreeView>(m_host, "MainDesignWidget"), "top.txt",
                                 "Open FCF");
    GeneratorSteps generator(&m_dialogs);
    generator.expect("txtInputFile", m_binary);
    generator.expect("CiNumEditBox", "0");
    generator.expectFunctions({"Range gate"});
    takeScreenshot();
    generator.cancel();
}

void Road::archiveDesign()
{
    withArchiveDialog([this](QWidget* dialog) { makePackage(dialog); });
    const QString package = path("7010-GNRL-ELEC-FW-01-V-01_00.zip");
    unzip({"-t", package});
    // What is generated is made anew from the package, and not part of it.
    require(unzip({"-Z1", package}) == "design.json\ntop.bin\n", "The package has other members.");
    for (const char* member : {"design.json", "top.bin"}) {
        QFile file(path(member));
        require(file.open(QIODevice::ReadOnly) && unzip({"-p", package, member}) == file.readAll(),
                QString("The package's %1 is not the design's.").arg(member));
    }
    tell("Package", "  " + package + '\n');
}

void Road::makePackage(QWidget* dialog)
{
    const auto expectName = [&](const char* name) {
        const QString shown = find<QLineEdit>(dialog, "destinationPath")->text();
        require(shown == path(name), QString("The package is to go to %1.").arg(shown));
    };
    Hands::select(dialog, "typeBox", "VKT Config Package");
    expectName("7010-GNRL-ELEC-FW-01-V-01_00.zip");
    Hands::select(dialog, "cmbPackageType", "7030 (Software)");
    expectName("7030-GNRL-CMPL-SW-01-V-01_00.zip");
    Hands::select(dialog, "cmbPackageType", "7010 (Firmware)");
    expectName("7010-GNRL-ELEC-FW-01-V-01_00.zip");
    Hands::click(dialog, "archiveButton");
    require(QTest::qWaitFor([&] { return !dialog->isVisible(); }, Hands::PatienceMs),
            "The archive dialog stays open.");
}

void Road::withArchiveDialog(const std::function<void(QWidget*)>& deal)
{
    // No exception may pass through the dialog's own event loop.
    std::exception_ptr block;
    m_dialogs.leaveTo([&](QWidget* dialog) {
        try {
            deal(dialog);
        } catch (const RoadBlock&) {
            block = std::current_exception();
            dialog->close();
        }
    });
    Hands::chooseFromMenuBar(m_host, "File", "Archive Design...");
    if (block)
        std::rethrow_exception(block);
    require(m_dialogs.allGiven(),
            "No archive dialog came up, or more: " + m_dialogs.texts().join(" | "));
}

void Road::takeScreenshot() const
{
    if (m_screenshot.isEmpty())
        return;
    QCoreApplication::processEvents();
    const QPixmap screen = QGuiApplication::primaryScreen()->grabWindow(0);
    require(screen.save(m_screenshot), "Cannot save the screenshot to " + m_screenshot);
}

void Road::tell(const QString& title, const QString& text)
{
    m_report += "== " + title + '\n' + text + '\n';
}
