#include "host/app/DesignSession.h"

#include "host/app/common/FileProblem.h"
#include "host/app/common/HostError.h"
#include "host/app/common/HostLog.h"
#include "host/app/common/PlainMessageBox.h"
#include "host/app/DesignHistory.h"
#include "host/app/DesignStorage.h"
#include "host/app/NewDesignDialog.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using Qtilities::Logging::Logger;

namespace {

constexpr int MaximumRecent = 8;
const char RecentKey[] = "MainWindow/recentDesigns";
const char LastKey[] = "MainWindow/openDesigns";

QString settingsPath() { return DesignManager::instance()->settingsFilePath(); }

void rememberRecent(const QString& folder)
{
    QStringList recent = DesignSession::recentFolders();
    recent.removeAll(folder);
    recent.prepend(folder);
    QSettings(settingsPath(), QSettings::IniFormat)
        .setValue(RecentKey, QStringList(recent.mid(0, MaximumRecent)));
}

/// The folder of the design that \p path is or describes; empty if it is no design.
QString designFolderOf(const QString& path)
{
    const QFileInfo info(path);
    if (info.isDir())
        return DesignStorage::hasDescription(path) ? path : QString();
    const QString folder = info.absolutePath();
    return DesignStorage::descriptionPath(folder) == info.absoluteFilePath() ? folder : QString();
}

/// Where the files of a new design go until its structure is edited.
DesignStructure* initialStructure()
{
    auto* const structure = new DesignStructure;
    for (const char* node : {"Source Files", "Bit-stream Files", "Other Files"})
        structure->rootNode()->addNode(node);
    for (const char* pattern : {"*.vhd", "*.v", "*.xdc"})
        structure->addFileAssociation(pattern, "Source Files");
    for (const char* pattern : {"*.bit", "*.bin"})
        structure->addFileAssociation(pattern, "Bit-stream Files");
    structure->setUnassignedFileAssociationsNode("Other Files");
    return structure;
}

} // namespace

DesignSession::DesignSession(QWidget* window) : QObject(window), m_window(window) {}

DesignSession::~DesignSession() { qDeleteAll(m_designs); }

Design* DesignSession::open(const QString& path)
{
    const QFileInfo info(path);
    const QString folder =
        info.isFile() ? info.absolutePath() : QDir::cleanPath(info.absoluteFilePath());
    if (!QFileInfo(folder).isDir()) {
        showError("CannotOpenBox",
                  tr("There is no folder %1.").arg(QDir::toNativeSeparators(folder)));
        return nullptr;
    }

    if (!DesignStorage::hasDescription(folder)) {
        const QString question = tr("There is no design in %1: it has no file design.json.\n\n"
                                    "Do you want to make a new design there?")
                                     .arg(QDir::toNativeSeparators(folder));
        if (ask("NoDesignBox", question, QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
            return nullptr;
        return make(folder);
    }

    try {
        Design* const design = load(folder);
        rememberRecent(design->workingFolderPath());
        emit chosen(design);
        return design;
    } catch (const HostError& error) {
        showError("CannotOpenBox", tr("Cannot open the design.\n\n%1").arg(error.text()));
        return nullptr;
    }
}

Design* DesignSession::make(const QString& folder)
{
    NewDesignDialog dialog(folder, m_window);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;

    try {
        Design* const design = create(dialog.folder(), dialog.typeName(), dialog.versionMajor(),
                                      dialog.versionMinor());
        rememberRecent(design->workingFolderPath());
        emit chosen(design);
        return design;
    } catch (const HostError& error) {
        showError("CannotSaveBox", tr("Cannot make the design.\n\n%1").arg(error.text()));
        return nullptr;
    }
}

Design* DesignSession::load(const QString& folder)
{
    const QString wanted = QDir(folder).canonicalPath();
    for (Design* design : m_designs) {
        if (!wanted.isEmpty() && QDir(design->workingFolderPath()).canonicalPath() == wanted)
            return design;
    }
    return take(DesignStorage::load(folder));
}

Design* DesignSession::take(std::unique_ptr<Design> loaded)
{
    Design* const design = loaded.release();
    DesignHistory::attach(design);
    m_designs.append(design);
    DesignManager::instance()->addDesign(design);
    emit opened(design);
    return design;
}

Design* DesignSession::create(const QString& folder, const QString& typeName, int versionMajor,
                              int versionMinor)
{
    const QString shown = QDir::toNativeSeparators(folder);
    if (DesignStorage::hasDescription(folder))
        throw HostError(tr("There is a design in %1 already.").arg(shown));
    if (!QDir().mkpath(folder))
        throw HostError(tr("Cannot make the folder %1.").arg(shown));

    Design design(folder, typeName);
    design.setVersion(versionMajor, versionMinor);
    design.setStructure(initialStructure());
    DesignStorage::save(&design);
    return load(folder);
}

void DesignSession::addPaths(const QStringList& paths, Design* design, const QString& node)
{
    QStringList added;
    for (const QString& path : paths) {
        const QString folder = designFolderOf(path);
        if (folder.isEmpty())
            added << path;
        else
            open(folder);
    }
    if (added.isEmpty())
        return;

    if (!design) {
        const QFileInfo first(added.first());
        design = make(first.isDir() ? first.absoluteFilePath() : first.absolutePath());
        // A folder in which a design was made is not a part of it.
        const QString own = design ? design->workingFolderPath() : QString();
        added.erase(std::remove_if(added.begin(), added.end(),
                                   [&own](const QString& path) { return QDir(path) == QDir(own); }),
                    added.end());
    }

    if (design)
        addTo(design, added, node);
}

void DesignSession::addTo(Design* design, const QStringList& paths, const QString& node)
{
    QList<DesignFile*> files;
    QStringList problems;
    const auto addAll = [&] {
        design->tree()->startProcessingCycle();
        for (const QString& path : paths) {
            const AddedItem added = addItem(design, path, node);
            if (added.file)
                files << added.file;
            if (!added.error.isEmpty())
                problems << fileProblem(path, added.error);
        }
        design->tree()->endProcessingCycle();
    };

    DesignHistory::record(design, stepOf(*design, paths, node), addAll);
    design->refreshFiles(files);

    if (!problems.isEmpty())
        showError("CannotAddBox", tr("Not everything could be added to \"%1\".\n\n%2")
                                      .arg(design->name(), problems.join('\n')));
}

QString DesignSession::stepOf(const Design& design, const QStringList& paths, const QString& node)
{
    const bool isMove =
        !node.isEmpty() && std::all_of(paths.begin(), paths.end(), [&design](const QString& path) {
            return design.fileAt(path) != nullptr;
        });
    if (isMove)
        return tr("Move to %1").arg(node);
    if (paths.count() == 1)
        return tr("Add %1").arg(QFileInfo(paths.first()).fileName());
    return tr("Add %1 Items").arg(paths.count());
}

DesignSession::AddedItem DesignSession::addItem(Design* design, const QString& path,
                                                const QString& node)
{
    AddedItem added;
    DesignFile* const present = design->fileAt(path);
    if (present && !node.isEmpty())
        added.file = present;
    else if (QFileInfo(path).isDir())
        design->addFolder(path, &added.error);
    else
        added.file = design->addFile(path, &added.error);

    if (added.file && !node.isEmpty())
        added.file->setCustomNode(node);
    return added;
}

bool DesignSession::save(Design* design)
{
    if (DesignStorage::isChangedOnDisk(*design) && !mayReplace(*design))
        return false;

    try {
        DesignStorage::save(design);
        return true;
    } catch (const HostError& error) {
        showError("CannotSaveBox", tr("Cannot save the design.\n\n%1").arg(error.text()));
        return false;
    }
}

void DesignSession::close(Design* design)
{
    if (mayClose(design))
        drop(design);
}

void DesignSession::closeOthers(const Design* design)
{
    const QList<Design*> designs = m_designs;
    for (Design* other : designs) {
        if (other == design)
            continue;
        if (!mayClose(other))
            return;
        drop(other);
    }
}

void DesignSession::drop(Design* design)
{
    emit aboutToClose(design);
    m_designs.removeOne(design);
    delete design;
}

void DesignSession::reload(Design* design)
{
    const QString question =
        tr("Reading \"%1\" again discards the changes that are not saved.\n\nDo you want that?")
            .arg(design->name());
    if (design->isModified() && ask("ReloadBox", question, QMessageBox::Yes | QMessageBox::No,
                                    QMessageBox::No) != QMessageBox::Yes)
        return;

    std::unique_ptr<Design> loaded;
    try {
        loaded = DesignStorage::load(design->workingFolderPath());
    } catch (const HostError& error) {
        showError("CannotOpenBox", tr("Cannot open the design.\n\n%1").arg(error.text()));
        return;
    }

    drop(design);
    emit chosen(take(std::move(loaded)));
}

bool DesignSession::mayCloseAll()
{
    return std::all_of(m_designs.begin(), m_designs.end(),
                       [this](Design* design) { return mayClose(design); });
}

bool DesignSession::mayReplace(const Design& design)
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

bool DesignSession::mayClose(Design* design)
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

bool DesignSession::mayArchive(const Design& design, const QStringList& lines)
{
    constexpr int ShownLines = 12;
    QStringList shown = lines.mid(0, ShownLines);
    if (lines.count() > ShownLines)
        shown << tr("and %1 more").arg(lines.count() - ShownLines);

    const QString question = tr("Some files of \"%1\" are not what they should be:\n\n%2\n\n"
                                "Do you want to archive the design as it is?")
                                 .arg(design.name(), shown.join('\n'));
    return ask("ArchiveStatesBox", question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
           QMessageBox::Yes;
}

void DesignSession::restoreLast()
{
    const QStringList folders =
        QSettings(settingsPath(), QSettings::IniFormat).value(LastKey).toStringList();
    for (const QString& folder : folders) {
        try {
            emit chosen(load(folder));
        } catch (const HostError& error) {
            HostLog::add(Logger::Warning,
                         tr("A design of the last session cannot be opened. %1").arg(error.text()));
        }
    }
}

void DesignSession::rememberOpen() const
{
    QStringList folders;
    for (const Design* design : m_designs)
        folders << design->workingFolderPath();
    QSettings(settingsPath(), QSettings::IniFormat).setValue(LastKey, folders);
}

QStringList DesignSession::recentFolders()
{
    return QSettings(settingsPath(), QSettings::IniFormat).value(RecentKey).toStringList();
}

int DesignSession::ask(const QString& name, const QString& text,
                       QMessageBox::StandardButtons buttons,
                       QMessageBox::StandardButton defaultButton)
{
    PlainMessageBox box(QMessageBox::Question, tr("Pelk Design Host"), text, buttons, defaultButton,
                        m_window);
    box.setObjectName(name);
    return box.exec();
}

void DesignSession::showError(const QString& name, const QString& text)
{
    PlainMessageBox box(QMessageBox::Warning, tr("Pelk Design Host"), text, QMessageBox::Ok,
                        QMessageBox::Ok, m_window);
    box.setObjectName(name);
    box.exec();
}

void DesignSession::showMessage(const QString& name, const QString& text)
{
    PlainMessageBox box(QMessageBox::Information, tr("Pelk Design Host"), text, QMessageBox::Ok,
                        QMessageBox::Ok, m_window);
    box.setObjectName(name);
    box.exec();
}
