#include "host/app/DesignCommands.h"

#include "host/app/archive/ArchiveDialog.h"
#include "host/app/common/FileProblem.h"
#include "host/app/common/PlainMessageBox.h"
#include "host/app/DesignModel.h"
#include "host/app/DesignStorage.h"
#include "host/app/DesignView.h"
#include "host/app/NewDesignDialog.h"
#include "host/app/OpenDesigns.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;

DesignCommands::DesignCommands(OpenDesigns* designs, DesignModel* model, DesignView* view,
                               QWidget* window)
    : QObject(window), m_designs(designs), m_model(model), m_view(view), m_window(window)
{
    connect(view, &DesignView::currentItemChanged, this, &DesignCommands::refresh);
    // The view reports the current item before the last design has left the model.
    connect(model, &QAbstractItemModel::rowsRemoved, this, &DesignCommands::refresh);
    connect(view, &QAbstractItemView::activated, this, &DesignCommands::activate);
    connect(designs, &OpenDesigns::opened, this, [this](const Design* design) {
        connect(design, &Design::stateChanged, this, &DesignCommands::refresh);
        connect(design, &Design::modifiedChanged, this, &DesignCommands::refresh);
    });
}

void DesignCommands::addToMenus()
{
    addCommand("File", "File.NewDesign", tr("&New Design..."), QKeySequence::New,
               &DesignCommands::newDesign);
    addCommand("File", "File.OpenDesign", tr("&Open Design..."), QKeySequence::Open,
               &DesignCommands::chooseDesign);
    m_save = addCommand("File", "File.SaveDesign", tr("&Save Design"), QKeySequence::Save,
                        &DesignCommands::saveCurrent);
    m_archive = addCommand("File", "File.ArchiveDesign", tr("&Archive Design..."),
                           QKeySequence("Ctrl+R"), &DesignCommands::archiveCurrent);
    m_close = addCommand("File", "File.CloseDesign", tr("&Close Design"), QKeySequence("Ctrl+W"),
                         &DesignCommands::closeCurrent);

    m_add = addCommand("Design", "Design.AddFiles", tr("&Add Files..."),
                       QKeySequence("Ctrl+Shift+A"), &DesignCommands::addFiles);
    m_remove = addCommand("Design", "Design.Remove", tr("&Remove from Design"),
                          QKeySequence::Delete, &DesignCommands::removeCurrent);
    // Delete means something else to text fields and to the property editor.
    m_remove->setShortcutContext(Qt::WidgetShortcut);
    m_view->addAction(m_remove);
    m_openFolder = addCommand("Design", "Design.OpenFolder", tr("Open &Folder"), QKeySequence(),
                              &DesignCommands::openFolder);
    QtilitiesApplication::actionManager()->menu("Design")->addSeparator();
    m_lock = addCommand("Design", "Design.Locked", tr("&Locked"), QKeySequence("Ctrl+L"), nullptr);
    m_lock->setCheckable(true);
    connect(m_lock, &QAction::triggered, this, &DesignCommands::setLocked);

    m_view->setMenuActions({m_openFolder, m_remove}, {m_add, m_openFolder, m_save, m_close});
    refresh();
}

QAction* DesignCommands::addCommand(const QString& menu, const QString& id, const QString& text,
                                    const QKeySequence& shortcut, void (DesignCommands::*slot)())
{
    Command* const command =
        QtilitiesApplication::actionManager()->registerActionPlaceHolder(id, text, shortcut);
    QtilitiesApplication::actionManager()->menu(menu)->addAction(command);
    if (slot)
        connect(command->action(), &QAction::triggered, this, slot);
    return command->action();
}

void DesignCommands::refresh()
{
    const Design* const design = m_view->currentDesign();
    const QModelIndex current = m_view->currentIndex();
    const bool editable = design && !design->isLocked() && !design->isReadOnly();
    m_save->setEnabled(design && !design->isReadOnly() && design->isModified());
    m_archive->setEnabled(design);
    m_close->setEnabled(design);
    // Without a design it makes a new one.
    m_add->setEnabled(!design || editable);
    m_remove->setEnabled(editable && (m_model->fileAt(current) || m_model->folderAt(current)));
    m_openFolder->setEnabled(design);
    m_lock->setEnabled(design && !design->isReadOnly());
    m_lock->setChecked(design && design->isLocked());
}

void DesignCommands::openDesign(const QString& path)
{
    const QFileInfo info(path);
    const QString folder =
        info.isFile() ? info.absolutePath() : QDir::cleanPath(info.absoluteFilePath());
    if (!QFileInfo(folder).isDir()) {
        showError("CannotOpenBox",
                  tr("There is no folder %1.").arg(QDir::toNativeSeparators(folder)));
        return;
    }
    if (!DesignStorage::hasDescription(folder)) {
        const QString question = tr("There is no design in %1: it has no file design.json.\n\n"
                                    "Do you want to make a new design there?")
                                     .arg(QDir::toNativeSeparators(folder));
        if (ask("NoDesignBox", question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
            makeDesign(folder);
        return;
    }
    QString error;
    if (const Design* const design = m_designs->open(folder, &error))
        m_view->setCurrentDesign(design);
    else
        showError("CannotOpenBox", tr("Cannot open the design.\n\n%1").arg(error));
}

void DesignCommands::takePaths(const QStringList& paths, Design* design)
{
    QStringList added;
    for (const QString& path : paths) {
        if (QFileInfo(path).isDir() && DesignStorage::hasDescription(path))
            openDesign(path);
        else
            added << path;
    }
    if (added.isEmpty())
        return;
    if (!design) {
        const QFileInfo first(added.first());
        design = makeDesign(first.isDir() ? first.absoluteFilePath() : first.absolutePath());
        // A folder in which a design was made is not a part of it.
        const QString own = design ? design->workingFolderPath() : QString();
        added.erase(std::remove_if(added.begin(), added.end(),
                                   [&own](const QString& path) { return QDir(path) == QDir(own); }),
                    added.end());
    }
    if (design)
        addPaths(added, design);
}

bool DesignCommands::mayCloseAll()
{
    const QList<Design*> designs = m_designs->designs();
    return std::all_of(designs.begin(), designs.end(),
                       [this](Design* design) { return mayClose(design); });
}

void DesignCommands::chooseDesign()
{
    const QString path = QFileDialog::getExistingDirectory(m_window, tr("Open Design"));
    if (!path.isEmpty())
        openDesign(path);
}

void DesignCommands::newDesign() { makeDesign(QString()); }

void DesignCommands::saveCurrent() { save(m_view->currentDesign()); }

void DesignCommands::archiveCurrent()
{
    Design* const design = m_view->currentDesign();
    const QString name =
        QFileInfo(DesignStorage::descriptionPath(design->workingFolderPath())).fileName();
    archiveDesign(design, {name, [design] { return DesignStorage::text(*design); }}, m_window);
}

void DesignCommands::closeCurrent()
{
    Design* const design = m_view->currentDesign();
    if (mayClose(design))
        m_designs->close(design);
}

void DesignCommands::addFiles()
{
    Design* const design = m_view->currentDesign();
    const QStringList paths = QFileDialog::getOpenFileNames(
        m_window, tr("Add Files"), design ? design->workingFolderPath() : QString());
    takePaths(paths, design);
}

void DesignCommands::removeCurrent()
{
    const QModelIndex current = m_view->currentIndex();
    Design* const design = m_model->designAt(current);
    if (DesignFile* const file = m_model->fileAt(current))
        design->removeFile(file);
    else if (DesignFolder* const folder = m_model->folderAt(current))
        design->removeFolder(folder);
    refresh();
}

void DesignCommands::activate(const QModelIndex& index)
{
    if (m_model->fileAt(index) || m_model->folderAt(index))
        openFolder();
    else
        m_view->setExpanded(index, !m_view->isExpanded(index));
}

void DesignCommands::openFolder()
{
    const QModelIndex current = m_view->currentIndex();
    const Design* const design = m_view->currentDesign();
    QString path = design ? design->workingFolderPath() : QString();
    if (const DesignFile* const file = m_model->fileAt(current))
        path = QFileInfo(file->filePath()).absolutePath();
    else if (const DesignFolder* const folder = m_model->folderAt(current))
        path = folder->folderPath();
    if (!path.isEmpty() && !QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        showError("CannotOpenBox",
                  tr("Cannot open the folder %1.").arg(QDir::toNativeSeparators(path)));
}

void DesignCommands::setLocked(bool locked) { m_view->currentDesign()->setLocked(locked); }

Design* DesignCommands::makeDesign(const QString& folder)
{
    NewDesignDialog dialog(folder, m_window);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    QString error;
    Design* const design = m_designs->create(dialog.folder(), dialog.typeName(),
                                             dialog.versionMajor(), dialog.versionMinor(), &error);
    if (design)
        m_view->setCurrentDesign(design);
    else
        showError("CannotSaveBox", tr("Cannot make the design.\n\n%1").arg(error));
    return design;
}

bool DesignCommands::save(Design* design)
{
    if (DesignStorage::isChangedOnDisk(*design) && !mayReplace(*design))
        return false;
    QString error;
    if (DesignStorage::save(design, &error))
        return true;
    showError("CannotSaveBox", tr("Cannot save the design.\n\n%1").arg(error));
    return false;
}

bool DesignCommands::mayReplace(const Design& design)
{
    const QString reason =
        tr("Another program has changed the file since \"%1\" was read or saved.")
            .arg(design.name());
    const QString question =
        tr("%1\n\nDo you want to replace it?")
            .arg(fileProblem(DesignStorage::descriptionPath(design.workingFolderPath()), reason));
    return ask("ChangedOnDiskBox", question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

bool DesignCommands::mayClose(Design* design)
{
    if (!design->isModified())
        return true;
    switch (ask("SaveChangesBox",
                tr("Do you want to save the changes to \"%1\"?").arg(design->name()),
                QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel)) {
    case QMessageBox::Save:
        return save(design);
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

void DesignCommands::addPaths(const QStringList& paths, Design* design)
{
    QList<DesignFile*> files;
    QStringList problems;
    design->tree()->startProcessingCycle();
    for (const QString& path : paths) {
        QString error;
        if (QFileInfo(path).isDir())
            design->addFolder(path, &error);
        else if (DesignFile* const file = design->addFile(path, &error))
            files << file;
        if (!error.isEmpty())
            problems << fileProblem(path, error);
    }
    design->tree()->endProcessingCycle();
    design->refreshFiles(files);
    if (!problems.isEmpty())
        showError("CannotAddBox", tr("Not everything could be added to \"%1\".\n\n%2")
                                      .arg(design->name(), problems.join('\n')));
}

int DesignCommands::ask(const QString& name, const QString& text,
                        QMessageBox::StandardButtons buttons,
                        QMessageBox::StandardButton defaultButton)
{
    return showBox(QMessageBox::Question, name, text, buttons, defaultButton);
}

void DesignCommands::showError(const QString& name, const QString& text)
{
    showBox(QMessageBox::Warning, name, text, QMessageBox::Ok, QMessageBox::Ok);
}

int DesignCommands::showBox(QMessageBox::Icon icon, const QString& name, const QString& text,
                            QMessageBox::StandardButtons buttons,
                            QMessageBox::StandardButton defaultButton)
{
    PlainMessageBox box(icon, tr("Pelk Design Host"), text, buttons, defaultButton, m_window);
    box.setObjectName(name);
    return box.exec();
}
