#include "host/sdk/core/src/DesignContents.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QDir>
#include <QFileInfo>

namespace OrvanticCore {

using Qtilities::CoreGui::TreeNode;

DesignContents::DesignContents(const QString& working_folder_path, Design* design)
    : m_workingFolder(working_folder_path), m_design(design), m_tree(new TreeNode),
      m_changePending(false)
{
    connect(m_tree.data(), SIGNAL(layoutChanged()), SLOT(announce()));
    connect(m_tree.data(), SIGNAL(processingCycleEnded(bool)), SLOT(handleCycleEnded(bool)));
}

DesignContents::~DesignContents() {}

TreeNode* DesignContents::tree() const { return m_tree.data(); }

QList<DesignFile*> DesignContents::files() const
{
    QList<DesignFile*> files;
    for (int index = 0; index < m_tree->subjectCount(); ++index) {
        if (DesignFile* const file = qobject_cast<DesignFile*>(m_tree->subjectAt(index)))
            files.append(file);
    }
    return files;
}

QList<DesignFolder*> DesignContents::folders() const { return m_folders; }

DesignFile* DesignContents::fileAt(const QString& path) const
{
    const QString wanted = absolutePath(path);
    // The numbers differ when a plug-in has changed the tree itself.
    if (m_addedFiles.count() == m_tree->subjectCount())
        return m_addedFiles.value(wanted);

    foreach (DesignFile* file, files()) {
        if (file->filePath() == wanted)
            return file;
    }
    return nullptr;
}

DesignFolder* DesignContents::folderAt(const QString& path) const
{
    const QString wanted = absolutePath(path);
    foreach (DesignFolder* folder, m_folders) {
        if (folder->folderPath() == wanted)
            return folder;
    }
    return nullptr;
}

QString DesignContents::refusal(const QString& path, bool folder) const
{
    const QFileInfo info(absolutePath(path));
    if (path.isEmpty() || !info.exists())
        return tr("There is no such file.");
    if (info.isDir() != folder)
        return folder ? tr("It is not a folder.") : tr("It is not a file.");
    if (fileAt(path) || folderAt(path))
        return tr("It is in the design already.");
    return QString();
}

DesignFile* DesignContents::addFile(const QString& path)
{
    if (DesignFile* const present = fileAt(path))
        return present;
    DesignFile* const file = new DesignFile(absolutePath(path), m_design);
    connect(file, SIGNAL(itemChanged()), SLOT(handleItemChanged()));
    m_addedFiles.insert(file->filePath(), file);
    m_tree->addItem(file);
    emit modified();
    return file;
}

DesignFolder* DesignContents::addFolder(const QString& path)
{
    if (DesignFolder* const present = folderAt(path))
        return present;
    DesignFolder* const folder = new DesignFolder(absolutePath(path), m_design);
    folder->setParent(this);
    connect(folder, SIGNAL(itemChanged()), SLOT(handleItemChanged()));
    m_folders.append(folder);
    handleItemChanged();
    return folder;
}

void DesignContents::remove(DesignFile* file)
{
    if (!file || file->design() != m_design)
        return;
    m_addedFiles.remove(file->filePath());
    delete file;
    emit modified();
}

void DesignContents::remove(DesignFolder* folder)
{
    if (!folder || folder->design() != m_design)
        return;
    m_folders.removeOne(folder);
    delete folder;
    handleItemChanged();
}

void DesignContents::handleItemChanged()
{
    emit modified();
    if (m_tree->isProcessingCycleActive())
        m_changePending = true;
    else
        announce();
}

void DesignContents::announce()
{
    m_changePending = false;
    emit changed();
}

void DesignContents::handleCycleEnded(bool broadcast)
{
    if (m_changePending && broadcast)
        announce();
    m_changePending = false;
}

QString DesignContents::absolutePath(const QString& path) const
{
    return QDir::cleanPath(QDir(m_workingFolder).absoluteFilePath(path));
}

} // namespace OrvanticCore
