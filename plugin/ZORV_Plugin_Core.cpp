#include "plugin/ZORV_Plugin_Core.h"

#include "archive/ZORV_ArchiveConfigExtension.h"
#include "design/ZORV_FileTypeExtensions.h"
#include "design/ZORV_PropertyProvider.h"
#include "generator/PelkFcfGenerator.h"

#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QAction>

using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::VersionInformation;
using Qtilities::Core::VersionNumber;
using Qtilities::CoreGui::ActionContainer;
using Qtilities::CoreGui::Command;
using Qtilities::CoreGui::QtilitiesApplication;

namespace ZORV_Plugin {

struct ZORV_Plugin_CoreData {
    ZORV_ArchiveConfigExtension* archiveExtension;
    ZORV_FileTypeExtensions* fileTypeExtensions;
    PelkFcfGenerator* generatorWindow;
    ZORV_PropertyProvider* propertyProvider;

    ZORV_Plugin_CoreData()
        : archiveExtension(nullptr), fileTypeExtensions(nullptr), generatorWindow(nullptr),
          propertyProvider(nullptr)
    {
    }
};

ZORV_Plugin_Core::ZORV_Plugin_Core(QObject* parent) : QObject(parent), d(new ZORV_Plugin_CoreData)
{
    setObjectName(ZORV_Plugin_Core::pluginName());
}

ZORV_Plugin_Core::~ZORV_Plugin_Core() { delete d; }

bool ZORV_Plugin_Core::initialize(const QStringList& arguments, QStringList* error_strings)
{
    Q_UNUSED(arguments)
    Q_UNUSED(error_strings)

    registerExtensions();
    addGeneratorToToolsMenu();
    return true;
}

void ZORV_Plugin_Core::registerExtensions()
{
    // The host asks extensions in the order of their registration.
    d->archiveExtension = new ZORV_ArchiveConfigExtension;
    QtilitiesCoreApplication::objectManager()->registerObject(d->archiveExtension);
    d->fileTypeExtensions = new ZORV_FileTypeExtensions;
    QtilitiesCoreApplication::objectManager()->registerObject(d->fileTypeExtensions);
    d->propertyProvider = new ZORV_PropertyProvider;
    QtilitiesCoreApplication::objectManager()->registerObject(d->propertyProvider);
}

void ZORV_Plugin_Core::addGeneratorToToolsMenu()
{
    QList<int> contexts;
    contexts << QtilitiesCoreApplication::contextManager()->contextID(
        QLatin1String("qti.def.Context.Standard"));

    bool existed = false;
    ActionContainer* const tools =
        QtilitiesApplication::actionManager()->createMenu(QLatin1String("Tools"), existed);
    Command* const command = QtilitiesApplication::actionManager()->registerActionPlaceHolder(
        QLatin1String("Tools.FcfGenerator"), QLatin1String("Pelk FCF Generator"), QKeySequence(),
        contexts);
    connect(command->action(), SIGNAL(triggered()), SLOT(showFcfGenerator()));
    tools->addAction(command);
    tools->addSeparator();
}

bool ZORV_Plugin_Core::initializeDependencies(QStringList* error_strings)
{
    Q_UNUSED(error_strings)
    return true;
}

void ZORV_Plugin_Core::finalize() {}

QString ZORV_Plugin_Core::pluginName() const { return QLatin1String("ZORV VKT Plugin"); }

QtilitiesCategory ZORV_Plugin_Core::pluginCategory() const
{
    return QtilitiesCategory(QLatin1String("ZORV"));
}

VersionInformation ZORV_Plugin_Core::pluginVersionInformation() const
{
    VersionInformation information(2, 2, 0);
    information.addSupportedVersion(VersionNumber(2, 2, 0));
    return information;
}

QString ZORV_Plugin_Core::pluginPublisher() const { return QLatin1String("ZORV"); }

QString ZORV_Plugin_Core::pluginPublisherWebsite() const
{
    return QLatin1String("https://zorv.example/");
}

QString ZORV_Plugin_Core::pluginPublisherContact() const
{
    return QLatin1String("support@zorv.example");
}

QString ZORV_Plugin_Core::pluginDescription() const
{
    return tr("Provides custom design archiving functionality in order to prepare configuration "
              "packages for the HX Config Management system.");
}

QString ZORV_Plugin_Core::pluginCopyright() const { return tr("Copyright 2026 ZORV"); }

QString ZORV_Plugin_Core::pluginLicense() const { return tr("Released under the MIT licence."); }

void ZORV_Plugin_Core::showFcfGenerator()
{
    if (!d->generatorWindow)
        d->generatorWindow = new PelkFcfGenerator;
    d->generatorWindow->bringToFront();
    d->generatorWindow->setFocus(Qt::OtherFocusReason);
}

} // namespace ZORV_Plugin

ZORV_EXPORT_PLUGIN(ZORV_Plugin, ZORV_Plugin::ZORV_Plugin_Core)
