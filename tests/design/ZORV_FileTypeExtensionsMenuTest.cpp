#include "design/DesignFixture.h"

#include "generator/PelkFcfGenerator.h"

#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include <QLineEdit>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::CoreGui::TreeFileItem;
using ZORV_Plugin::ZORV_FileTypeExtensions;

class ZORV_FileTypeExtensionsMenuTest : public QObject {
    Q_OBJECT

private slots:
    void isFoundByAllItsNames();
    void offersActionsByFileContextAndDesign_data();
    void offersActionsByFileContextAndDesign();
    void offersNothingForOtherItems();
    void sharesOneActionOfEachKind();
    void leavesItsActionsToTheirMenus();
    void enablesItsActionsByTheLockStates_data();
    void enablesItsActionsByTheLockStates();
    void acceptsLockStatesBeforeThereAreActions();
    void doesNothingWithoutACurrentItem();
    void doesNothingOnceTheCurrentItemIsGone();
    void takesTheItemOfAMenuWithoutActions();
    void leavesTheOtherOperationsToTheirDefaults();
};

void ZORV_FileTypeExtensionsMenuTest::isFoundByAllItsNames()
{
    ZORV_FileTypeExtensions extensions;
    QCOMPARE(extensions.objectName(), QString("ZORV_FileTypeExtensions"));
    QCOMPARE(extensions.qt_metacast("ZORV_Plugin::ZORV_FileTypeExtensions"),
             static_cast<void*>(&extensions));
    void* const asInterface = static_cast<IDesignViewExtensions*>(&extensions);
    QCOMPARE(extensions.qt_metacast("IDesignViewExtensions"), asInterface);
    QCOMPARE(extensions.qt_metacast("com.Core.Interfaces.IDesignViewExtensions/1.0"), asInterface);
    QCOMPARE(extensions.qt_metacast("IPlugin"), nullptr);

    QtilitiesCoreApplication::objectManager()->registerObject(&extensions);
    QCOMPARE(QtilitiesCoreApplication::objectManager()->registeredInterfaces(
                 "com.Core.Interfaces.IDesignViewExtensions/1.0"),
             QList<QObject*>() << &extensions);
}

void ZORV_FileTypeExtensionsMenuTest::offersActionsByFileContextAndDesign_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("context");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("action");

    const QString view = "MainDesignWidget";
    const QString firmware = "Firmware Design";
    QTest::newRow("a binary") << "top.bin" << view << firmware << "Create FCF";
    QTest::newRow("a companion") << "top.txt" << view << firmware << "Open FCF";
    QTest::newRow("a binary with a revision") << "top.rev.bin" << view << firmware << "";
    QTest::newRow("a binary in capitals") << "TOP.BIN" << view << firmware << "";
    QTest::newRow("a text with a revision") << "top.rev.txt" << view << firmware << "";
    QTest::newRow("a text in capitals") << "top.TXT" << view << firmware << "";
    QTest::newRow("an image") << "top.fcf" << view << firmware << "";
    QTest::newRow("no suffix") << "bin" << view << firmware << "";
    QTest::newRow("nothing but a suffix") << ".bin" << view << firmware << "Create FCF";
    QTest::newRow("another view") << "top.bin"
                                  << "OtherWidget" << firmware << "";
    QTest::newRow("no view") << "top.txt"
                             << "" << firmware << "";
    QTest::newRow("another type") << "top.bin" << view << "Software Design"
                                  << "";
    QTest::newRow("another spelling of the type") << "top.bin" << view << "firmware design"
                                                  << "";
}

void ZORV_FileTypeExtensionsMenuTest::offersActionsByFileContextAndDesign()
{
    QFETCH(QString, name);
    QFETCH(QString, context);
    QFETCH(QString, type);
    QFETCH(QString, action);
    Design design("/some/design", type);
    ZORV_FileTypeExtensions extensions;
    const QList<QAction*> actions =
        extensions.contextMenuActions(design.restoreFile(name), context);
    QStringList texts;
    for (const QAction* offered : actions)
        texts << offered->text();
    qDeleteAll(actions);
    QCOMPARE(texts, action.isEmpty() ? QStringList() : QStringList(action));
}

void ZORV_FileTypeExtensionsMenuTest::offersNothingForOtherItems()
{
    ZORV_FileTypeExtensions extensions;
    QVERIFY(extensions.contextMenuActions(nullptr, "MainDesignWidget").isEmpty());
    TreeFileItem plain("/some/top.bin");
    QVERIFY(extensions.contextMenuActions(&plain, "MainDesignWidget").isEmpty());
    DesignFile stray("/some/top.bin");
    QVERIFY(extensions.contextMenuActions(&stray, "MainDesignWidget").isEmpty());
}

void ZORV_FileTypeExtensionsMenuTest::sharesOneActionOfEachKind()
{
    DesignFixture fixture;
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    QAction* const open = fixture.actionFor(fixture.addFile("top.txt"));
    if (!create || !open)
        QFAIL("an action is missing");
    QVERIFY(create != open);
    QCOMPARE(fixture.actionFor(fixture.addFile("other.bin")), create);
    QCOMPARE(fixture.actionFor(fixture.addFile("other.txt")), open);
    QVERIFY(!create->parent());
    QVERIFY(!open->parent());
}

void ZORV_FileTypeExtensionsMenuTest::leavesItsActionsToTheirMenus()
{
    Design design("/some/design", "Firmware Design");
    QPointer<QAction> create;
    {
        ZORV_FileTypeExtensions extensions;
        create = extensions.contextMenuActions(design.restoreFile("top.bin"), "MainDesignWidget")
                     .first();
    }
    QVERIFY(create);
    create->trigger();
    QVERIFY(!DesignFixture::window());
    delete create;
}

void ZORV_FileTypeExtensionsMenuTest::enablesItsActionsByTheLockStates_data()
{
    QTest::addColumn<bool>("locked");
    QTest::addColumn<bool>("readOnly");
    QTest::addColumn<bool>("enabled");

    QTest::newRow("free") << false << false << true;
    QTest::newRow("locked") << true << false << false;
    QTest::newRow("read-only") << false << true << false;
    QTest::newRow("both") << true << true << false;
}

void ZORV_FileTypeExtensionsMenuTest::enablesItsActionsByTheLockStates()
{
    QFETCH(bool, locked);
    QFETCH(bool, readOnly);
    DesignFixture fixture;
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    QAction* const open = fixture.actionFor(fixture.addFile("top.txt"));
    fixture.extensions()->refreshForDesignState(true, true);
    QVERIFY(!create->isEnabled() && !open->isEnabled());
    fixture.extensions()->refreshForDesignState(locked, readOnly);
    QTEST(create->isEnabled(), "enabled");
    QTEST(open->isEnabled(), "enabled");
}

void ZORV_FileTypeExtensionsMenuTest::acceptsLockStatesBeforeThereAreActions()
{
    DesignFixture fixture;
    fixture.extensions()->refreshForDesignState(true, false);
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    fixture.extensions()->refreshForDesignState(true, false);
    QVERIFY(!create->isEnabled());
}

void ZORV_FileTypeExtensionsMenuTest::doesNothingWithoutACurrentItem()
{
    DesignFixture fixture;
    fixture.extensions()->handleActionCreateFCF();
    fixture.extensions()->handleActionOpenFCF();
    QVERIFY(!fixture.window());
}

void ZORV_FileTypeExtensionsMenuTest::doesNothingOnceTheCurrentItemIsGone()
{
    DesignFixture fixture;
    DesignFile* const file = fixture.addFile("top.bin");
    QAction* const create = fixture.actionFor(file);
    fixture.design()->removeFile(file);
    create->trigger();
    QVERIFY(!fixture.window());
}

void ZORV_FileTypeExtensionsMenuTest::takesTheItemOfAMenuWithoutActions()
{
    DesignFixture fixture;
    QAction* const create = fixture.actionFor(fixture.addFile("top.bin"));
    DesignFile* const other = fixture.addFile("other.rev.bin");
    QVERIFY(!fixture.actionFor(other));
    create->trigger();
    QVERIFY(fixture.window());
    QCOMPARE(fixture.window()->findChild<QLineEdit*>("txtInputFile")->text(), other->filePath());

    QVERIFY(fixture.closeWindow());
    fixture.extensions()->contextMenuActions(nullptr, "MainDesignWidget");
    create->trigger();
    QVERIFY(!fixture.window());
}

void ZORV_FileTypeExtensionsMenuTest::leavesTheOtherOperationsToTheirDefaults()
{
    DesignFixture fixture;
    IDesignViewExtensions* const view = fixture.extensions();
    DesignFile* const file = fixture.addFile("top.bin");
    const QString context = "MainDesignWidget";
    QVERIFY(view->contextMenus(file, context).isEmpty());
    QVERIFY(view->toolBarActions(file, context).isEmpty());
    QVERIFY(view->toolBarMenus(file, context).isEmpty());
    QVERIFY(view->designContextMenuActions(fixture.design(), context).isEmpty());
    QVERIFY(view->designContextMenus(fixture.design(), context).isEmpty());
    QVERIFY(view->designToolBarActions(fixture.design(), context).isEmpty());
    QVERIFY(view->designToolBarMenus(fixture.design(), context).isEmpty());
    QVERIFY(!view->customItemRoleData(file, Qt::DisplayRole).isValid());
    QVERIFY(!view->customDesignFileNodeRoleData(nullptr, Qt::DisplayRole).isValid());
    QVERIFY(view->designTypeIcon("Firmware Design").isNull());
    QVERIFY(!view->defaultFilterState("filter"));
    QVERIFY(view->filterDescription("filter").isNull());
    QVERIFY(view->designItemFilters().isEmpty());
    QVERIFY(!view->filterLinkedItem(file, "filter"));
    QVERIFY(view->designFileNodeFilters().isEmpty());
    QVERIFY(!view->filterDesignFileNode(nullptr, "filter"));
}

QTEST_MAIN(ZORV_FileTypeExtensionsMenuTest)
#include "ZORV_FileTypeExtensionsMenuTest.moc"
