#include <OrvanticCore/Design.h>

#include "host/sdk/core/src/DesignContents.h"

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>

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
    bool locked;
    bool readOnly;
    bool modified;
    /// Last, so that it goes first: its items know the design.
    DesignContents contents;

    Private(const QString& working_folder_path, const QString& type_name, Design* design)
        : folder(QDir::cleanPath(QDir(working_folder_path).absolutePath())), typeName(type_name),
          major(0), minor(0), locked(false), readOnly(false), modified(false),
          contents(folder, design)
    {
    }
};

Design::Design(const QString& working_folder_path, const QString& type_name, QObject* parent)
    : QObject(parent), d(new Private(working_folder_path, type_name, this))
{
    setObjectName(name());
    connect(&d->contents, SIGNAL(modified()), SLOT(markModified()));
    connect(&d->contents, SIGNAL(changed()), SIGNAL(filesChanged()));
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

TreeNode* Design::tree() const { return d->contents.tree(); }

DesignFile* Design::fileAt(const QString& path) const { return d->contents.fileAt(path); }

DesignFile* Design::addFile(const QString& path, QString* error)
{
    return isRefused(path, false, error) ? nullptr : d->contents.addFile(path);
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

QList<DesignFile*> Design::files() const { return d->contents.files(); }

DesignFile* Design::restoreFile(const QString& path) { return d->contents.addFile(path); }

void Design::removeFile(DesignFile* file) { d->contents.remove(file); }

QList<DesignFolder*> Design::folders() const { return d->contents.folders(); }

DesignFolder* Design::addFolder(const QString& path, QString* error)
{
    return isRefused(path, true, error) ? nullptr : d->contents.addFolder(path);
}

DesignFolder* Design::restoreFolder(const QString& path) { return d->contents.addFolder(path); }

void Design::removeFolder(DesignFolder* folder) { d->contents.remove(folder); }

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

bool Design::isRefused(const QString& path, bool folder, QString* error) const
{
    QString reason;
    if (d->locked)
        reason = tr("The design is locked.");
    else if (d->readOnly)
        reason = tr("The design is read-only.");
    else
        reason = d->contents.refusal(path, folder);
    if (error && !reason.isEmpty())
        *error = reason;
    return !reason.isEmpty();
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
