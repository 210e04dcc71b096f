// The actions on files of designs, on designs that record every call, and a model of them.

#include "design/DesignModelTest.h"

#include "design/DesignModelFiles.h"
#include "design/ReservedScreen.h"
#include "support/Offscreen.h"

#include <OrvanticCore/DesignManager.h>

#include <QtTest>

using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::TreeFileItem;

DesignModelTest::DesignModelTest(const QString& folder)
    : Model(folder), m_plugin(QString::fromUtf8(ZORV_PLUGIN_FILE)),
      m_translator("ZORV_Plugin::ZORV_FileTypeExtensions")
{
    DesignManager::instance()->setSettingsFilePath(folder + QLatin1String("/host.ini"));
    connect(Logger::instance(), SIGNAL(newPriorityMessage(Logger::MessageType, QString)),
            SLOT(noteMessage(Logger::MessageType, QString)));
    m_files = makeModelFiles(folder);
}

QList<Model::Kind> DesignModelTest::kinds() const
{
    return QList<Kind>() << Kind{"click", 10} << Kind{"lock", 2} << Kind{"designs", 3}
                         << Kind{"close-design", 2} << Kind{"version", 3} << Kind{"property", 8}
                         << Kind{"description", 6} << Kind{"structure", 3} << Kind{"design", 4}
                         << Kind{"remove-file", 2} << Kind{"end-cycle", 2} << Kind{"translator", 2}
                         << Kind{"user", 1} << Kind{"screen", 1} << Kind{"trigger", 20}
                         << Kind{"slot", 4} << Kind{"announce", 14} << Kind{"handle", 4}
                         << Kind{"generate", 8} << Kind{"type", 6} << Kind{"choose", 4}
                         << Kind{"upload", 2} << Kind{"clear", 1} << Kind{"close", 2}
                         << Kind{"minimize", 4} << Kind{"move", 3};
}

QList<DesignModelTest::Act> DesignModelTest::acts()
{
    typedef DesignModelTest Test;
    return QList<Act>() << &Test::clickFile << &Test::lock << &Test::openDesigns
                        << &Test::closeDesign << &Test::changeVersion << &Test::changeProperty
                        << &Test::changeDescription << &Test::changeStructure << &Test::changeDesign
                        << &Test::removeFile << &Test::endCycle << &Test::translate
                        << &Test::changeUser << &Test::reserveEdge << &Test::trigger
                        << &Test::callSlot << &Test::announce << &Test::handle << &Test::generate
                        << &Test::type << &Test::choose << &Test::upload << &Test::clearForm
                        << &Test::closeWindow << &Test::minimize << &Test::move;
}

QStringList DesignModelTest::branches() const
{
    QStringList branches;
    if (isOffscreen())
        branches << QLatin1String("minimized window");
    return branches << QLatin1String("no design") << QLatin1String("two designs")
                    << QLatin1String("no item") << QLatin1String("no structure")
                    << QLatin1String("no node") << QLatin1String("no paths")
                    << QLatin1String("refused") << QLatin1String("file present")
                    << QLatin1String("the same path twice") << QLatin1String("no window")
                    << QLatin1String("design deleted in events")
                    << QLatin1String("file removed in events")
                    << QLatin1String("window closed in events")
                    << QLatin1String("cycle of the host") << QLatin1String("version changes")
                    << QLatin1String("window used again by create")
                    << QLatin1String("window used again by open")
                    << QLatin1String("companion over a filled form")
                    << QLatin1String("foreign file over a filled form")
                    << QLatin1String("missing file over a filled form")
                    << QLatin1String("generated") << QLatin1String("long description");
}

void DesignModelTest::begin()
{
    m_model = DesignModel();
    m_trace.clear();
    m_acts = HostActs();
    m_plugin.start();
    m_extensions = LoadedPlugin::pooled<IDesignViewExtensions>();
    m_object = dynamic_cast<QObject*>(m_extensions);
    m_boxes.reset(new ModalAnswer);
    setUser(QLatin1String("Ann Author"));
    for (int index = 0; index < Designs; ++index) {
        m_model.designs << DesignValues();
        openDesign(index);
    }
    DesignManager::instance()->addDesign(m_designs[0]);
    m_model.designs[0].open = true;
    m_item.reset(new TreeFileItem(m_files.first().path));
    m_orphan.reset(new DesignFile(m_files.first().path));
}

void DesignModelTest::end()
{
    QCoreApplication::removeTranslator(&m_translator);
    delete m_create;
    delete m_open;
    m_plugin.end();
    for (int index = 0; index < Designs; ++index) {
        DesignManager::instance()->removeDesign(m_designs[index]);
        delete m_designs[index];
        m_designs[index] = nullptr;
    }
    QCoreApplication::removePostedEvents(this);
}

void DesignModelTest::openDesign(int index)
{
    m_designs[index] = new RecordingDesign(folder(), &m_trace);
    DesignValues& values = m_model.designs[index];
    values = DesignValues();
    values.type = m_designs[index]->type = QLatin1String("Firmware Design");
    values.major = m_designs[index]->major = 2 + index;
    values.minor = m_designs[index]->minor = 7 + index;
    m_designs[index]->ownStructure.reset(newStructure(1));
    values.hasStructure = true;
    values.node = nodeOfStructure(1);
}

QString DesignModelTest::perform(const ModelAction& action)
{
    m_trace.clear();
    m_model.trace.clear();
    m_model.opened = false;
    m_boxes->clear();
    m_boxes->inspect([this](QWidget* box) {
        const QWidget* const behind = LoadedPlugin::generatorWindows().value(0);
        m_trace << QLatin1String("box ") + box->property("text").toString() << windowState(behind);
    });
    ReservedScreen::askedFor() = QRect();
    (this->*acts().at(action.kind))(action);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::removePostedEvents(this);
    if (!m_boxes->texts().isEmpty() && m_boxes->texts().count() != 1)
        m_trace << QLatin1String("more than one box");
    const QStringList seen = m_trace;
    return difference(m_model.trace + m_model.state(), seen + state());
}

void DesignModelTest::noteMessage(Logger::MessageType type, const QString& text)
{
    // Why the window could not load is its own concern.
    if (type != Logger::Info && text.contains(QLatin1String("Pelk FCF Generator: ")))
        return;
    const QString line = QString::fromLatin1("%1 %2").arg(int(type)).arg(text);
    if (onlyDesign() >= 0)
        m_designs[onlyDesign()]->note(line);
    else
        m_trace << line;
}

int DesignModelTest::onlyDesign() const
{
    const QList<OrvanticCore::IDesign*> open = DesignManager::instance()->designs();
    for (int index = 0; open.count() == 1 && index < Designs; ++index) {
        if (open.first() == m_designs[index])
            return index;
    }
    return -1;
}

static Model* makeModel(const QString& folder) { return new DesignModelTest(folder); }

int main(int argc, char** argv)
{
    return runModel(argc, argv, QString::fromUtf8(ZORV_SEQUENCES), &makeModel);
}

#include "moc_DesignModelTest.cpp"
