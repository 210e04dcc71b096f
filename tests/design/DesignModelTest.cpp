// The actions on files of designs, on designs that record every call, and a model of them.

#include "design/DesignModel.h"
#include "design/ReservedScreen.h"
#include "support/LoadedPlugin.h"
#include "support/MarkingTranslator.h"
#include "support/ModalAnswer.h"
#include "support/ModelRun.h"
#include "support/Offscreen.h"
#include "support/RecordingDesign.h"
#include "support/TestFile.h"

#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCore/IAvailablePropertyProvider.h>
#include <QtilitiesCore/ObjectManager.h>
#include <QtilitiesLogging/Logger.h>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDataStream>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::Core::ObjectManager;
using Qtilities::Core::SharedProperty;
using Qtilities::CoreGui::TreeFileItem;
using Qtilities::CoreGui::TreeNode;

namespace {

const int Designs = 2;

QString userName;

template <class Widget>
Widget* find(const QWidget* window, const char* name)
{
    Widget* const widget = window->findChild<Widget*>(QLatin1String(name));
    if (!widget)
        qFatal("no widget %s", name);
    return widget;
}

QString lineIn(const QWidget* window, const char* name)
{
    return find<QLineEdit>(window, name)->text();
}

QString labelIn(const QWidget* window, const char* name)
{
    return find<QLabel>(window, name)->text();
}

QStringList itemsIn(const QWidget* window, const char* name)
{
    const QComboBox* const box = find<QComboBox>(window, name);
    QStringList items;
    for (int index = 0; index < box->count(); ++index)
        items << box->itemText(index);
    return items;
}

QByteArray preamble(const PageNumbers& page)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << page.totalPages << page.totalBlocks << page.totalSize << page.binPages
           << page.binBlocks << page.binFileSize << page.module << page.device << page.config
           << page.major << page.minor;
    return bytes + QByteArray(20, '\xff') + '\n';
}

QByteArray companion()
{
    return preamble(PageNumbers::ofCompanion()) +
           "Filename: of file.fcf\nCI No: CI of file\nAuthor: Author of file\nDate: 1/2/03\n"
           "Time: 04:05:06\nDescription: First of file\nSecond of file\n---\n"
           "Function name: filter\nFunction author: A\nFunction CI No: 7\n"
           "Function description: of filter\n---\n"
           "Function name: mixer\nFunction author: B\nFunction CI No: 8\n"
           "Function description: of mixer\n---\n----\n";
}

/// On a screen a window manager has a say in the place and the state of a window, and takes its
/// time.
/// The items of a structure that has a node "Bits" for "*.bit" by \p kind's rules.
DesignStructure* newStructure(int kind)
{
    DesignStructure* const structure = new DesignStructure;
    TreeNode* const outer = structure->rootNode()->addNode(QLatin1String("Outer"));
    outer->addNode(QLatin1String("Bits"));
    structure->rootNode()->addNode(QLatin1String("Bins"));
    outer->addNode(QLatin1String("Others"))->addNode(QLatin1String("All"));
    structure->addFileAssociation(QLatin1String("*.bin"), QLatin1String("Bins"));
    structure->addFileAssociation(QLatin1String("*.fcf"), QLatin1String("Outer"));
    structure->setUnassignedFileAssociationsNode(QLatin1String(kind == 4   ? "Nowhere"
                                                               : kind == 5 ? ""
                                                                           : "Others"));
    if (kind == 2 || kind == 3)
        structure->addFileAssociation(QLatin1String("*"), QLatin1String("All"));
    if (kind == 1 || kind == 2)
        structure->addFileAssociation(QLatin1String("*.bit"), QLatin1String("Bits"));
    if (kind == 6)
        structure->addFileAssociation(QLatin1String("*.bit"), QLatin1String("Nowhere"));
    if (kind == 8)
        structure->addFileAssociation(QLatin1String("*.bit"), QString());
    return structure;
}

/// The node for bit-stream files of newStructure(); null for none.
QString nodeOfStructure(int kind)
{
    const char* const nodes[] = {nullptr, "Bits",  "Bits",   "All",  nullptr,
                                 nullptr, nullptr, "Others", nullptr};
    return nodes[kind] ? QString::fromLatin1(nodes[kind]) : QString();
}

} // namespace

// The program's own definition comes before that of the library, for the plug-in too.
QString DesignManager::currentUserName() const { return userName; }

class DesignModelTest : public QObject, public Model {
    Q_OBJECT

    // As the logger's signal has it.
    typedef Qtilities::Logging::Logger Logger;

public:
    explicit DesignModelTest(const QString& folder);

    QList<Kind> kinds() const override;
    QStringList branches() const override;
    int actionsOfShortRun() const override { return 6000; }
    void begin() override;
    void end() override;
    QString perform(const ModelAction& action) override;

protected:
    void customEvent(QEvent* event) override;

private Q_SLOTS:
    void noteMessage(Logger::MessageType type, const QString& text);

private:
    typedef void (DesignModelTest::*Act)(const ModelAction&);
    static QList<Act> acts();

    // What the host does.
    void clickFile(const ModelAction& action);
    void lock(const ModelAction& action);
    void openDesigns(const ModelAction& action);
    void closeDesign(const ModelAction& action);
    void changeVersion(const ModelAction& action);
    void changeProperty(const ModelAction& action);
    void changeDescription(const ModelAction& action);
    void changeStructure(const ModelAction& action);
    void changeDesign(const ModelAction& action);
    void removeFile(const ModelAction& action);
    void endCycle(const ModelAction& action);
    void translate(const ModelAction& action);
    void changeUser(const ModelAction& action);
    void reserveEdge(const ModelAction& action);

    // What the user does.
    void trigger(const ModelAction& action);
    void callSlot(const ModelAction& action);
    void announce(const ModelAction& action);
    void handle(const ModelAction& action);
    void generate(const ModelAction& action);
    void type(const ModelAction& action);
    void choose(const ModelAction& action);
    void upload(const ModelAction& action);
    void clearForm(const ModelAction& action);
    void closeWindow(const ModelAction& action);
    void minimize(const ModelAction& action);
    void move(const ModelAction& action);

    void makeFiles();
    void openDesign(int index);
    QStringList someNewFiles(const ModelAction& action) const;
    HostActs someActs(const ModelAction& action, const QStringList& paths) const;
    void prepareActs(const HostActs& acts);
    void countBranches(const QStringList& paths, const HostActs& acts);
    int onlyDesign() const;
    static QWidget* shownWindow();
    static QStringList windowState(const QWidget* window);
    QStringList state();

    DesignModel m_model;
    LoadedPlugin m_plugin;
    IDesignViewExtensions* m_extensions = nullptr;
    QObject* m_object = nullptr;
    QList<ModelFile> m_files;
    RecordingDesign* m_designs[Designs] = {nullptr, nullptr};
    QScopedPointer<TreeFileItem> m_item;
    QScopedPointer<DesignFile> m_orphan;
    QPointer<QAction> m_create;
    QPointer<QAction> m_open;
    QPointer<QWidget> m_window;
    QPoint m_place;
    bool m_wasMinimized = false;
    QScopedPointer<ModalAnswer> m_boxes;
    MarkingTranslator m_translator;
    HostActs m_acts;
    int m_uploads = 0;
    QStringList m_trace;
};

DesignModelTest::DesignModelTest(const QString& folder)
    : Model(folder), m_plugin(QString::fromUtf8(ZORV_PLUGIN_FILE)),
      m_translator("ZORV_Plugin::ZORV_FileTypeExtensions")
{
    DesignManager::instance()->setSettingsFilePath(folder + QLatin1String("/host.ini"));
    connect(Logger::instance(), SIGNAL(newPriorityMessage(Logger::MessageType, QString)),
            SLOT(noteMessage(Logger::MessageType, QString)));
    makeFiles();
}

void DesignModelTest::makeFiles()
{
    QDir(folder()).mkdir(QLatin1String("of.bin"));
    QDir(folder()).mkdir(QLatin1String("of.txt"));
    const struct {
        const char* name;
        ModelFile::Kind kind;
        int bytes;
    } files[] = {
        {"top.bin", ModelFile::Binary, 5000},       {"wide.bin", ModelFile::Binary, 141505},
        {"build.txt", ModelFile::Companion, 0},     {"notes.txt", ModelFile::Foreign, 0},
        {"gone.txt", ModelFile::Missing, 0},        {"gone.bin", ModelFile::Missing, 0},
        {"of.bin/in.bin", ModelFile::Binary, 2113}, {"of.txt/in.txt", ModelFile::Companion, 0},
        {"top.rev.bin", ModelFile::Binary, 2112},   {"TOP.BIN", ModelFile::Binary, 135169},
        {"bin", ModelFile::Binary, 270336},         {"top.Txt", ModelFile::Foreign, 0},
        {"image.fcf", ModelFile::Foreign, 0}};
    for (const auto& file : files) {
        ModelFile added = {folder() + QLatin1Char('/') + QLatin1String(file.name), file.kind,
                           file.bytes};
        QByteArray bytes = file.kind == ModelFile::Companion
                               ? companion()
                               : preamble(PageNumbers::ofForeignFile()) + "Nothing to read\n";
        if (file.kind == ModelFile::Binary)
            bytes += QByteArray(file.bytes - bytes.size(), 'x');
        if (file.kind != ModelFile::Missing) {
            TestFile::write(added.path, bytes);
            added.bytes = bytes.size();
        }
        m_files << added;
    }
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
    userName = m_model.user = QLatin1String("Ann Author");
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

QWidget* DesignModelTest::shownWindow()
{
    foreach (QWidget* candidate, LoadedPlugin::generatorWindows()) {
        if (candidate->isVisible())
            return candidate;
    }
    return nullptr;
}

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

void DesignModelTest::changeUser(const ModelAction& action)
{
    const char* const names[] = {"Ann Author", "", "A name that is longer than the field of it"};
    userName = m_model.user = QString::fromLatin1(names[action.choice(0, 3)]);
}

void DesignModelTest::reserveEdge(const ModelAction& action)
{
    ReservedScreen::available() = QRect(action.choice(0, 2) * 37, action.choice(1, 3) * 21,
                                        1181 + action.choice(2, 2) * 10, 903);
}

void DesignModelTest::trigger(const ModelAction& action)
{
    const bool creates = action.choice(0, 2) == 0;
    if (action.numbers[1] < 70) {
        // On a file that has the action, as most often.
        ModelAction click = {0, {0, 0, 3}};
        const int binaries[] = {0, 0, 1, 5, 6};
        const int companions[] = {2, 2, 3, 3, 4};
        click.numbers[1] = 65 + (creates ? binaries : companions)[action.choice(1, 5)];
        clickFile(click);
    }
    QAction* const chosen = creates ? m_create : m_open;
    if (!chosen || !chosen->isEnabled())
        return;
    chosen->trigger();
    ModelAction slot = action;
    slot.numbers[2] = -1;
    callSlot(slot);
}

void DesignModelTest::callSlot(const ModelAction& action)
{
    const bool creates = action.choice(0, 2) == 0;
    // That of an action that was triggered is done already.
    if (action.numbers[2] >= 0)
        QMetaObject::invokeMethod(m_object,
                                  creates ? "handleActionCreateFCF" : "handleActionOpenFCF");
    const QString before = m_model.window.author + m_model.window.description;
    if (!m_model.hasItem)
        reach("no item");
    else if (m_model.onlyDesign() >= 0 && m_model.hasWindow) {
        reach(creates ? "window used again by create" : "window used again by open");
        if (m_model.window.minimized)
            reach("minimized window");
        if (!creates && !before.isEmpty())
            reach(m_model.item.kind == ModelFile::Missing     ? "missing file over a filled form"
                  : m_model.item.kind == ModelFile::Companion ? "companion over a filled form"
                                                              : "foreign file over a filled form");
    }
    if (creates)
        m_model.create();
    else
        m_model.open();
    if (creates && m_model.trace.join(QString()).contains(QLatin1String("box")))
        reach("long description");
}

QStringList DesignModelTest::someNewFiles(const ModelAction& action) const
{
    QStringList paths;
    for (int number = action.numbers[0]; number > 0; number /= 3)
        paths << folder() + QLatin1String("/new ") + QString::number(number % 3) +
                     QLatin1String(" of 100%2 %1.fcf");
    return paths;
}

HostActs DesignModelTest::someActs(const ModelAction& action, const QStringList& paths) const
{
    HostActs acts;
    acts.inEvents = static_cast<HostActs::InEvents>(action.choice(1, 12) % 8);
    if (action.choice(1, 12) > 8)
        acts.inEvents = HostActs::Nothing;
    acts.whenAdded = static_cast<HostActs::WhenAdded>(action.choice(2, 3));
    if (!paths.isEmpty())
        acts.path = paths.at(action.numbers[2] / 3 % paths.count());
    return acts;
}

void DesignModelTest::countBranches(const QStringList& paths, const HostActs& acts)
{
    const int design = m_model.onlyDesign();
    if (paths.isEmpty())
        reach("no paths");
    if (design < 0) {
        reach(DesignManager::instance()->designs().isEmpty() ? "no design" : "two designs");
        return;
    }
    const DesignValues& values = m_model.designs.at(design);
    if (!values.hasStructure)
        reach("no structure");
    else if (values.node.isNull())
        reach("no node");
    if (!values.refusal.isNull())
        reach("refused");
    QStringList different = paths;
    if (different.removeDuplicates() > 0)
        reach("the same path twice");
    foreach (const QString& path, paths) {
        if (values.indexOf(path) >= 0)
            reach("file present");
    }
    if (acts.whenAdded == HostActs::ChangesVersion)
        reach("version changes");
    if (!m_model.hasWindow)
        reach("no window");
    if (acts.inEvents == HostActs::DeletesDesign)
        reach("design deleted in events");
    if (acts.inEvents == HostActs::RemovesFile)
        reach("file removed in events");
    if (acts.inEvents == HostActs::ClosesWindow && m_model.hasWindow)
        reach("window closed in events");
    if (acts.inEvents == HostActs::BeginsCycle)
        reach("cycle of the host");
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

void DesignModelTest::announce(const ModelAction& action)
{
    if (!m_window)
        return;
    const QStringList paths = someNewFiles(action);
    const HostActs acts = someActs(action, paths);
    countBranches(paths, acts);
    prepareActs(acts);
    QMetaObject::invokeMethod(m_window, "newFilesCreated", Q_ARG(QStringList, paths));
    m_model.newFiles(paths, acts);
}

void DesignModelTest::handle(const ModelAction& action)
{
    const QStringList paths = someNewFiles(action);
    HostActs acts = someActs(action, paths);
    if (action.choice(2, 4) == 3)
        acts.whenAdded = HostActs::DropsWindow;
    countBranches(paths, acts);
    prepareActs(acts);
    QMetaObject::invokeMethod(m_object, "handleNewFilesCreated", Q_ARG(QStringList, paths));
    m_model.newFiles(paths, acts);
}

void DesignModelTest::generate(const ModelAction&)
{
    WindowModel& form = m_model.window;
    const QFileInfo binary(form.path);
    if (!m_window || form.author.isEmpty() || form.ciNumber.isEmpty() || !binary.exists() ||
        !form.path.endsWith(QLatin1String(".bin")) || form.path.count(QLatin1String(".bin")) > 1)
        return;
    reach("generated");
    QString image = form.path;
    image.replace(QLatin1String(".bin"), QLatin1String(".fcf"));
    QString companion = form.path;
    companion.replace(QLatin1String(".bin"), QLatin1String(".txt"));
    QFile::remove(image);
    prepareActs(HostActs());
    QTest::mouseClick(find<QWidget>(m_window, "GenerateButton"), Qt::LeftButton);
    QFile::remove(image);
    QFile::remove(companion);
    m_model.newFiles(QStringList() << image << companion, HostActs());
    m_model.logGenerated();
    m_model.hasWindow = false;
}

void DesignModelTest::type(const ModelAction& action)
{
    if (!m_window)
        return;
    const QString text = QString::fromLatin1("t%1").arg(action.numbers[1]);
    WindowModel& form = m_model.window;
    switch (action.choice(0, 5)) {
    case 0:
        find<QLineEdit>(m_window, "AuthoEditBox")->setText(form.author = text);
        return;
    case 1:
        find<QLineEdit>(m_window, "CiNumEditBox")->setText(form.ciNumber = text);
        return;
    case 2:
        find<QLineEdit>(m_window, "MajorVerEditBox")->setText(form.major = text);
        return;
    case 3:
        find<QTextEdit>(m_window, "DescriptionMemo")->setPlainText(form.description = text);
        return;
    default:
        find<QLineEdit>(m_window, "EditFunctionName")->setText(form.functionName = text);
    }
}

void DesignModelTest::choose(const ModelAction& action)
{
    if (!m_window)
        return;
    QComboBox* const modules = find<QComboBox>(m_window, "ModuleComboBox");
    QComboBox* const devices = find<QComboBox>(m_window, "FpgaComboBox");
    WindowModel& form = m_model.window;
    switch (action.choice(0, 3)) {
    case 0:
        modules->setCurrentIndex(action.choice(1, 3));
        form.setModule(modules->itemText(action.choice(1, 3)));
        return;
    case 1: {
        const QStringList names = WindowModel::devicesOf(form.module);
        devices->setCurrentIndex(action.choice(1, names.count()));
        form.device = names.at(action.choice(1, names.count()));
        return;
    }
    default:
        find<QComboBox>(m_window, "ConfigComboBox")->setCurrentIndex(action.choice(1, 10));
        form.configIndex = action.choice(1, 10);
    }
}

void DesignModelTest::upload(const ModelAction&)
{
    if (!m_window || !m_model.window.editorEnabled)
        return;
    const QString name = QString::fromLatin1("function %1").arg(++m_uploads);
    find<QLineEdit>(m_window, "EditFunctionName")->setText(name);
    find<QPushButton>(m_window, "UploadFunctionButton")->click();
    m_model.window.functions << name;
    m_model.window.functionName.clear();
}

void DesignModelTest::clearForm(const ModelAction&)
{
    if (!m_window)
        return;
    m_window->findChild<QAction*>(QLatin1String("actionNew"))->trigger();
    m_model.window.clear();
    m_model.window.editorEnabled = true;
}

void DesignModelTest::closeWindow(const ModelAction&)
{
    if (m_window)
        m_window->close();
    m_model.hasWindow = false;
}

void DesignModelTest::minimize(const ModelAction&)
{
    if (!m_window || !isOffscreen())
        return;
    m_window->setWindowState(Qt::WindowMinimized);
    m_model.window.minimized = true;
}

void DesignModelTest::move(const ModelAction& action)
{
    if (!m_window || m_model.window.minimized)
        return;
    m_window->move(action.numbers[0], action.numbers[1]);
    m_place = m_window->pos();
}

QStringList DesignModelTest::windowState(const QWidget* window)
{
    const auto line = [window](const char* name) { return lineIn(window, name); };
    const auto label = [window](const char* name) { return labelIn(window, name); };
    const QStringList functions = itemsIn(window, "FunctionComboBox");
    QStringList lines;
    lines << QLatin1String("path ") + line("txtInputFile")
          << QLatin1String("author ") + line("AuthoEditBox")
          << QLatin1String("version ") + line("MajorVerEditBox") + QLatin1Char('.') +
                 line("MinorVerEditBox")
          << QLatin1String("CI ") + line("CiNumEditBox")
          << QLatin1String("description ") +
                 find<QTextEdit>(window, "DescriptionMemo")->toPlainText()
          << QString::fromLatin1("target %1/%2/%3")
                 .arg(find<QComboBox>(window, "ModuleComboBox")->currentText(),
                      find<QComboBox>(window, "FpgaComboBox")->currentText())
                 .arg(find<QComboBox>(window, "ConfigComboBox")->currentIndex())
          << QLatin1String("devices ") + itemsIn(window, "FpgaComboBox").join(QLatin1String(", "))
          << QString::fromLatin1("functions %1: ").arg(functions.count()) +
                 functions.join(QLatin1String(", "))
          << QLatin1String("function ") + line("EditFunctionName")
          << QLatin1String("status ") + label("StatusBar")
          << QLatin1String("binary ") + label("BinFileSize") + label("BinFilePages") +
                 label("BinFileBlocks")
          << QLatin1String("image ") + label("finalSize") + label("finalPages") +
                 label("finalBlocks");
    lines << QString::fromLatin1("editor %1 modify %2 minimized %3")
                 .arg(find<QWidget>(window, "EditFunctionName")->isEnabled())
                 .arg(find<QWidget>(window, "ModifyFunctionCheckBox")->isEnabled())
                 .arg(window->isMinimized());
    return lines;
}

/// What is wrong with the place and the life of a window that was just opened.
static QString faultOf(const QWidget* window)
{
    const QPoint middle =
        ReservedScreen::available().center() - ReservedScreen::askedFor().center();
    if (window->pos() != middle)
        return QString::fromLatin1(" at %1,%2 in place of %3,%4")
            .arg(window->pos().x())
            .arg(window->pos().y())
            .arg(middle.x())
            .arg(middle.y());
    if (window->parent() || !window->testAttribute(Qt::WA_DeleteOnClose) ||
        window->testAttribute(Qt::WA_QuitOnClose))
        return QLatin1String(" with another life");
    return QString();
}

QStringList DesignModelTest::state()
{
    QStringList lines;
    const QAction* const actions[] = {m_create, m_open};
    for (int index = 0; index < 2; ++index) {
        const QAction* const known = actions[index];
        if (!known)
            continue;
        const bool icon =
            known->icon().pixmap(16).toImage().convertToFormat(QImage::Format_ARGB32) ==
            QImage(QLatin1String(":/icons/radar_icon.ico")).convertToFormat(QImage::Format_ARGB32);
        lines << QString::fromLatin1("%1 \"%2\" enabled %3")
                     .arg(QLatin1String(index == 0 ? "create" : "open"), known->text())
                     .arg(known->isEnabled());
        if (!icon || known->parent())
            lines << QLatin1String("an action with another icon, or a parent");
    }
    for (int index = 0; index < Designs; ++index) {
        const RecordingDesign* const design = m_designs[index];
        if (!design)
            continue;
        lines << QString::fromLatin1("design %1 open %2 cycle %3")
                     .arg(index)
                     .arg(DesignManager::instance()->designs().count(m_designs[index]))
                     .arg(design->tree()->isProcessingCycleActive());
        foreach (const QString& name, design->properties.keys())
            lines << QString::fromLatin1("%1 = %2").arg(name,
                                                        design->properties.value(name).toString());
        lines << design->files();
    }
    QWidget* const shown = shownWindow();
    lines << QString::fromLatin1("window %1 opened %2%3")
                 .arg(shown != nullptr)
                 .arg(shown && shown != m_window)
                 .arg(shown && shown != m_window ? faultOf(shown) : QString());
    // One that was minimized comes back.
    const bool settled =
        shown && shown == m_window && !m_wasMinimized && !shown->isMinimized() && isOffscreen();
    if (settled && shown->pos() != m_place)
        lines << QLatin1String("it has moved");
    m_wasMinimized = shown && shown->isMinimized();
    m_window = shown;
    m_place = shown ? shown->pos() : QPoint();
    if (shown)
        lines << windowState(shown);
    return lines;
}

static Model* makeModel(const QString& folder) { return new DesignModelTest(folder); }

int main(int argc, char** argv)
{
    return runModel(argc, argv, QString::fromUtf8(ZORV_SEQUENCES), &makeModel);
}

#include "DesignModelTest.moc"
