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
#include <QCoreApplication>
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

/// Returns the design that is open, or null for none and for several, where it is not certain which
/// one is meant.
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

/// Returns whether \p property has a value. One that was added but never filled in counts as
/// absent.
bool hasValue(const QVariant& property)
{
    return property.isValid() && !property.toString().isEmpty();
}

/// Returns the node for bit-stream files, or null when the design has none.
const AbstractTreeItem* bitStreamNode(const IDesign* design)
{
    const DesignStructure* const structure = design->structure();
    if (!structure)
        return nullptr;

    const FileAssociation* const association =
        structure->mapFileNameToAssociation(QLatin1String("*.bit"));
    const QString name =
        association ? association->designNode() : structure->unassignedFileAssociationsNode();
    return structure->designNodeWithName(name, true);
}

void centreOnScreen(QWidget* window)
{
    const QRect screen = Toolkit::availableGeometry(window);
    window->move(screen.center() - window->rect().center());
}

/// Selects the target that \p design records: module, device and config number in this order and up
/// to the first gap, since the module decides which devices there are.
void fillTarget(PelkFcfGenerator* window, const IDesign* design)
{
    const QVariant module = design->designProperty(QLatin1String(ModuleProperty));
    if (!hasValue(module))
        return;
    window->setModule(module.toString());

    const QVariant device = design->designProperty(QLatin1String(DeviceProperty));
    if (!hasValue(device))
        return;
    window->setDevice(device.toString());

    const QVariant configNumber = design->designProperty(QLatin1String(ConfigNumberProperty));
    if (hasValue(configNumber))
        window->setConfigNum(configNumber.toInt());
}

void fillDescription(PelkFcfGenerator* window, IDesign* design)
{
    const char* const name = "CurrentVersionChanges";
    if (!ObjectManager::propertyExists(design->objectBase(), name))
        return;

    SharedProperty changes = ObjectManager::getSharedProperty(design->objectBase(), name);
    if (changes.isValid())
        window->setDescription(changes.value().toString());
}

void recordTarget(const PelkFcfGenerator& window, IDesign* design)
{
    const QtilitiesCategory category(QLatin1String("Pelk Radar Signal Processor"));
    design->setDesignProperty(QLatin1String(ModuleProperty), window.getModule(), category);
    design->setDesignProperty(QLatin1String(DeviceProperty), window.getDevice(), category);
    design->setDesignProperty(QLatin1String(ConfigNumberProperty), window.getConfigNum(), category);
}

void logMessage(Logger::MessageType type, const QString& text)
{
    Logger::instance()->logPriorityMessage(QString(), type, text);
}

/// Adds the file at \p path to \p design. Returns null, and logs why, when the design refuses it.
DesignFile* addFile(IDesign* design, const QString& path)
{
    QString error;
    DesignFile* const file = design->addFile(path, &error);
    if (!file)
        logMessage(Logger::Error, ZORV_FileTypeExtensions::tr(
                                      "Failed to add generated file \"%1\" to design. Error: %2")
                                      .arg(path, error));
    return file;
}

/// Adds each of \p paths to \p design or updates it there, as a generated file under the node
/// \p nodeName. Returns the files, without those that the design refused.
QList<QPointer<DesignFile>> addFiles(IDesign* design, const QStringList& paths,
                                     const QString& nodeName)
{
    QList<QPointer<DesignFile>> handled;
    for (const QString& path : paths) {
        DesignFile* const present = design->fileAt(path);
        DesignFile* const file = present ? present : addFile(design, path);
        if (!file)
            continue;

        file->setVersionAssociation(design->versionString(QLatin1String(".")));
        file->setIsGenerated(true);
        file->setCustomNode(nodeName);
        handled << file;

        const QString text = present ? ZORV_FileTypeExtensions::tr(
                                           "Successfully updated generated file \"%1\" in design.")
                                     : ZORV_FileTypeExtensions::tr(
                                           "Successfully added generated file \"%1\" to design.");
        logMessage(Logger::Info, text.arg(path));
    }
    return handled;
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
        fillTarget(window, design);
        fillDescription(window, design);
    }
    window->bringToFront();
}

void ZORV_FileTypeExtensions::handleActionOpenFCF()
{
    if (!d->currentItem)
        return;

    PelkFcfGenerator* const window = generator();
    // The window may be in use already.
    if (onlyDesign())
        window->replaceByTxtFile(d->currentItem->filePath());
    window->bringToFront();
}

void ZORV_FileTypeExtensions::handleNewFilesCreated(QStringList created_files)
{
    if (created_files.isEmpty())
        return;
    IDesign* const design = onlyDesign();
    if (!design)
        return;

    QList<QPointer<DesignFile>> handled;
    const AbstractTreeItem* const node = bitStreamNode(design);
    if (node) {
        const QString nodeName = node->getName();
        design->tree()->startProcessingCycle();
        handled = addFiles(design, created_files, nodeName);
        if (d->generator)
            recordTarget(*d->generator, design);
    }

    // While events run the host may close the design, or the user take a file out of it.
    const QPointer<QObject> designGuard(design->objectBase());
    QCoreApplication::processEvents();
    if (!designGuard)
        return;

    // No cycle was started without a node: ending one would end another's.
    if (node)
        design->tree()->endProcessingCycle(true);

    QList<DesignFile*> remaining;
    for (const QPointer<DesignFile>& file : handled) {
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
        centreOnScreen(d->generator);
    }
    return d->generator;
}

} // namespace ZORV_Plugin
