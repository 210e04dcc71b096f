#include "design/ZORV_FileTypeExtensions.h"

#include "design/DesignProperties.h"
#include "generator/PelkFcfGenerator.h"
#include "toolkit/QtDifferences.h"

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>
#include <OrvanticCore/FileAssociation.h>
#include <OrvanticCore/IDesign.h>

#include <QtilitiesCore/ObjectManager.h>
#include <QtilitiesCoreGui/TreeNode.h>
#include <QtilitiesLogging/Logger.h>

#include <QAction>
#include <QApplication>
#include <QPointer>

using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::FileAssociation;
using OrvanticCore::IDesign;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::SharedProperty;
using Qtilities::CoreGui::AbstractTreeItem;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::Logging::Logger;

namespace ZORV_Plugin {

struct ZORV_FileTypeExtensionsData {
    QPointer<TreeFileItem> currentItem;
    QAction* openAction;
    QAction* createAction;
    QPointer<PelkFcfGenerator> generator;

    ZORV_FileTypeExtensionsData() : openAction(nullptr), createAction(nullptr) {}
};

namespace {

/// Null unless exactly one design is open: with several it is not certain which one is meant.
IDesign* onlyDesign()
{
    const QList<IDesign*> designs = DesignManager::instance()->designs();
    return designs.count() == 1 ? designs.first() : nullptr;
}

bool belongsToFirmwareDesign(TreeFileItem* item)
{
    const DesignFile* const file = qobject_cast<DesignFile*>(item);
    return file && file->design() && file->design()->typeName() == QLatin1String("Firmware Design");
}

/// A property that was added but never given a value is as good as absent.
bool hasValue(const QVariant& property)
{
    return property.isValid() && !property.toString().isEmpty();
}

/// The name of the node for bit-stream files, or an empty text when the design has none.
QString bitStreamNode(const IDesign* design)
{
    const DesignStructure* const structure = design->structure();
    if (!structure)
        return QString();
    const FileAssociation* const association =
        structure->mapFileNameToAssociation(QLatin1String("*.bit"));
    const QString name =
        association ? association->designNode() : structure->unassignedFileAssociationsNode();
    const AbstractTreeItem* const node = structure->designNodeWithName(name, true);
    return node ? node->getName() : QString();
}

void logMessage(Logger::MessageType type, const QString& text)
{
    Logger::instance()->logPriorityMessage(QString(), type, text);
}

} // namespace

ZORV_FileTypeExtensions::ZORV_FileTypeExtensions(QObject* parent)
    : QObject(parent), d(new ZORV_FileTypeExtensionsData)
{
    setObjectName(QLatin1String("ZORV_FileTypeExtensions"));
}

ZORV_FileTypeExtensions::~ZORV_FileTypeExtensions() { delete d; }

QList<QAction*> ZORV_FileTypeExtensions::contextMenuActions(TreeFileItem* item,
                                                            const QString& context)
{
    QList<QAction*> actions;
    if (context == QLatin1String("MainDesignWidget") && belongsToFirmwareDesign(item)) {
        const QString suffix = item->completeSuffix();
        if (suffix == QLatin1String("bin")) {
            if (!d->createAction)
                d->createAction = makeAction(tr("Create FCF"), SLOT(handleActionCreateFCF()));
            actions << d->createAction;
        } else if (suffix == QLatin1String("txt")) {
            if (!d->openAction)
                d->openAction = makeAction(tr("Open FCF"), SLOT(handleActionOpenFCF()));
            actions << d->openAction;
        }
    }
    d->currentItem = item;
    return actions;
}

void ZORV_FileTypeExtensions::refreshForDesignState(bool locked, bool read_only)
{
    if (d->createAction)
        d->createAction->setEnabled(!locked && !read_only);
    if (d->openAction)
        d->openAction->setEnabled(!locked && !read_only);
}

void ZORV_FileTypeExtensions::handleActionCreateFCF()
{
    if (!d->currentItem)
        return;
    PelkFcfGenerator* const window = generator();
    if (IDesign* const design = onlyDesign()) {
        window->setVersion(design->versionMajor(), design->versionMinor());
        window->setAuthor(DesignManager::instance()->currentUserName());
        window->setBinFile(d->currentItem->filePath());
        window->setCINumber(QLatin1String("0"));
        fillTarget(design);
        fillDescription(design);
    }
    showGenerator();
}

void ZORV_FileTypeExtensions::handleActionOpenFCF()
{
    if (!d->currentItem)
        return;
    PelkFcfGenerator* const window = generator();
    if (onlyDesign()) {
        // A window that is open already may list functions, which a load does not remove.
        window->addNew();
        window->setTxtFile(d->currentItem->filePath());
    }
    showGenerator();
}

void ZORV_FileTypeExtensions::handleNewFilesCreated(QStringList created_files)
{
    if (created_files.isEmpty())
        return;
    IDesign* const design = onlyDesign();
    if (!design)
        return;

    QList<DesignFile*> handled;
    const QString node = bitStreamNode(design);
    if (!node.isEmpty()) {
        design->tree()->startProcessingCycle();
        handled = addFiles(design, created_files, node);
        recordTarget(design);
    }

    // While events run the host may close the design, or the user take a file out of it.
    const QPointer<QObject> designGuard(design->objectBase());
    QList<QPointer<DesignFile>> fileGuards;
    for (DesignFile* file : handled)
        fileGuards << file;
    QCoreApplication::processEvents();
    if (!designGuard)
        return;
    // Without a node no cycle was started: ending one would end another's.
    if (!node.isEmpty())
        design->tree()->endProcessingCycle(true);
    QList<DesignFile*> remaining;
    for (const QPointer<DesignFile>& file : fileGuards) {
        if (file)
            remaining << file;
    }
    design->refreshFiles(remaining);
}

QAction* ZORV_FileTypeExtensions::makeAction(const QString& text, const char* slot) const
{
    QAction* const action =
        new QAction(QIcon(QLatin1String(":/icons/radar_icon.ico")), text, nullptr);
    connect(action, SIGNAL(triggered()), this, slot);
    return action;
}

PelkFcfGenerator* ZORV_FileTypeExtensions::generator()
{
    if (!d->generator) {
        d->generator = new PelkFcfGenerator;
        d->generator->setAttribute(Qt::WA_DeleteOnClose, true);
        d->generator->setAttribute(Qt::WA_QuitOnClose, false);
        connect(d->generator, SIGNAL(newFilesCreated(QStringList)),
                SLOT(handleNewFilesCreated(QStringList)), Qt::UniqueConnection);
        centreGenerator();
    }
    return d->generator;
}

void ZORV_FileTypeExtensions::showGenerator()
{
    d->generator->show();
    // One that is open already may be behind the host.
    d->generator->raise();
    d->generator->activateWindow();
}

void ZORV_FileTypeExtensions::centreGenerator()
{
    const QRect screen = Toolkit::availableGeometry(d->generator);
    d->generator->move(screen.center() - d->generator->rect().center());
}

void ZORV_FileTypeExtensions::fillTarget(IDesign* design)
{
    // In this order, and up to the first gap: the module decides which devices there are.
    const QVariant module = design->designProperty(QLatin1String(ModuleProperty));
    if (!hasValue(module))
        return;
    d->generator->setModule(module.toString());

    const QVariant device = design->designProperty(QLatin1String(DeviceProperty));
    if (!hasValue(device))
        return;
    d->generator->setDevice(device.toString());

    const QVariant configNumber = design->designProperty(QLatin1String(ConfigNumberProperty));
    if (hasValue(configNumber))
        d->generator->setConfigNum(configNumber.toInt());
}

void ZORV_FileTypeExtensions::fillDescription(IDesign* design)
{
    const char* const name = "CurrentVersionChanges";
    if (!ObjectManager::propertyExists(design->objectBase(), name))
        return;
    SharedProperty changes = ObjectManager::getSharedProperty(design->objectBase(), name);
    if (changes.isValid())
        d->generator->setDescription(changes.value().toString());
}

QList<DesignFile*> ZORV_FileTypeExtensions::addFiles(IDesign* design, const QStringList& paths,
                                                     const QString& node)
{
    QList<DesignFile*> handled;
    for (const QString& path : paths) {
        DesignFile* file = design->fileAt(path);
        const bool isNew = !file;
        if (isNew) {
            QString error;
            file = design->addFile(path, &error);
            if (!file) {
                logMessage(Logger::Error,
                           tr("Failed to add generated file \"%1\" to design. Error: %2")
                               .arg(path, error));
                continue;
            }
        }
        file->setVersionAssociation(design->versionString(QLatin1String(".")));
        file->setIsGenerated(true);
        file->setCustomNode(node);
        handled << file;
        logMessage(Logger::Info,
                   isNew ? tr("Successfully added generated file \"%1\" to design.").arg(path)
                         : tr("Successfully updated generated file \"%1\" in design.").arg(path));
    }
    return handled;
}

void ZORV_FileTypeExtensions::recordTarget(IDesign* design)
{
    if (!d->generator)
        return;
    const QtilitiesCategory category(QLatin1String("Pelk Radar Signal Processor"));
    design->setDesignProperty(QLatin1String(ModuleProperty), d->generator->getModule(), category);
    design->setDesignProperty(QLatin1String(DeviceProperty), d->generator->getDevice(), category);
    design->setDesignProperty(QLatin1String(ConfigNumberProperty), d->generator->getConfigNum(),
                              category);
}

} // namespace ZORV_Plugin
