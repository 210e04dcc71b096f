#include "support/TestProgram.h"

#include <OrvanticCore/DesignArchiveOutputParserDialog.h>
#include <OrvanticCore/IDesign.h>
#include <OrvanticCore/IDesignArchiveExtension.h>
#include <OrvanticCore/IDesignViewExtensions.h>

#include <QtilitiesCore/IAvailablePropertyProvider.h>
#include <QtilitiesCore/IContextManager.h>
#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCoreGui/ActionContainer.h>
#include <QtilitiesCoreGui/Command.h>
#include <QtilitiesCoreGui/IActionManager.h>
#include <QtilitiesCoreGui/TreeFileItem.h>
#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QtTest>

#include <cstring>

using OrvanticCore::DesignArchiveOutputParserDialog;
using OrvanticCore::IDesign;
using OrvanticCore::Interfaces::IDesignArchiveExtension;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using OrvanticCore::Interfaces::ILinkedExtension;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::Core::Interfaces::IContextManager;
using Qtilities::Core::Interfaces::IObjectBase;
using Qtilities::Core::Interfaces::IObjectManager;
using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::CoreGui::Interfaces::IActionManager;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

/// The place of a virtual operation in its class's table, counted in entries. A pointer to a
/// virtual member begins with the entry's offset in bytes, plus one.
template <typename Operation>
int placeOf(Operation operation)
{
    std::intptr_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset % 2 == 1 ? static_cast<int>((offset - 1) / std::intptr_t(sizeof(void*))) : -1;
}

template <typename... Operations>
QList<int> placesOf(Operations... operations)
{
    return {placeOf(operations)...};
}

QList<int> from(int first, int count)
{
    QList<int> places;
    for (int place = first; place < first + count; ++place)
        places << place;
    return places;
}

// Those of QObject: metaObject(), qt_metacast(), qt_metacall(), the destructor's two, event(),
// eventFilter(), timerEvent(), childEvent(), customEvent(), connectNotify(), disconnectNotify().
constexpr int OfObjects = 12;

} // namespace

/// A host or a plug-in built elsewhere calls the operations by their place, not by their name.
class InterfaceTablesTest : public QObject {
    Q_OBJECT

private slots:
    void objectsHaveTheirBase();
    void plugins();
    void propertyProviders();
    void viewExtensions();
    void archiveExtensionsBeginAsLinkedExtensions();
    void archiveExtensionsGoOnWithTheirOwn();
    void archiveExtensionsHaveTheFlagsOfThePackage();
    void archiveDialogs();
    void designs();
    void managers();
    void menus();
    void files();
};

void InterfaceTablesTest::objectsHaveTheirBase()
{
    // A destructor takes two entries.
    QCOMPARE(
        placesOf(static_cast<QObject* (IObjectBase::*)()>(&IObjectBase::objectBase),
                 static_cast<const QObject* (IObjectBase::*)() const>(&IObjectBase::objectBase)),
        from(2, 2));
}

void InterfaceTablesTest::plugins()
{
    QCOMPARE(placesOf(&IPlugin::initialize, &IPlugin::initializeDependencies, &IPlugin::finalize,
                      &IPlugin::pluginName, &IPlugin::pluginCategory,
                      &IPlugin::pluginVersionInformation, &IPlugin::pluginPublisher,
                      &IPlugin::pluginPublisherWebsite, &IPlugin::pluginPublisherContact,
                      &IPlugin::pluginDescription, &IPlugin::pluginCopyright,
                      &IPlugin::pluginLicense),
             from(4, 12));
}

void InterfaceTablesTest::propertyProviders()
{
    QCOMPARE(placesOf(&IAvailablePropertyProvider::availableProperties,
                      &IAvailablePropertyProvider::prohibitedCustomPropertiesClasses),
             from(4, 2));
}

void InterfaceTablesTest::viewExtensions()
{
    QCOMPARE(
        placesOf(
            &IDesignViewExtensions::contextMenuActions, &IDesignViewExtensions::contextMenus,
            &IDesignViewExtensions::toolBarActions, &IDesignViewExtensions::toolBarMenus,
            &IDesignViewExtensions::designContextMenuActions,
            &IDesignViewExtensions::designContextMenus,
            &IDesignViewExtensions::designToolBarActions,
            &IDesignViewExtensions::designToolBarMenus,
            &IDesignViewExtensions::refreshForDesignState,
            &IDesignViewExtensions::customItemRoleData,
            &IDesignViewExtensions::customDesignFileNodeRoleData,
            &IDesignViewExtensions::designTypeIcon, &IDesignViewExtensions::defaultFilterState,
            &IDesignViewExtensions::filterDescription, &IDesignViewExtensions::designItemFilters,
            &IDesignViewExtensions::filterLinkedItem, &IDesignViewExtensions::designFileNodeFilters,
            &IDesignViewExtensions::filterDesignFileNode),
        from(2, 18));
}

void InterfaceTablesTest::archiveExtensionsBeginAsLinkedExtensions()
{
    QCOMPARE(placesOf(&ILinkedExtension::designStructureIDs,
                      &ILinkedExtension::isDesignStructureIDsInversed,
                      &ILinkedExtension::designStructureOriginNames,
                      &ILinkedExtension::isDesignStructureOriginNamesInversed,
                      &ILinkedExtension::designTypeNames,
                      &ILinkedExtension::isDesignTypeNamesInversed),
             from(2, 6));
}

void InterfaceTablesTest::archiveExtensionsGoOnWithTheirOwn()
{
    // The tenth entry is the protected signal destinationPathChanged().
    QCOMPARE(
        placesOf(&IDesignArchiveExtension::extensionWidget, &IDesignArchiveExtension::archiveType),
        from(8, 2));
    QCOMPARE(placesOf(&IDesignArchiveExtension::destinationPathOnActivation,
                      &IDesignArchiveExtension::handleDestinationPathChanged,
                      &IDesignArchiveExtension::setArchiveDialogWidget,
                      &IDesignArchiveExtension::updateArchiveDialogWidget,
                      &IDesignArchiveExtension::archiveDesignItems,
                      &IDesignArchiveExtension::archiveIncludeInstaller),
             from(11, 6));
}

void InterfaceTablesTest::archiveExtensionsHaveTheFlagsOfThePackage()
{
    QCOMPARE(int(IDesignArchiveExtension::SourceFiles), 0x01);
    QCOMPARE(int(IDesignArchiveExtension::GeneratedFiles), 0x02);
    QCOMPARE(int(IDesignArchiveExtension::ExternalFiles), 0x04);
    QCOMPARE(int(IDesignArchiveExtension::DesignFolders), 0x08);
    QCOMPARE(int(IDesignArchiveExtension::DesignDescription), 0x10);
}

void InterfaceTablesTest::archiveDialogs()
{
    // How many entries a QDialog has is up to Qt.
    const int first = placeOf(&DesignArchiveOutputParserDialog::currentExtension);
    QVERIFY(first > OfObjects);
    QCOMPARE(placesOf(&DesignArchiveOutputParserDialog::currentExtension,
                      &DesignArchiveOutputParserDialog::design,
                      &DesignArchiveOutputParserDialog::setAppendVersionCheckboxVisible,
                      &DesignArchiveOutputParserDialog::setDestinationPathReadOnly,
                      &DesignArchiveOutputParserDialog::setIncludedItemsGroupboxVisible),
             from(first, 5));
}

void InterfaceTablesTest::designs()
{
    QCOMPARE(placesOf(&IDesign::objectBase, &IDesign::typeName, &IDesign::versionMajor,
                      &IDesign::versionMinor, &IDesign::versionString, &IDesign::designProperty,
                      &IDesign::setDesignProperty, &IDesign::workingFolderPath, &IDesign::structure,
                      &IDesign::tree, &IDesign::fileAt, &IDesign::addFile, &IDesign::refreshFiles),
             from(2, 13));
}

void InterfaceTablesTest::managers()
{
    QCOMPARE(placesOf(&IObjectManager::registerObject, &IObjectManager::removeObject,
                      &IObjectManager::registeredInterfaces),
             from(OfObjects, 3));
    QCOMPARE(placesOf(&IContextManager::contextID), from(2, 1));
    QCOMPARE(placesOf(&IActionManager::createMenu, &IActionManager::menu,
                      &IActionManager::registerActionPlaceHolder, &IActionManager::command),
             from(OfObjects, 4));
}

void InterfaceTablesTest::menus()
{
    QCOMPARE(placesOf(&ActionContainer::menu, &ActionContainer::addAction,
                      &ActionContainer::addSeparator),
             from(OfObjects, 3));
    QCOMPARE(placesOf(&Command::action, &Command::text), from(OfObjects, 2));
}

void InterfaceTablesTest::files()
{
    QCOMPARE(placesOf(&TreeFileItem::filePath, &TreeFileItem::exists), from(OfObjects + 2, 2));
}

ZORV_TEST(InterfaceTablesTest)
#include "InterfaceTablesTest.moc"
