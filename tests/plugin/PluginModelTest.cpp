// The plug-in as its library has it, and a model of it: start-up, identity, and the one generator
// window of the Tools menu, in any order of what the host and the user do.

#include "plugin/RecordedFramework.h"
#include "support/LoadedPlugin.h"
#include "support/MarkingTranslator.h"
#include "support/ModelRun.h"
#include "support/Offscreen.h"
#include "support/TestFile.h"

#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCore/IAvailablePropertyProvider.h>

#include <QApplication>
#include <QDirIterator>
#include <QFocusEvent>
#include <QLineEdit>
#include <QtTest>

using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::VersionNumber;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

const char Context[] = "ZORV_Plugin::ZORV_Plugin_Core";

/// What the plug-in's library and its one window look like, as plain values.
struct PluginModel {
    bool loaded;
    /// How often the instance that is loaded was initialized, and how often any was.
    int starts;
    int allStarts;
    bool hasWindow;
    bool visible;
    bool minimized;
    bool maximized;
    bool active;
    /// The widget in the window that has the focus when the window has it.
    QString focus;
    QString author;
    bool marks;
    QStringList trace;

    PluginModel()
        : loaded(true), starts(0), allStarts(0), hasWindow(false), visible(false), minimized(false),
          maximized(false), active(false), marks(false)
    {
    }

    void initialize();
    void showFcfGenerator();
    void deleteInstance();
    QStringList state() const;
    QStringList extensions() const;
};

void PluginModel::initialize()
{
    ++starts;
    ++allStarts;
    const char* const calls[] = {
        "register ZORV_Plugin::ZORV_ArchiveConfigExtension \"ZORV_ArchiveConfigExtension\" "
        "in category \"\", no child",
        "register ZORV_Plugin::ZORV_FileTypeExtensions \"ZORV_FileTypeExtensions\" in category "
        "\"\", no child",
        "register ZORV_Plugin::ZORV_PropertyProvider \"\" in category \"\", no child",
        "context qti.def.Context.Standard",
        "menu Tools",
        "command Tools.FcfGenerator \"Pelk FCF Generator\" shortcut \"\" in contexts 4711, no icon",
        "add Pelk FCF Generator before \"\"",
        "add a separator before \"\"",
        "initialize 1"};
    for (unsigned call = 0; call < sizeof calls / sizeof *calls; ++call)
        trace << QLatin1String(calls[call]);
}

void PluginModel::showFcfGenerator()
{
    if (!visible)
        trace << QLatin1String("show");
    trace << QLatin1String("raise");
    // One that is not in front gets the focus when it comes there.
    if (active && !minimized && focus != QLatin1String("PelkFcfGenerator"))
        trace << QLatin1String("focus for another reason");
    hasWindow = visible = active = true;
    minimized = false;
    focus = QLatin1String("PelkFcfGenerator");
}

void PluginModel::deleteInstance()
{
    loaded = false;
    starts = 0;
}

QStringList PluginModel::state() const
{
    QStringList lines;
    if (loaded) {
        const auto shown = [this](const char* text) {
            return marks ? MarkingTranslator::marked(QLatin1String(Context), QLatin1String(text))
                         : QString::fromLatin1(text);
        };
        lines << QLatin1String("ZORV VKT Plugin, ZORV VKT Plugin, category ZORV, version 2.2.0 for "
                               "2.2.0 (1), ZORV, https://zorv.example/, support@zorv.example")
              << shown("Provides custom design archiving functionality in order to prepare "
                       "configuration packages for the HX Config Management system.")
              << shown("Copyright 2026 ZORV") << shown("Released under the MIT licence.")
              << QLatin1String("casts 1 1 1 0 0 1, itself 1 1, no child 1, one slot 1");
    }
    // One image, 16 by 16, of 32 bits, that is the rest of the file.
    lines << QLatin1String("embedded :/icons/radar_icon.ico 1150 "
                           "00000100010010100000010020006804000016000000");
    if (allStarts > 0)
        lines << extensions();
    lines << QString::fromLatin1("windows %1").arg(hasWindow ? 1 : 0);
    if (!hasWindow)
        return lines;
    lines << QString::fromLatin1("visible %1 minimized %2 maximized %3 child 0 deleted on close 0")
                 .arg(visible)
                 .arg(minimized)
                 .arg(maximized);
    lines << QLatin1String("author ") + author;
    if (visible && !minimized)
        lines << QString::fromLatin1("active %1 focus %2").arg(active).arg(focus);
    return lines;
}

QStringList PluginModel::extensions() const
{
    const auto property = [this](const char* name, const char* type, const char* description) {
        const QString text = QLatin1String(description);
        return QString::fromLatin1(
                   "property %1/\"\"/%2 of OrvanticCore::Design 1 0 0 0 1, no value: ")
                   .arg(QLatin1String(name), QLatin1String(type)) +
               (marks ? MarkingTranslator::marked(
                            QLatin1String("ZORV_Plugin::ZORV_PropertyProvider"), text)
                      : text);
    };
    QStringList lines;
    lines << property("ZORV Pelk Device", "QString",
                      "Specifies the device to use when generating FCF files for this "
                      "design.<br><br>Possible values:<br>For DFE1: Interface_FPGA, "
                      "Processing_FPGA_1, Clock_Master_Device<br>For DFE2: Processing_FPGA<br>For "
                      "GPM: Interface_FPGA, Processing_FPGA_1, Processing_FPGA_2, "
                      "Processing_FPGA_3");
    lines << property("ZORV Pelk Config Number", "int",
                      "Specifies the flash location  to use when generating FCF files for this "
                      "design.<br><br>Possible values: 1-10");
    lines << property("ZORV Pelk Module", "QString",
                      "Specifies the module to use when generating FCF files for this "
                      "design.<br><br>Possible values:<br>DFE1, DFE2, GPM");
    lines << QLatin1String("no class is prohibited 1");
    lines << QLatin1String("casts of the archive extension 1 1 1 0 0 1")
          << QLatin1String("casts of the file extensions 1 1 1 0 0 1")
          << QLatin1String("casts of the provider 1 1 1 0 0 1")
          << QLatin1String("methods in order 1")
          << QLatin1String("default of each other extension of views 1");
    return lines;
}

QStringList embeddedFiles()
{
    QStringList files;
    for (QDirIterator entry(QLatin1String(":/"), QDir::Files, QDirIterator::Subdirectories);
         entry.hasNext();)
        files << entry.next();
    files.sort();
    return files;
}

} // namespace

class PluginModelTest : public QObject, public Model {
    Q_OBJECT

public:
    explicit PluginModelTest(const QString& folder);

    QList<Kind> kinds() const override;
    QStringList branches() const override;
    int actionsOfShortRun() const override { return 1500; }
    void begin() override;
    void end() override;
    QString perform(const ModelAction& action) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void askForInstance(const ModelAction& action);
    void initialize(const ModelAction& action);
    void finalize(const ModelAction& action);
    void choose(const ModelAction& action);
    void closeWindow(const ModelAction& action);
    void minimize(const ModelAction& action);
    void cover(const ModelAction& action);
    void useField(const ModelAction& action);
    void deleteInstance(const ModelAction& action);
    void translate(const ModelAction& action);

    void activateOther();
    bool isActive() const { return m_window && QApplication::activeWindow() == m_window; }
    QWidget* field() const { return m_window->findChild<QWidget*>(QLatin1String("AuthoEditBox")); }
    QStringList state() const;
    QStringList identity() const;
    QStringList extensions() const;

    PluginModel m_model;
    LoadedPlugin m_plugin;
    IPlugin* m_instance = nullptr;
    QPointer<QWidget> m_window;
    QWidget m_other;
    MarkingTranslator m_translator;
    QStringList m_embedded;
};

PluginModelTest::PluginModelTest(const QString& folder)
    : Model(folder), m_plugin(QString::fromUtf8(ZORV_PLUGIN_FILE))
{
    OrvanticCore::DesignManager::instance()->setSettingsFilePath(folder +
                                                                 QLatin1String("/host.ini"));
    const QStringList before = embeddedFiles();
    m_plugin.load();
    m_embedded = embeddedFiles();
    foreach (const QString& file, before)
        m_embedded.removeAll(file);
    m_plugin.end();
}

QList<Model::Kind> PluginModelTest::kinds() const
{
    return QList<Kind>() << Kind{"instance", 2} << Kind{"initialize", 4} << Kind{"finalize", 2}
                         << Kind{"choose", 12} << Kind{"close", 4} << Kind{"minimize", 4}
                         << Kind{"cover", 4} << Kind{"field", 5} << Kind{"delete", 1}
                         << Kind{"translator", 2};
}

QStringList PluginModelTest::branches() const
{
    return QStringList() << QLatin1String("first window") << QLatin1String("hidden window")
                         << QLatin1String("covered window") << QLatin1String("minimized window")
                         << QLatin1String("focus in a field") << QLatin1String("started twice")
                         << QLatin1String("instance deleted");
}

void PluginModelTest::begin()
{
    m_model = PluginModel();
    RecordedFramework::calls().clear();
    m_instance = m_plugin.load();
    qApp->installEventFilter(this);
    m_other.show();
}

void PluginModelTest::end()
{
    qApp->removeEventFilter(this);
    QCoreApplication::removeTranslator(&m_translator);
    m_plugin.end();
    RecordedFramework::reset();
}

bool PluginModelTest::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->inherits("PelkFcfGenerator"))
        return false;
    if (event->type() == QEvent::Show && !event->spontaneous())
        RecordedFramework::calls() << QLatin1String("show");
    if (event->type() == QEvent::ZOrderChange)
        RecordedFramework::calls() << QLatin1String("raise");
    if (event->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(event)->reason() == Qt::OtherFocusReason)
        RecordedFramework::calls() << QLatin1String("focus for another reason");
    return false;
}

QString PluginModelTest::perform(const ModelAction& action)
{
    typedef void (PluginModelTest::*Act)(const ModelAction&);
    const Act acts[] = {&PluginModelTest::askForInstance, &PluginModelTest::initialize,
                        &PluginModelTest::finalize,       &PluginModelTest::choose,
                        &PluginModelTest::closeWindow,    &PluginModelTest::minimize,
                        &PluginModelTest::cover,          &PluginModelTest::useField,
                        &PluginModelTest::deleteInstance, &PluginModelTest::translate};
    RecordedFramework::calls().clear();
    m_model.trace.clear();
    (this->*acts[action.kind])(action);
    const QStringList trace = RecordedFramework::calls();
    return difference(m_model.trace + m_model.state(), trace + state());
}

void PluginModelTest::askForInstance(const ModelAction&)
{
    if (!m_model.loaded) {
        m_instance = m_plugin.load();
        m_model.loaded = true;
    }
    if (m_plugin.load() != m_instance)
        RecordedFramework::calls() << QLatin1String("another instance");
}

void PluginModelTest::initialize(const ModelAction& action)
{
    if (!m_instance || m_model.starts > 1)
        return;
    if (m_model.starts == 1)
        reach("started twice");
    QStringList errors(QLatin1String("of another"));
    const QStringList before = errors;
    const QStringList arguments = action.choice(0, 2) == 0 ? QStringList()
                                                           : QStringList()
                                                                 << QLatin1String("--help")
                                                                 << QLatin1String("top.bin");
    const bool started =
        m_instance->initialize(arguments, action.choice(1, 3) == 0 ? nullptr : &errors);
    RecordedFramework::calls() << QString::fromLatin1("initialize %1").arg(started);
    if (errors != before)
        RecordedFramework::calls() << QLatin1String("errors ") + errors.join(QLatin1String(", "));
    m_model.initialize();
}

void PluginModelTest::finalize(const ModelAction& action)
{
    if (!m_instance)
        return;
    if (action.choice(0, 2) == 0) {
        m_instance->finalize();
        return;
    }
    QStringList errors;
    const bool ready =
        m_instance->initializeDependencies(action.choice(1, 2) == 0 ? nullptr : &errors);
    if (!ready || !errors.isEmpty())
        RecordedFramework::calls() << QLatin1String("dependencies fail");
}

void PluginModelTest::choose(const ModelAction& action)
{
    const bool bySlot = action.choice(0, 4) == 0;
    if (bySlot ? !m_instance : !RecordedFramework::command())
        return;
    const int times = bySlot ? 1 : m_model.starts;
    if (times > 0) {
        reach(!m_model.hasWindow        ? "first window"
              : !m_model.visible        ? "hidden window"
              : m_model.minimized       ? "minimized window"
              : !m_model.active         ? "covered window"
              : m_model.focus.isEmpty() ? "first window"
                                        : "focus in a field");
    }
    if (bySlot)
        QMetaObject::invokeMethod(m_instance->objectBase(), "showFcfGenerator");
    else
        RecordedFramework::command()->trigger();
    for (int time = 0; time < times; ++time)
        m_model.showFcfGenerator();
    foreach (QWidget* window, LoadedPlugin::generatorWindows())
        m_window = window;
    if (times > 0)
        LoadedPlugin::waitUntilActive(m_window);
}

void PluginModelTest::closeWindow(const ModelAction& action)
{
    if (!m_window || !m_model.visible)
        return;
    if (action.choice(0, 3) == 0)
        m_window->hide();
    else if (action.choice(0, 3) == 1 && !m_model.minimized)
        QTest::mouseClick(m_window->findChild<QWidget*>(QLatin1String("btnCancel")),
                          Qt::LeftButton);
    else
        m_window->close();
    m_model.visible = false;
    activateOther();
}

void PluginModelTest::minimize(const ModelAction& action)
{
    if (!m_window || !m_model.visible)
        return;
    m_model.minimized = true;
    // A window manager takes its time with two states at once.
    m_model.maximized = action.choice(0, 2) == 0 && isOffscreen();
    m_window->setWindowState(m_model.maximized ? Qt::WindowMinimized | Qt::WindowMaximized
                                               : Qt::WindowStates(Qt::WindowMinimized));
    activateOther();
}

void PluginModelTest::cover(const ModelAction&)
{
    m_other.raise();
    activateOther();
}

void PluginModelTest::activateOther()
{
    m_other.activateWindow();
    LoadedPlugin::waitUntilActive(&m_other);
    m_model.active = false;
}

void PluginModelTest::useField(const ModelAction& action)
{
    if (!m_window || !m_model.visible || m_model.minimized)
        return;
    m_window->activateWindow();
    LoadedPlugin::waitUntilActive(m_window);
    field()->setFocus(Qt::MouseFocusReason);
    QTest::keyClick(field(), static_cast<char>('a' + action.choice(0, 26)));
    m_model.author = qobject_cast<QLineEdit*>(field())->text();
    m_model.active = true;
    m_model.focus = QLatin1String("AuthoEditBox");
}

void PluginModelTest::deleteInstance(const ModelAction&)
{
    if (!m_instance)
        return;
    // The next instance would make a window of its own.
    if (m_model.hasWindow)
        return;
    reach("instance deleted");
    delete m_instance->objectBase();
    m_instance = nullptr;
    m_model.deleteInstance();
}

void PluginModelTest::translate(const ModelAction& action)
{
    m_model.marks = action.choice(0, 2) == 0;
    QCoreApplication::removeTranslator(&m_translator);
    if (m_model.marks)
        QCoreApplication::installTranslator(&m_translator);
    // The windows get to know it when events run.
    QCoreApplication::processEvents();
}

/// Whether an object's own class has \p methods, in this order, and no others.
static bool hasMethods(const QObject* object, const QStringList& methods)
{
    const QMetaObject* const meta = object->metaObject();
    bool inOrder = meta->methodCount() - meta->methodOffset() == methods.count();
    for (int index = 0; index < methods.count(); ++index)
        inOrder = inOrder && meta->indexOfMethod(methods.at(index).toLatin1().constData()) ==
                                 meta->methodOffset() + index;
    return inOrder && meta->propertyCount() == meta->propertyOffset();
}

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

/// Which names an object is cast by: its class, its interface by both names, the class without its
/// namespace, an interface of another object, and its base.
static QString castsOf(QObject* object, const char* name, const char* interface,
                       const char* identifier, const char* another)
{
    const QByteArray full = QByteArray("ZORV_Plugin::") + name;
    const char* const names[] = {full.constData(), interface, identifier, name, another, "QObject"};
    QString casts;
    for (int index = 0; index < 6; ++index)
        casts += QLatin1String(object->qt_metacast(names[index]) ? " 1" : " 0");
    return casts;
}

/// Whether what the extensions of views do not do is as the interface has it.
static bool addsNothingElse(IDesignViewExtensions* view)
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

static Model* makeModel(const QString& folder) { return new PluginModelTest(folder); }

int main(int argc, char** argv)
{
    return runModel(argc, argv, QString::fromUtf8(ZORV_SEQUENCES), &makeModel);
}

#include "PluginModelTest.moc"
