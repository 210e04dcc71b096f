// What the host does beside the actions.

#include "design/DesignModelTest.h"

#include "design/DesignModelFiles.h"
#include "design/ReservedScreen.h"

#include <OrvanticCore/DesignManager.h>
#include <QtilitiesCore/ObjectManager.h>

#include <QApplication>

using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::SharedProperty;
using Qtilities::CoreGui::TreeFileItem;

namespace {

QString userName;

} // namespace

// The program's own definition comes before that of the library, for the plug-in too.
QString DesignManager::currentUserName() const { return userName; }

void DesignModelTest::clickFile(const ModelAction& action)
{
    const char* const contexts[] = {
        "MainDesignWidget",  "MainDesignWidget", "MainDesignWidget", "mainDesignWidget", "",
        "MainDesignWidget2", "AMainDesignWidget"};
    const QString context = QLatin1String(contexts[action.choice(0, 7)]);
    // Those with an action come more often.
    const ModelFile file = m_files.at(action.numbers[1] < 50 ? action.choice(1, 5)
                                                             : action.choice(1, m_files.count()));
    const int owner = action.choice(2, 10);
    TreeFileItem* item = nullptr;
    if (owner == 0) {
        m_model.contextMenuOfNothing();
    } else if (owner == 1) {
        m_item.reset(new TreeFileItem(file.path));
        item = m_item.data();
        m_model.contextMenu(context, false, -1, file);
    } else if (owner == 2) {
        m_orphan.reset(new DesignFile(file.path));
        item = m_orphan.data();
        m_model.contextMenu(context, true, -1, file);
    } else {
        const int design = owner < 8 ? 0 : 1;
        if (!m_designs[design])
            return;
        item = m_designs[design]->file(file.path);
        if (m_model.designs.at(design).indexOf(file.path) < 0)
            m_model.designs[design].files << qMakePair(file.path, QString::fromLatin1("/-/"));
        m_model.contextMenu(context, true, design, file);
    }
    foreach (QAction* const offered, m_extensions->contextMenuActions(item, context)) {
        const bool creates = offered->text().contains(QLatin1String("Create"));
        QPointer<QAction>& known = creates ? m_create : m_open;
        if (!known)
            known = offered;
        m_trace << QLatin1String(known != offered ? "menu: another action"
                                 : creates        ? "menu: create"
                                                  : "menu: open");
    }
}

void DesignModelTest::lock(const ModelAction& action)
{
    const bool locked = action.choice(0, 3) == 0;
    const bool readOnly = action.choice(1, 3) == 0;
    m_extensions->refreshForDesignState(locked, readOnly);
    m_model.refreshForDesignState(locked, readOnly);
}

void DesignModelTest::openDesigns(const ModelAction& action)
{
    const int wanted[] = {0, 1, 1, 1, 2, 3};
    const int which = wanted[action.choice(0, 6)];
    for (int index = 0; index < Designs; ++index) {
        DesignManager::instance()->removeDesign(m_designs[index]);
        if (!m_designs[index])
            continue;
        m_model.designs[index].open = (which >> index & 1) != 0;
        if (m_model.designs.at(index).open)
            DesignManager::instance()->addDesign(m_designs[index]);
    }
}

void DesignModelTest::closeDesign(const ModelAction& action)
{
    const int index = action.choice(0, Designs);
    if (!m_designs[index]) {
        openDesign(index);
        DesignManager::instance()->addDesign(m_designs[index]);
        m_model.designs[index].open = true;
        return;
    }
    DesignManager::instance()->removeDesign(m_designs[index]);
    delete m_designs[index];
    m_designs[index] = nullptr;
    m_model.closeDesign(index);
}

void DesignModelTest::changeVersion(const ModelAction& action)
{
    const int index = action.choice(0, Designs);
    if (!m_designs[index])
        return;
    const int numbers[] = {0, 3, 14, 159, 2026, -1};
    m_model.designs[index].major = m_designs[index]->major = numbers[action.choice(1, 6)];
    m_model.designs[index].minor = m_designs[index]->minor = numbers[action.choice(2, 6)];
}

void DesignModelTest::changeProperty(const ModelAction& action)
{
    const int index = action.numbers[0] < 75 ? 0 : 1;
    if (!m_designs[index])
        return;
    const char* const names[] = {"ZORV Pelk Module", "ZORV Pelk Device", "ZORV Pelk Config Number"};
    const char* const modules[] = {"GPM", "DFE2", " ", "dfe", "DFE1", ""};
    const char* const devices[] = {"Processing_FPGA_2", "Processing_FPGA_1", "Clock_Master_Device",
                                   "Processing_FPGA",   "processing_fpga_1", ""};
    if (action.numbers[1] >= 80) {
        // All of a target.
        for (int which = 0; which < 3; ++which) {
            const ModelAction one = {action.kind,
                                     {action.numbers[0], which, action.numbers[2] + which}};
            changeProperty(one);
        }
        return;
    }
    const int which = action.choice(1, 3);
    const int value = action.choice(2, 12);
    QVariant set;
    if (which == 0 && value < 6)
        set = QString::fromLatin1(modules[value]);
    else if (which == 1 && value < 6)
        set = QString::fromLatin1(devices[value]);
    else if (which == 2 && value < 6)
        set = QVariant(value * 2);
    else if (which == 2 && value < 9)
        set = QString::number(value);
    const QString name = QLatin1String(names[which]);
    if (set.isValid()) {
        m_model.designs[index].properties[name] = m_designs[index]->properties[name] = set;
    } else {
        m_model.designs[index].properties.remove(name);
        m_designs[index]->properties.remove(name);
    }
}

void DesignModelTest::changeDescription(const ModelAction& action)
{
    const int index = action.numbers[0] < 75 ? 0 : 1;
    if (!m_designs[index])
        return;
    const QVariant texts[] = {QVariant(),
                              QString::fromLatin1("What is new"),
                              QString::fromLatin1("Two\nlines"),
                              QString(1500, QLatin1Char('d')) + QLatin1String("end"),
                              QString::fromLatin1(""),
                              QVariant(4711)};
    DesignValues& values = m_model.designs[index];
    values.changes = texts[action.choice(1, 6)];
    values.changesAreShared = action.choice(2, 4) != 0;
    // Also one without a value.
    if (values.changesAreShared)
        ObjectManager::setSharedProperty(m_designs[index],
                                         SharedProperty("CurrentVersionChanges", values.changes));
    else
        m_designs[index]->setProperty("CurrentVersionChanges", values.changes);
}

void DesignModelTest::changeStructure(const ModelAction& action)
{
    const int index = action.numbers[0] < 75 ? 0 : 1;
    if (!m_designs[index])
        return;
    const int kind = action.choice(1, 9);
    m_designs[index]->ownStructure.reset(kind == 0 ? nullptr : newStructure(kind));
    m_model.designs[index].hasStructure = kind != 0;
    m_model.designs[index].node = nodeOfStructure(kind);
}

void DesignModelTest::changeDesign(const ModelAction& action)
{
    const int index = action.choice(0, Designs);
    if (!m_designs[index])
        return;
    if (action.choice(1, 2) == 0) {
        const char* const types[] = {"Firmware Design", "firmware design", "Firmware Design 2", ""};
        m_model.designs[index].type = m_designs[index]->type =
            QLatin1String(types[action.choice(2, 4)]);
        return;
    }
    const char* const refusals[] = {nullptr, "It is 100%1 full: %2", ""};
    const char* const refusal = refusals[action.choice(2, 3)];
    m_model.designs[index].refusal = m_designs[index]->refusal =
        refusal ? QString::fromLatin1(refusal) : QString();
}

void DesignModelTest::removeFile(const ModelAction& action)
{
    const int index = action.numbers[0] < 75 ? 0 : 1;
    if (!m_designs[index] || m_model.designs.at(index).files.isEmpty())
        return;
    const int file = action.choice(1, m_model.designs.at(index).files.count());
    const QString path = m_model.designs.at(index).files.at(file).first;
    delete m_designs[index]->file(path);
    m_model.removeFile(index, path);
}

void DesignModelTest::endCycle(const ModelAction& action)
{
    const int index = action.numbers[0] < 75 ? 0 : 1;
    if (!m_designs[index] || m_model.designs.at(index).cycles == 0)
        return;
    m_designs[index]->tree()->endProcessingCycle(true);
    m_trace.clear();
    --m_model.designs[index].cycles;
}

void DesignModelTest::translate(const ModelAction& action)
{
    m_model.marks = action.choice(0, 2) == 0;
    QCoreApplication::removeTranslator(&m_translator);
    if (m_model.marks)
        QCoreApplication::installTranslator(&m_translator);
    // The windows get to know it when events run.
    QCoreApplication::processEvents();
}

void DesignModelTest::setUser(const QString& name) { userName = m_model.user = name; }

void DesignModelTest::changeUser(const ModelAction& action)
{
    const char* const names[] = {"Ann Author", "", "A name that is longer than the field of it"};
    setUser(QString::fromLatin1(names[action.choice(0, 3)]));
}

void DesignModelTest::reserveEdge(const ModelAction& action)
{
    ReservedScreen::available() = QRect(action.choice(0, 2) * 37, action.choice(1, 3) * 21,
                                        1181 + action.choice(2, 2) * 10, 903);
}

void DesignModelTest::prepareActs(const HostActs& acts)
{
    m_acts = acts;
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
    const int index = onlyDesign();
    if (index < 0)
        return;
    RecordingDesign* const design = m_designs[index];
    design->onAdded = [this, design, acts](DesignFile*) {
        if (acts.whenAdded == HostActs::ChangesVersion)
            ++design->minor;
        else if (acts.whenAdded == HostActs::DropsStructure)
            design->ownStructure.reset();
        else if (acts.whenAdded == HostActs::DropsWindow)
            delete m_window;
    };
}

void DesignModelTest::customEvent(QEvent*)
{
    const int index = onlyDesign();
    if (index < 0) {
        m_trace << QLatin1String("events");
        return;
    }
    RecordingDesign* const design = m_designs[index];
    design->note(QLatin1String("events"));
    switch (m_acts.inEvents) {
    case HostActs::DeletesDesign:
        DesignManager::instance()->removeDesign(design);
        m_designs[index] = nullptr;
        delete design;
        return;
    case HostActs::RemovesFile:
        if (design->has(m_acts.path))
            delete design->file(m_acts.path);
        return;
    case HostActs::ClosesWindow:
        if (m_window)
            m_window->close();
        return;
    case HostActs::BeginsCycle:
        design->tree()->startProcessingCycle();
        return;
    case HostActs::TakesDesignFromList:
        DesignManager::instance()->removeDesign(design);
        return;
    case HostActs::OpensAnother:
        DesignManager::instance()->addDesign(m_designs[1 - index]);
        return;
    case HostActs::DropsItsStructure:
        design->ownStructure.reset();
        return;
    case HostActs::Nothing:
        return;
    }
}
