#include "host/app/DesignSession.h"

#include "host/app/common/FileProblem.h"
#include "host/app/common/PlainMessageBox.h"
#include "host/app/DesignHistory.h"
#include "host/app/DesignStorage.h"
#include "host/app/NewDesignDialog.h"
#include "host/app/OpenDesigns.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/TreeNode.h>
#include <QtilitiesLogging/Logger.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
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

} // namespace

DesignSession::DesignSession(OpenDesigns* designs, QWidget* window)
    : QObject(window), m_designs(designs), m_window(window)
{
}

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
    QString error;
    Design* const design = m_designs->open(folder, &error);
    if (!design) {
        showError("CannotOpenBox", tr("Cannot open the design.\n\n%1").arg(error));
        return nullptr;
    }
    rememberRecent(design->workingFolderPath());
    emit chosen(design);
    return design;
}

Design* DesignSession::make(const QString& folder)
{
    NewDesignDialog dialog(folder, m_window);
    if (dialog.exec() != QDialog::Accepted)
        return nullptr;
    QString error;
    Design* const design = m_designs->create(dialog.folder(), dialog.typeName(),
                                             dialog.versionMajor(), dialog.versionMinor(), &error);
    if (!design) {
        showError("CannotSaveBox", tr("Cannot make the design.\n\n%1").arg(error));
        return nullptr;
    }
    rememberRecent(design->workingFolderPath());
    emit chosen(design);
    return design;
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
    DesignHistory::record(design,
                          paths.count() == 1 ? tr("Add %1").arg(QFileInfo(paths.first()).fileName())
                                             : tr("Add %1 Items").arg(paths.count()),
                          [&] {
                              design->tree()->startProcessingCycle();
                              for (const QString& path : paths) {
                                  QString error;
                                  DesignFile* file =
                                      node.isEmpty() ? nullptr : design->fileAt(path);
                                  if (!file && QFileInfo(path).isDir())
                                      design->addFolder(path, &error);
                                  else if (!file)
                                      file = design->addFile(path, &error);
                                  if (!error.isEmpty())
                                      problems << fileProblem(path, error);
                                  if (!file)
                                      continue;
                                  files << file;
                                  if (!node.isEmpty())
                                      file->setCustomNode(node);
                              }
                              design->tree()->endProcessingCycle();
                          });
    design->refreshFiles(files);
    if (!problems.isEmpty())
        showError("CannotAddBox", tr("Not everything could be added to \"%1\".\n\n%2")
                                      .arg(design->name(), problems.join('\n')));
}

bool DesignSession::save(Design* design)
{
    if (DesignStorage::isChangedOnDisk(*design) && !mayReplace(*design))
        return false;
    QString error;
    if (DesignStorage::save(design, &error))
        return true;
    showError("CannotSaveBox", tr("Cannot save the design.\n\n%1").arg(error));
    return false;
}

void DesignSession::close(Design* design)
{
    if (mayClose(design))
        m_designs->close(design);
}

void DesignSession::reload(Design* design)
{
    const QString question =
        tr("Reading \"%1\" again discards the changes that are not saved.\n\nDo you want that?")
            .arg(design->name());
    if (design->isModified() && ask("ReloadBox", question, QMessageBox::Yes | QMessageBox::No,
                                    QMessageBox::No) != QMessageBox::Yes)
        return;
    QString error;
    if (const Design* const fresh = m_designs->reload(design, &error))
        emit chosen(fresh);
    else
        showError("CannotOpenBox", tr("Cannot open the design.\n\n%1").arg(error));
}

bool DesignSession::mayCloseAll()
{
    const QList<Design*> designs = m_designs->designs();
    return std::all_of(designs.begin(), designs.end(),
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

void DesignSession::restoreLast()
{
    const QStringList folders =
        QSettings(settingsPath(), QSettings::IniFormat).value(LastKey).toStringList();
    for (const QString& folder : folders) {
        QString error;
        if (const Design* const design = m_designs->open(folder, &error))
            emit chosen(design);
        else
            Logger::instance()->logPriorityMessage(
                QString(), Logger::Warning,
                tr("A design of the last session cannot be opened. %1").arg(error));
    }
}

void DesignSession::rememberOpen() const
{
    QStringList folders;
    for (const Design* design : m_designs->designs())
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
