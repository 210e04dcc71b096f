// What can be seen of the plug-in, its extensions and its window.

#include "plugin/PluginModelTest.h"

#include "plugin/RecordedFramework.h"
#include "support/TestFile.h"

#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCore/IAvailablePropertyProvider.h>

#include <QLineEdit>

using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::VersionNumber;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

/// Whether an object's own class has \p methods, in this order, and no others.
bool hasMethods(const QObject* object, const QStringList& methods)
{
    const QMetaObject* const meta = object->metaObject();
    bool inOrder = meta->methodCount() - meta->methodOffset() == methods.count();
    for (int index = 0; index < methods.count(); ++index)
        inOrder = inOrder && meta->indexOfMethod(methods.at(index).toLatin1().constData()) ==
                                 meta->methodOffset() + index;
    return inOrder && meta->propertyCount() == meta->propertyOffset();
}

/// Which names an object is cast by: its class, its interface by both names, the class without its
/// namespace, an interface of another object, and its base.
QString castsOf(QObject* object, const char* name, const char* interface, const char* identifier,
                const char* another)
{
    const QByteArray full = QByteArray("ZORV_Plugin::") + name;
    const char* const names[] = {full.constData(), interface, identifier, name, another, "QObject"};
    QString casts;
    for (int index = 0; index < 6; ++index)
        casts += QLatin1String(object->qt_metacast(names[index]) ? " 1" : " 0");
    return casts;
}

/// Whether what the extensions of views do not do is as the interface has it.
bool addsNothingElse(IDesignViewExtensions* view)
{
    const QString text = QLatin1String("MainDesignWidget");
    return view->contextMenus(nullptr, text).isEmpty() &&
           view->toolBarActions(nullptr, text).isEmpty() &&
           view->toolBarMenus(nullptr, text).isEmpty() &&
           view->designContextMenuActions(nullptr, text).isEmpty() &&
           view->designContextMenus(nullptr, text).isEmpty() &&
           view->designToolBarActions(nullptr, text).isEmpty() &&
           view->designToolBarMenus(nullptr, text).isEmpty() &&
           !view->customItemRoleData(nullptr, Qt::DisplayRole).isValid() &&
           !view->customDesignFileNodeRoleData(nullptr, Qt::DisplayRole).isValid() &&
           view->designTypeIcon(text).isNull() && !view->defaultFilterState(text) &&
           view->filterDescription(text).isNull() && view->designItemFilters().isEmpty() &&
           !view->filterLinkedItem(nullptr, text) && view->designFileNodeFilters().isEmpty() &&
           !view->filterDesignFileNode(nullptr, text);
}

} // namespace

QStringList PluginModelTest::identity() const
{
    const Qtilities::Core::VersionInformation version = m_instance->pluginVersionInformation();
    const VersionNumber host = version.supportedVersions().value(0, VersionNumber(0));
    const auto text = [](const VersionNumber& number) {
        return QString::fromLatin1("%1.%2.%3")
            .arg(number.versionMajor())
            .arg(number.versionMinor())
            .arg(number.versionRevision());
    };
    QObject* const object = m_instance->objectBase();
    const auto casts = [object](const char* name) { return object->qt_metacast(name) ? 1 : 0; };
    QStringList lines;
    lines << QString::fromLatin1("%1, %2, category %3, version %4 for %5 (%6), %7, %8, %9")
                 .arg(m_instance->pluginName(), object->objectName(),
                      m_instance->pluginCategory().toStringList().join(QLatin1String("|")),
                      text(version.version()), text(host))
                 .arg(version.supportedVersions().count())
                 .arg(m_instance->pluginPublisher(), m_instance->pluginPublisherWebsite(),
                      m_instance->pluginPublisherContact());
    lines << m_instance->pluginDescription() << m_instance->pluginCopyright()
          << m_instance->pluginLicense();
    lines << QString::fromLatin1("casts %1 %2 %3 %4 %5 %6, itself %7 %8, no child %9, one slot ")
                     .arg(casts("ZORV_Plugin::ZORV_Plugin_Core"))
                     .arg(casts("IPlugin"))
                     .arg(casts("com.Qtilities.ExtensionSystem.IPlugin/1.0"))
                     .arg(casts("ZORV_Plugin_Core"))
                     .arg(casts("QWidget"))
                     .arg(casts("QObject"))
                     .arg(static_cast<IPlugin*>(object->qt_metacast("IPlugin")) == m_instance)
                     .arg(static_cast<const IPlugin*>(m_instance)->objectBase() == object)
                     .arg(!object->parent()) +
                 QString::number(
                     hasMethods(object, QStringList(QLatin1String("showFcfGenerator()"))));
    return lines;
}

QStringList PluginModelTest::extensions() const
{
    const QList<QObject*> pool = RecordedFramework::pool();
    QObject* const archive = pool.at(pool.count() - 3);
    QObject* const view = pool.at(pool.count() - 2);
    QObject* const object = pool.last();
    const IAvailablePropertyProvider* const provider =
        qobject_cast<IAvailablePropertyProvider*>(object);
    QStringList lines;
    foreach (const PropertySpecification& property, provider->availableProperties())
        lines << QString::fromLatin1("property %1/%2/%3 of %4 %5 %6 %7 %8 %9")
                         .arg(property.d_displayed_name,
                              property.d_property_name.isNull()
                                  ? QString::fromLatin1("null")
                                  : QLatin1Char('"') + property.d_property_name + QLatin1Char('"'),
                              QLatin1String(int(property.d_data_type) == QMetaType::Int ? "int"
                                            : int(property.d_data_type) == QMetaType::QString
                                                ? "QString"
                                                : "another"),
                              property.d_class_name)
                         .arg(property.d_removable)
                         .arg(property.d_read_only)
                         .arg(property.d_add_during_construction)
                         .arg(property.d_internal)
                         .arg(property.d_is_exportable) +
                     QLatin1String(property.d_default_value.isValid() ? ", a value: "
                                                                      : ", no value: ") +
                     property.d_description;
    lines << QString::fromLatin1("no class is prohibited %1")
                 .arg(provider->prohibitedCustomPropertiesClasses().isEmpty());
    lines << QLatin1String("casts of the archive extension") +
                 castsOf(archive, "ZORV_ArchiveConfigExtension", "IDesignArchiveExtension",
                         "com.Core.Interfaces.IDesignArchiveExtension/1.0", "IPlugin")
          << QLatin1String("casts of the file extensions") +
                 castsOf(view, "ZORV_FileTypeExtensions", "IDesignViewExtensions",
                         "com.Core.Interfaces.IDesignViewExtensions/1.0", "IPlugin")
          << QLatin1String("casts of the provider") +
                 castsOf(object, "ZORV_PropertyProvider", "IAvailablePropertyProvider",
                         "com.Qtilities.Core.IAvailablePropertyProvider/1.0", "IPlugin");
    const bool inOrder =
        hasMethods(archive, QStringList() << QLatin1String("destinationPathChanged(QString)")
                                          << QLatin1String("handleDestinationPathChanged(QString)")
                                          << QLatin1String("updatePackageName()")
                                          << QLatin1String("handlePackageTypeChange()")) &&
        hasMethods(view, QStringList() << QLatin1String("handleActionCreateFCF()")
                                       << QLatin1String("handleActionOpenFCF()")
                                       << QLatin1String("handleNewFilesCreated(QStringList)")) &&
        hasMethods(object, QStringList());
    lines << QString::fromLatin1("methods in order %1").arg(inOrder);
    const bool itself = const_cast<IAvailablePropertyProvider*>(provider)->objectBase() == object &&
                        provider->objectBase() == object;
    lines << QString::fromLatin1("default of each other extension of views %1")
                 .arg(itself && addsNothingElse(qobject_cast<IDesignViewExtensions*>(view)));
    return lines;
}

QStringList PluginModelTest::state() const
{
    QStringList lines;
    if (m_instance)
        lines << identity();
    foreach (const QString& file, m_embedded) {
        const QByteArray bytes = TestFile::read(file);
        lines << QString::fromLatin1("embedded %1 %2 %3")
                     .arg(file)
                     .arg(bytes.size())
                     .arg(QString::fromLatin1(bytes.left(22).toHex()));
    }
    if (!RecordedFramework::pool().isEmpty())
        lines << extensions();
    const int windows = LoadedPlugin::generatorWindows().count();
    lines << QString::fromLatin1("windows %1").arg(windows);
    if (!m_window)
        return lines;
    lines << QString::fromLatin1(
                 "visible %1 minimized %2 maximized %3 child %4 deleted on close %5")
                 .arg(m_window->isVisible())
                 .arg(m_window->isMinimized())
                 .arg(m_window->isMaximized())
                 .arg(m_window->parent() ? 1 : 0)
                 .arg(m_window->testAttribute(Qt::WA_DeleteOnClose));
    lines << QLatin1String("author ") + qobject_cast<QLineEdit*>(field())->text();
    if (m_model.visible && !m_model.minimized) {
        const QWidget* const focus = m_window->focusWidget();
        lines << QString::fromLatin1("active %1 focus %2")
                     .arg(isActive())
                     .arg(focus ? focus->objectName() : QString());
    }
    return lines;
}
