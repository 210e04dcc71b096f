#include <Design.h>

#include <DesignFile.h>
#include <DesignFolder.h>
#include <DesignManager.h>
#include <DesignStructure.h>

#include <QtilitiesCore/ObjectManager.h>
#include <QtilitiesCoreGui/TreeNode.h>
#include <QtilitiesLogging/Logger.h>

#include <QDir>
#include <QFileInfo>

namespace OrvanticCore {

using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::SharedProperty;
using Qtilities::CoreGui::TreeNode;
using Qtilities::Logging::Logger;

namespace {

const char VersionChangesProperty[] = "CurrentVersionChanges";

} // namespace

struct Design::Private {
    QString folder;
    QString typeName;
    int major;
    int minor;
    QList<DesignProperty> properties;
    QScopedPointer<DesignStructure> structure;
    QScopedPointer<TreeNode> tree;
    QList<DesignFolder*> folders;
    bool filesChangePending;
    bool locked;
    bool readOnly;
    bool modified;

    Private()
        : major(0), minor(0), tree(new TreeNode), filesChangePending(false), locked(false),
          readOnly(false), modified(false)
    {
    }
};

Design::Design(const QString& working_folder_path, const QString& type_name, QObject* parent)
    : QObject(parent), d(new Private)
{
    d->folder = QDir::cleanPath(QDir(working_folder_path).absolutePath());
    d->typeName = type_name;
    setObjectName(name());
    connect(d->tree.data(), SIGNAL(layoutChanged()), SLOT(announceFiles()));
    connect(d->tree.data(), SIGNAL(processingCycleEnded()), SLOT(announcePendingFiles()));
}

Design::~Design() { DesignManager::instance()->removeDesign(this); }

QString Design::typeName() const { return d->typeName; }

int Design::versionMajor() const { return d->major; }

int Design::versionMinor() const { return d->minor; }

QString Design::versionString(const QString& separator) const
{
    return QString::number(d->major) + separator + QString::number(d->minor);
}

QVariant Design::designProperty(const QString& name) const
{
    const int index = indexOfProperty(name);
    return index < 0 ? QVariant() : d->properties.at(index).value;
}

void Design::setDesignProperty(const QString& name, const QVariant& value,
                               const QtilitiesCategory& category)
{
    if (refusesChange(tr("property \"%1\"").arg(name)))
        return;
    DesignProperty property;
    property.name = name;
    property.value = value;
    property.category = category;
    const int index = indexOfProperty(name);
    if (index < 0)
        d->properties.append(property);
    else
        d->properties[index] = property;
    markModified();
    emit propertiesChanged();
}

QString Design::workingFolderPath() const { return d->folder; }

DesignStructure* Design::structure() const { return d->structure.data(); }

TreeNode* Design::tree() const { return d->tree.data(); }

DesignFile* Design::fileAt(const QString& path) const
{
    const QString wanted = absolutePath(path);
    foreach (DesignFile* file, files()) {
        if (file->filePath() == wanted)
            return file;
    }
    return 0;
}

DesignFile* Design::addFile(const QString& path, QString* error)
{
    const QString reason = refusal(path, false);
    if (!reason.isEmpty()) {
        if (error)
            *error = reason;
        return 0;
    }
    return restoreFile(path);
}

void Design::refreshFiles(const QList<DesignFile*>& files) { emit filesRefreshed(files); }

QString Design::name() const { return QFileInfo(d->folder).fileName(); }

void Design::setVersion(int major, int minor)
{
    if (d->major == major && d->minor == minor)
        return;
    d->major = major;
    d->minor = minor;
    markModified();
    emit versionChanged();
}

void Design::setVersionChanges(const QString& text)
{
    if (text == versionChanges())
        return;
    if (text.isEmpty())
        setProperty(VersionChangesProperty, QVariant());
    else
        ObjectManager::setSharedProperty(this, SharedProperty(VersionChangesProperty, text));
    markModified();
    emit versionChanged();
}

QString Design::versionChanges() const
{
    return ObjectManager::getSharedProperty(this, VersionChangesProperty).value().toString();
}

QList<DesignProperty> Design::designProperties() const { return d->properties; }

void Design::removeDesignProperty(const QString& name)
{
    const int index = indexOfProperty(name);
    if (index < 0)
        return;
    d->properties.removeAt(index);
    markModified();
    emit propertiesChanged();
}

void Design::setStructure(DesignStructure* structure)
{
    d->structure.reset(structure);
    markModified();
    emit filesChanged();
}

QList<DesignFile*> Design::files() const
{
    QList<DesignFile*> files;
    for (int index = 0; index < d->tree->subjectCount(); ++index) {
        if (DesignFile* const file = qobject_cast<DesignFile*>(d->tree->subjectAt(index)))
            files.append(file);
    }
    return files;
}

DesignFile* Design::restoreFile(const QString& path)
{
    if (DesignFile* const present = fileAt(path))
        return present;
    DesignFile* const file = new DesignFile(absolutePath(path), this);
    connect(file, SIGNAL(itemChanged()), SLOT(handleItemChanged()));
    d->tree->addItem(file);
    markModified();
    return file;
}

void Design::removeFile(DesignFile* file)
{
    if (!file || file->design() != this)
        return;
    delete file;
    markModified();
}

QList<DesignFolder*> Design::folders() const { return d->folders; }

DesignFolder* Design::addFolder(const QString& path, QString* error)
{
    const QString reason = refusal(path, true);
    if (!reason.isEmpty()) {
        if (error)
            *error = reason;
        return 0;
    }
    return restoreFolder(path);
}

DesignFolder* Design::restoreFolder(const QString& path)
{
    if (DesignFolder* const present = folderAt(path))
        return present;
    DesignFolder* const folder = new DesignFolder(absolutePath(path), this);
    folder->setParent(this);
    connect(folder, SIGNAL(itemChanged()), SLOT(handleItemChanged()));
    d->folders.append(folder);
    handleItemChanged();
    return folder;
}

void Design::removeFolder(DesignFolder* folder)
{
    if (!folder || folder->design() != this)
        return;
    d->folders.removeOne(folder);
    delete folder;
    handleItemChanged();
}

QString Design::nodeOf(const DesignFile* file) const
{
    if (!file->customNode().isEmpty() || !d->structure)
        return file->customNode();
    const FileAssociation* const association =
        d->structure->mapFileNameToAssociation(file->fileName());
    if (association && !association->designNode().isEmpty())
        return association->designNode();
    return d->structure->unassignedFileAssociationsNode();
}

bool Design::isLocked() const { return d->locked; }

void Design::setLocked(bool locked)
{
    if (d->locked == locked)
        return;
    d->locked = locked;
    markModified();
    emit stateChanged(d->locked, d->readOnly);
}

bool Design::isReadOnly() const { return d->readOnly; }

void Design::setReadOnly(bool read_only)
{
    if (d->readOnly == read_only)
        return;
    d->readOnly = read_only;
    emit stateChanged(d->locked, d->readOnly);
}

bool Design::refusesChange(const QString& what) const
{
    if (!d->locked && !d->readOnly)
        return false;
    const QString text = d->locked ? tr("Cannot set %1 of design \"%2\": the design is locked.")
                                   : tr("Cannot set %1 of design \"%2\": the design is read-only.");
    Logger::instance()->logPriorityMessage(QString(), Logger::Warning, text.arg(what, name()));
    return true;
}

bool Design::isModified() const { return d->modified; }

void Design::setModified(bool modified)
{
    if (d->modified == modified)
        return;
    d->modified = modified;
    emit modifiedChanged(modified);
}

void Design::markModified() { setModified(true); }

void Design::handleItemChanged()
{
    markModified();
    if (d->tree->isProcessingCycleActive())
        d->filesChangePending = true;
    else
        announceFiles();
}

void Design::announceFiles()
{
    d->filesChangePending = false;
    emit filesChanged();
}

void Design::announcePendingFiles()
{
    if (d->filesChangePending)
        announceFiles();
}

QString Design::absolutePath(const QString& path) const
{
    return QDir::cleanPath(QDir(d->folder).absoluteFilePath(path));
}

QString Design::refusal(const QString& path, bool folder) const
{
    if (d->locked)
        return tr("The design is locked.");
    if (d->readOnly)
        return tr("The design is read-only.");
    const QFileInfo info(absolutePath(path));
    if (path.isEmpty() || !info.exists())
        return tr("There is no such file.");
    if (info.isDir() != folder)
        return folder ? tr("It is not a folder.") : tr("It is not a file.");
    if (fileAt(path) || folderAt(path))
        return tr("It is in the design already.");
    return QString();
}

DesignFolder* Design::folderAt(const QString& path) const
{
    const QString wanted = absolutePath(path);
    foreach (DesignFolder* folder, folders()) {
        if (folder->folderPath() == wanted)
            return folder;
    }
    return 0;
}

int Design::indexOfProperty(const QString& name) const
{
    for (int index = 0; index < d->properties.count(); ++index) {
        if (d->properties.at(index).name == name)
            return index;
    }
    return -1;
}

} // namespace OrvanticCore
