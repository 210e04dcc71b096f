#include "support/ModalAnswer.h"
#include "toolkit/Host.h"
#include "toolkit/Tests.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>
#include <OrvanticCore/DesignStructure.h>
#include <OrvanticCore/IDesignViewExtensions.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QAction>
#include <QComboBox>
#include <QFileInfo>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignManager;
using OrvanticCore::DesignStructure;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::Core::QtilitiesCategory;

class DesignActionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void offersAnActionByTheCompleteSuffix_data();
    void offersAnActionByTheCompleteSuffix();
    void followsTheLocksOfTheDesign();
    void createsFilesInTheDesign();
    void opensACompanion();

private:
    QAction* actionFor(const QString& name) const;
    QWidget* trigger(const QString& name) const;

    QScopedPointer<WorkFolder> m_folder;
    QScopedPointer<Design> m_design;
    IDesignViewExtensions* m_extensions;
};

void DesignActionsTest::init()
{
    // That of the Tools menu is another one.
    foreach (QWidget* window, Host::generatorWindows())
        window->close();
    m_extensions = Host::pooled<IDesignViewExtensions>();
    QVERIFY(m_extensions);
    m_folder.reset(new WorkFolder);
    m_design.reset(new Design(m_folder->path(), QLatin1String("Firmware Design")));
    m_design->setVersion(2, 7);
    DesignStructure* const structure = new DesignStructure;
    structure->rootNode()->addNode(QLatin1String("Bit-stream Files"));
    structure->addFileAssociation(QLatin1String("*.bit"), QLatin1String("Bit-stream Files"));
    m_design->setStructure(structure);
    DesignManager::instance()->addDesign(m_design.data());
    Host::instance()->takeMessages();
}

void DesignActionsTest::cleanup()
{
    foreach (QWidget* window, Host::generatorWindows())
        window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_design.reset();
    m_extensions->refreshForDesignState(false, false);
}

QAction* DesignActionsTest::actionFor(const QString& name) const
{
    DesignFile* const file = m_design->restoreFile(name);
    const QList<QAction*> actions =
        m_extensions->contextMenuActions(file, QLatin1String("MainDesignWidget"));
    return actions.count() == 1 ? actions.first() : nullptr;
}

QWidget* DesignActionsTest::trigger(const QString& name) const
{
    QAction* const action = actionFor(name);
    if (!action)
        return nullptr;
    action->trigger();
    return Host::generatorWindows().count() == 1 ? Host::generatorWindows().first() : nullptr;
}

void DesignActionsTest::offersAnActionByTheCompleteSuffix_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::newRow("binary") << QString::fromLatin1("top.bin") << QString::fromLatin1("Create FCF");
    QTest::newRow("companion") << QString::fromLatin1("top.txt") << QString::fromLatin1("Open FCF");
    QTest::newRow("two suffixes") << QString::fromLatin1("top.rev.bin") << QString();
    QTest::newRow("capital letters") << QString::fromLatin1("TOP.BIN") << QString();
}

void DesignActionsTest::offersAnActionByTheCompleteSuffix()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    const QAction* const action = actionFor(name);
    QCOMPARE(action ? action->text() : QString(), text);
    if (action)
        QVERIFY(!action->icon().isNull());
}

void DesignActionsTest::followsTheLocksOfTheDesign()
{
    const QAction* const action = actionFor(QLatin1String("top.bin"));
    QVERIFY(action->isEnabled());
    m_extensions->refreshForDesignState(true, false);
    QVERIFY(!action->isEnabled());
    m_extensions->refreshForDesignState(false, true);
    QVERIFY(!action->isEnabled());
    m_extensions->refreshForDesignState(false, false);
    QVERIFY(action->isEnabled());
}

void DesignActionsTest::createsFilesInTheDesign()
{
    m_folder->write(QLatin1String("top.bin"), QByteArray(5000, 'x'));
    const QtilitiesCategory category;
    m_design->setDesignProperty(QLatin1String("ZORV Pelk Module"), QLatin1String("GPM"), category);
    m_design->setDesignProperty(QLatin1String("ZORV Pelk Device"),
                                QLatin1String("Processing_FPGA_2"), category);
    m_design->setDesignProperty(QLatin1String("ZORV Pelk Config Number"), 3, category);
    m_design->setVersionChanges(QLatin1String("Clock corrected"));

    QPointer<QWidget> window = trigger(QLatin1String("top.bin"));
    QVERIFY(window);
    QCOMPARE(textOf(window, "txtInputFile"), m_folder->path(QLatin1String("top.bin")));
    QCOMPARE(textOf(window, "AuthoEditBox"), DesignManager::instance()->currentUserName().left(20));
    QCOMPARE(textOf(window, "CiNumEditBox"), QString::fromLatin1("0"));
    QCOMPARE(textOf(window, "MajorVerEditBox"), QString::fromLatin1("2"));
    QCOMPARE(textOf(window, "MinorVerEditBox"), QString::fromLatin1("7"));
    QCOMPARE(textOf(window, "DescriptionMemo"), QString::fromLatin1("Clock corrected"));
    QCOMPARE(find<QComboBox>(window, "FpgaComboBox")->currentText(),
             QString::fromLatin1("Processing_FPGA_2"));
    choose(window, "ConfigComboBox", QLatin1String("4"));
    press(window, "GenerateButton");

    foreach (const QString& name, QStringList()
                                      << QLatin1String("top.fcf") << QLatin1String("top.txt")) {
        const DesignFile* const file = m_design->fileAt(name);
        QVERIFY2(file, qPrintable(name));
        QVERIFY(file->isGenerated());
        QCOMPARE(file->versionAssociation(), QString::fromLatin1("2.7"));
        QCOMPARE(file->customNode(), QString::fromLatin1("Bit-stream Files"));
    }
    QCOMPARE(m_design->designProperty(QLatin1String("ZORV Pelk Config Number")), QVariant(4));
    const QString messages = Host::instance()->takeMessages().join(QLatin1String("\n"));
    QVERIFY2(messages.contains(QLatin1String("Successfully added generated file \"")),
             qPrintable(messages));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!window);
}

void DesignActionsTest::opensACompanion()
{
    m_folder->write(QLatin1String("top.bin"), QByteArray(5000, 'x'));
    QWidget* window = trigger(QLatin1String("top.bin"));
    QVERIFY(window);
    enter(window, "AuthoEditBox", QLatin1String("R. Vos"));
    press(window, "GenerateButton");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    window = trigger(QLatin1String("top.txt"));
    QVERIFY(window);
    QCOMPARE(textOf(window, "AuthoEditBox"), QString::fromLatin1("R. Vos"));
    QCOMPARE(textOf(window, "txtInputFile"), m_folder->path(QLatin1String("top.bin")));
}

QObject* newDesignActionsTest() { return new DesignActionsTest; }

#include "DesignActionsTest.moc"
