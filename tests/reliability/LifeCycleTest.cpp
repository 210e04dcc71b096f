#include "generator/PelkFcfGenerator.h"
#include "reliability/Effort.h"
#include "support/ModalAnswer.h"
#include "support/SampleHeaders.h"
#include "support/TestProgram.h"

#include "fcf/FcfWriter.h"

#include <OrvanticCore/DesignManager.h>

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/IPlugin.h>

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPluginLoader>
#include <QPointer>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QtTest>

using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

/// As the event loop does when all functions have returned.
void deleteWhatIsDue() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

/// A generator window as the actions of designs open it: it deletes itself when it is closed.
class Window {
public:
    Window() : m_window(new PelkFcfGenerator)
    {
        m_window->setAttribute(Qt::WA_DeleteOnClose);
        m_window->show();
    }
    ~Window()
    {
        if (m_window)
            m_window->close();
        deleteWhatIsDue();
    }

    PelkFcfGenerator* operator->() const { return m_window; }
    bool isGone() const { return !m_window; }

    template <class Widget>
    Widget* find(const char* name) const
    {
        return m_window->findChild<Widget*>(name);
    }
    void enter(const char* lineEdit, const QString& text) const
    {
        find<QLineEdit>(lineEdit)->setText(text);
    }
    void click(const char* button) const { find<QAbstractButton>(button)->click(); }
    void trigger(const char* action) const { find<QAction>(action)->trigger(); }

private:
    Q_DISABLE_COPY(Window)

    QPointer<PelkFcfGenerator> m_window;
};

QString write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

/// What brings up a box or dialog of the window, with files in the folder.
using Action = void (*)(const Window& window, const QString& folder);

void fillIn(const Window& window, const QString& folder)
{
    window->setBinFile(write(folder + "/top.bin", QByteArray(5000, 'x')));
    window.enter("AuthoEditBox", "a");
    window.enter("CiNumEditBox", "1");
}

void generateWithoutBinary(const Window& window, const QString&) { window.click("GenerateButton"); }
void generateWithoutCiNumber(const Window& window, const QString& folder)
{
    fillIn(window, folder);
    window.enter("CiNumEditBox", "");
    window.click("GenerateButton");
}
void generateAgain(const Window& window, const QString& folder)
{
    fillIn(window, folder);
    write(folder + "/top.fcf", "old");
    window.click("GenerateButton");
}
void generateIntoNothing(const Window& window, const QString& folder)
{
    fillIn(window, folder);
    QDir().mkpath(folder + "/top.txt");
    window.click("GenerateButton");
}
void generateTooMuch(const Window& window, const QString& folder)
{
    fillIn(window, folder);
    window.enter("CiNumEditBox", QString(3000, 'x'));
    window.click("GenerateButton");
}
void uploadWithoutName(const Window& window, const QString&)
{
    window.click("UploadFunctionButton");
}
void uploadTwice(const Window& window, const QString&)
{
    for (int i = 0; i < 2; ++i) {
        window.enter("EditFunctionName", "fft");
        window.click("UploadFunctionButton");
    }
}
void removeAFunction(const Window& window, const QString&)
{
    window.enter("EditFunctionName", "fft");
    window.click("UploadFunctionButton");
    window.click("btnRemove");
}
void describeAtLength(const Window& window, const QString&)
{
    window->setDescription(QString(2000, 'x'));
}
void loadAnotherFile(const Window& window, const QString& folder)
{
    window->setTxtFile(write(folder + "/top.txt", QByteArray(500, 'x')));
}
void loadALongDescription(const Window& window, const QString& folder)
{
    FcfHeader header = sampleHeader();
    header.description = QString(2000, 'x');
    window->setTxtFile(write(folder + "/top.txt", FcfWriter().compose(header)));
}
void chooseABinary(const Window& window, const QString&) { window.click("btnLoad"); }
void chooseACompanion(const Window& window, const QString&) { window.trigger("actionLoad"); }

} // namespace

Q_DECLARE_METATYPE(Action)

/// Windows, boxes and the library come and go in any order, for as long as the host runs.
class LifeCycleTest : public QObject {
    Q_OBJECT

private slots:
    void isClosedWhileADialogIsOpen_data();
    void isClosedWhileADialogIsOpen();
    void isClosedByWhoTakesItsFiles();
    void isLoadedAndUnloadedAThousandTimes();
    void isStartedTwice();
    void keepsItsMemoryOverManyBuilds();
};

void LifeCycleTest::isClosedWhileADialogIsOpen_data()
{
    QTest::addColumn<Action>("action");
    QTest::newRow("no binary") << Action(generateWithoutBinary);
    QTest::newRow("no CI number") << Action(generateWithoutCiNumber);
    QTest::newRow("overwrite the image?") << Action(generateAgain);
    QTest::newRow("the companion cannot be opened") << Action(generateIntoNothing);
    QTest::newRow("the texts are too long") << Action(generateTooMuch);
    QTest::newRow("no function name") << Action(uploadWithoutName);
    QTest::newRow("override the function?") << Action(uploadTwice);
    QTest::newRow("remove the function?") << Action(removeAFunction);
    QTest::newRow("the description is too long") << Action(describeAtLength);
    QTest::newRow("the file is not compatible") << Action(loadAnotherFile);
    QTest::newRow("the loaded description is too long") << Action(loadALongDescription);
    QTest::newRow("which binary?") << Action(chooseABinary);
    QTest::newRow("which companion?") << Action(chooseACompanion);
}

void LifeCycleTest::isClosedWhileADialogIsOpen()
{
    QFETCH(Action, action);
    const QTemporaryDir folder;
    Window window;
    ModalAnswer dialogs;
    // As a host does that ends its windows: the user cannot, as the dialog is modal.
    dialogs.leaveTo([&window](QWidget* dialog) {
        window->close();
        deleteWhatIsDue();
        auto* const box = qobject_cast<QMessageBox*>(dialog);
        QAbstractButton* const yes = box ? box->button(QMessageBox::Yes) : nullptr;
        if (yes)
            yes->click();
        else
            dialog->close();
    });
    action(window, folder.path());
    QVERIFY(dialogs.allGiven());
    deleteWhatIsDue();
    QVERIFY(window.isGone());
}

void LifeCycleTest::isClosedByWhoTakesItsFiles()
{
    const QTemporaryDir folder;
    Window window;
    fillIn(window, folder.path());
    connect(window.operator->(), &PelkFcfGenerator::newFilesCreated, this, [&window] {
        window->close();
        deleteWhatIsDue();
    });
    window.click("GenerateButton");
    deleteWhatIsDue();
    QVERIFY(window.isGone());
    QVERIFY(QFile::exists(folder.filePath("top.fcf")));
}

void LifeCycleTest::isLoadedAndUnloadedAThousandTimes()
{
    for (int round = 0; round < 1000; ++round) {
        QPluginLoader loader(ZORV_PLUGIN_FILE);
        // Without this hint's default, which keeps a library for the rest of the process.
        loader.setLoadHints(QLibrary::LoadHints());
        QObject* const core = loader.instance();
        QVERIFY2(core, qPrintable(loader.errorString()));
        QCOMPARE(qobject_cast<IPlugin*>(core)->pluginName(), QString("ZORV VKT Plugin"));
        QVERIFY(QFile::exists(":/icons/radar_icon.ico"));
        QVERIFY2(loader.unload(), qPrintable(loader.errorString()));
        QVERIFY(!QFile::exists(":/icons/radar_icon.ico"));
    }
}

void LifeCycleTest::isStartedTwice()
{
    const QTemporaryDir settings;
    OrvanticCore::DesignManager::instance()->setSettingsFilePath(settings.filePath("host.ini"));
    QPluginLoader loader(ZORV_PLUGIN_FILE);
    auto* const plugin = qobject_cast<IPlugin*>(loader.instance());
    QVERIFY(plugin);
    for (int start = 0; start < 2; ++start) {
        QVERIFY(plugin->initialize(QStringList(), nullptr));
        QVERIFY(plugin->initializeDependencies(nullptr));
    }
    QtilitiesApplication::actionManager()->command("Tools.FcfGenerator")->action()->trigger();
    QWidgetList windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->inherits("PelkFcfGenerator"))
            windows << window;
    }
    QCOMPARE(windows.size(), 1);
    plugin->finalize();
    plugin->finalize();
    qDeleteAll(windows);
    qDeleteAll(QtilitiesApplication::objectManager()->registeredInterfaces("QObject"));
    delete plugin->objectBase();
    delete QtilitiesApplication::actionManager();
}

/// PELK_ROUNDS sets another number of rounds.
void LifeCycleTest::keepsItsMemoryOverManyBuilds()
{
    const QTemporaryDir folder;
    const int rounds = qMax(200, qEnvironmentVariableIntValue("PELK_ROUNDS"));
    const int warmUp = 100;
    qint64 before = 0;
    for (int round = 0; round < rounds; ++round) {
        if (round == warmUp)
            before = Effort::residentBytes();
        Window window;
        fillIn(window, folder.path());
        window.enter("EditFunctionName", "fft");
        window.click("UploadFunctionButton");
        QFile::remove(folder.filePath("top.fcf"));
        window.click("GenerateButton");
        QCOMPARE(window.find<QLabel>("StatusBar")->text(),
                 QString("<font color='green'>Successfully generated output files.</font>"));
        window->setTxtFile(folder.filePath("top.txt"));
        QCOMPARE(window.find<QComboBox>("FunctionComboBox")->count(), 2);
        QCoreApplication::processEvents();
    }
    const qint64 grown = Effort::residentBytes() - before;
    qInfo("%d rounds: %lld KiB more", rounds - warmUp, grown / 1024);
#ifndef __SANITIZE_ADDRESS__
    // What the heap loses to fragments does not depend on the number of rounds.
    QVERIFY2(grown < 4 * 1024 * 1024, qPrintable(QString::number(grown)));
#endif
}

ZORV_TEST_MAIN(LifeCycleTest)
{
    QtilitiesApplication application(argc, argv);
    LifeCycleTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "LifeCycleTest.moc"
