// The plug-in as its library has it, and a model of it: start-up, identity, and the one generator
// window of the Tools menu, in any order of what the host and the user do.

#include "plugin/PluginModelTest.h"

#include "plugin/RecordedFramework.h"
#include "support/Offscreen.h"

#include <OrvanticCore/DesignManager.h>

#include <QDirIterator>
#include <QFocusEvent>
#include <QLineEdit>
#include <QtTest>

namespace {

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

static Model* makeModel(const QString& folder) { return new PluginModelTest(folder); }

int main(int argc, char** argv)
{
    return runModel(argc, argv, QString::fromUtf8(ZORV_SEQUENCES), &makeModel);
}

#include "moc_PluginModelTest.cpp"
