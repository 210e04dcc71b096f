// Measures how work grows with the number of functions of a build, files of a design and members of
// an archive, in the real windows.
//
// Prints one line for each: WORK, NUMBER and milliseconds. Usage: growth-bench NUMBER... in which
// each number is a design's files; functions are a hundredth of it.

#include "generator/PelkFcfGenerator.h"
#include "host/app/archive/ArchiveJob.h"
#include "host/app/MainWindow.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QCheckBox>
#include <QContextMenuEvent>
#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QTreeView>

#include <cstdio>
#include <functional>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

void require(bool condition, const char* what)
{
    if (!condition)
        qFatal("%s", what);
}

void measure(const char* work, int number, const std::function<void()>& run)
{
    QElapsedTimer timer;
    timer.start();
    run();
    std::printf("%s\t%d\t%.3f\n", work, number, double(timer.nsecsElapsed()) / 1e6);
}

/// Lets the window do what it left for later, such as layouts.
void settle() { QCoreApplication::processEvents(); }

void addFunctions(PelkFcfGenerator* window, int from, int count)
{
    auto* const name = window->findChild<QLineEdit*>("EditFunctionName");
    auto* const description = window->findChild<QTextEdit*>("DescriptionMemoFunctions");
    auto* const upload = window->findChild<QPushButton*>("UploadFunctionButton");
    for (int index = from; index < from + count; ++index) {
        name->setText(QString("function %1").arg(index));
        description->setPlainText("Works on blocks of 1024 samples.");
        upload->click();
    }
    settle();
}

void measureFunctions(int number)
{
    PelkFcfGenerator window;
    window.show();
    window.findChild<QCheckBox*>("ModifyFunctionCheckBox")->click();
    settle();
    constexpr int Few = 10;
    measure("10 functions added", Few, [&] { addFunctions(&window, 0, Few); });
    addFunctions(&window, Few, number - Few);
    measure("10 functions added", number + Few, [&] { addFunctions(&window, number, Few); });
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "cannot write");
}

QString makeDesign(const QDir& folder, int files)
{
    const QString path = folder.filePath(QString("design-%1").arg(files));
    require(QDir().mkpath(path), "cannot make a folder");
    QJsonArray listed;
    for (int index = 0; index < files; ++index) {
        const QString name = QString("file-%1.bit").arg(index, 6, 10, QLatin1Char('0'));
        write(path + '/' + name, "bits");
        listed << QJsonObject{{"path", name}, {"node", "Bit-stream Files"}};
    }
    const QJsonObject nodes{{"nodes", QJsonArray{QJsonObject{{"name", "Bit-stream Files"}}}},
                            {"associations", QJsonArray()},
                            {"unassignedNode", "Bit-stream Files"}};
    const QJsonObject design{{"format", 1},
                             {"type", "Firmware Design"},
                             {"version", QJsonObject{{"major", 1}, {"minor", 0}}},
                             {"files", listed},
                             {"properties", QJsonArray()},
                             {"structure", nodes}};
    write(path + "/design.json", QJsonDocument(design).toJson());
    return path;
}

void showContextMenu(QTreeView* view)
{
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint());
    QCoreApplication::sendEvent(view->viewport(), &event);
    settle();
    require(QApplication::activePopupWidget() != nullptr, "no context menu");
    QApplication::activePopupWidget()->close();
}

/// As the plug-in adds what was generated.
void addGenerated(Design* design)
{
    QList<DesignFile*> files;
    design->tree()->startProcessingCycle();
    for (const char* const name : {"top.fcf", "top.txt"}) {
        write(design->workingFolderPath() + '/' + name, "image");
        QString error;
        files << design->addFile(design->workingFolderPath() + '/' + name, &error);
        require(files.last(), "file not added");
        files.last()->setIsGenerated(true);
    }
    design->refreshFiles(files);
    design->tree()->endProcessingCycle(true);
    settle();
}

void archive(const Design& design, const QString& destination)
{
    ArchivePlan plan(design, ArchivePlan::Items(QFlag(0x13)));
    plan.setDescription("design.json", "{}");
    ArchiveJob job({plan, ArchiveFormat::Zip, destination, design.workingFolderPath(), false});
    job.start();
    require(job.wait() && job.outcome() == ArchiveJob::Written, "no archive");
}

void measureDesign(const QDir& folder, int files)
{
    const QString path = makeDesign(folder, files);
    DesignManager::instance()->setSettingsFilePath(folder.filePath("settings.ini"));
    MainWindow window;
    QtilitiesApplication::setMainWindow(&window);
    window.show();
    settle();
    measure("design opened", files, [&] {
        window.openDesign(path);
        settle();
    });
    auto* const design = dynamic_cast<Design*>(DesignManager::instance()->designs().value(0));
    require(design, "no design");
    auto* const view = window.findChild<QTreeView*>("MainDesignWidget");
    const QModelIndex last = view->model()
                                 ->match(view->model()->index(0, 0), Qt::DisplayRole, "file-", -1,
                                         Qt::MatchStartsWith | Qt::MatchRecursive)
                                 .last();
    view->setCurrentIndex(last);
    settle();
    measure("context menu", files, [&] { showContextMenu(view); });
    measure("file removed", files, [&] {
        QtilitiesApplication::actionManager()->command("Design.Remove")->action()->trigger();
        settle();
    });
    measure("removal undone", files, [&] {
        window.findChild<QAction*>("Edit.Undo")->trigger();
        settle();
    });
    measure("two files generated", files, [&] { addGenerated(design); });
    measure("archive", files,
            [&] { archive(*design, folder.filePath(QString("%1.zip").arg(files))); });
    design->setModified(false);
    window.close();
    DesignManager::instance()->setSettingsFilePath(QString());
}

} // namespace

int main(int argc, char** argv)
{
    QtilitiesApplication application(argc, argv);
    require(argc > 1, "usage: growth-bench NUMBER...");
    QTemporaryDir folder;
    for (int index = 1; index < argc; ++index) {
        const int number = QByteArray(argv[index]).toInt();
        require(number >= 2000, "a number from 2000 on");
        measureFunctions(number / 100);
        measureDesign(QDir(folder.path()), number);
    }
    return 0;
}
