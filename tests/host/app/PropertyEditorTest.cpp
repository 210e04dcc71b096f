#include "host/app/HostFixture.h"

#include <OrvanticCore/Design.h>

#include <QtilitiesCore/IAvailablePropertyProvider.h>
#include <QtilitiesCoreGui/QtilitiesApplication.h>

#include <QComboBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTextBrowser>
#include <QtTest>

using OrvanticCore::Design;
using Qtilities::Core::PropertySpecification;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::Core::Interfaces::IAvailablePropertyProvider;
using Qtilities::CoreGui::QtilitiesApplication;

namespace {

/// Announces one property for designs, and some that an editor of designs must not offer.
class Provider : public QObject, public IAvailablePropertyProvider {
    Q_OBJECT
    Q_INTERFACES(Qtilities::Core::Interfaces::IAvailablePropertyProvider)

public:
    Provider() { QtilitiesApplication::objectManager()->registerObject(this); }

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    QList<PropertySpecification> availableProperties() const override
    {
        PropertySpecification shown;
        shown.d_displayed_name = "Reviewer";
        shown.d_description = "Who has <b>reviewed</b> the design.";
        shown.d_data_type = QVariant::String;
        shown.d_default_value = "nobody";
        shown.d_class_name = "OrvanticCore::Design";
        PropertySpecification twice = shown;
        PropertySpecification internal = shown;
        internal.d_displayed_name = "Internal";
        internal.d_internal = true;
        PropertySpecification foreign = shown;
        foreign.d_displayed_name = "Foreign";
        foreign.d_class_name = "OrvanticCore::Project";
        return {shown, twice, internal, foreign};
    }
};

QStringList offered(const HostFixture& host)
{
    QMenu* const menu = host.child<QMenu>("AddPropertyMenu");
    emit menu->aboutToShow();
    QStringList names;
    for (const QAction* action : menu->actions())
        names << (action->isEnabled() ? "" : "!") + action->text();
    return names;
}

/// Chooses a property from the menu; the editor adds it once events run.
void choose(const HostFixture& host, const QString& name)
{
    QVERIFY(offered(host).contains(name));
    for (QAction* action : host.child<QMenu>("AddPropertyMenu")->actions()) {
        if (action->text() == name)
            action->trigger();
    }
}

QModelIndex cell(const HostFixture& host, int row, int column)
{
    return host.child<QTreeView>("PropertyView")->model()->index(row, column);
}

/// Goes to the value in \p row, types \p text into its editor and confirms it.
void enterValue(const HostFixture& host, int row, const QString& text)
{
    auto* const view = host.child<QTreeView>("PropertyView");
    host.activate();
    view->setFocus();
    view->setCurrentIndex(cell(host, row, 1));
    QTest::keyClick(view, Qt::Key_F2);
    QWidget* const editor = QApplication::focusWidget();
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty())
        QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
}

} // namespace

class PropertyEditorTest : public QObject {
    Q_OBJECT

private slots:
    void showsThePropertiesOfTheCurrentDesign();
    void offersWhatProvidersAnnounce();
    void explainsTheCurrentProperty();
    void addsAPropertyFromTheMenuByKeys();
    void addsNothingOnceAnotherDesignIsCurrent();
    void addsNothingToADesignThatIsClosedMeanwhile();
    void editsValuesOfTheirTypes();
    void takesAnEmptyTextForNoValue();
    void keepsAPropertyWithoutValueUntilOneFits();
    void removesAProperty();
    void leavesALockedDesignAsItIs();
    void savesValuesWithTheDesign();
};

void PropertyEditorTest::showsThePropertiesOfTheCurrentDesign()
{
    HostFixture host;
    host.openDesign("radar");
    QCOMPARE(host.child<QTreeView>("PropertyView")->model()->rowCount(), 3);
    QCOMPARE(cell(host, 1, 0).data().toString(), QString("ZORV Pelk Device"));
    QCOMPARE(cell(host, 1, 1).data().toString(), QString("Processing_FPGA_2"));

    host.writeFile("plain/design.json", R"({"format": 1, "type": "Firmware Design",
        "version": {"major": 1, "minor": 0}})");
    host.window()->openDesign(host.path("plain"));
    QCOMPARE(host.child<QTreeView>("PropertyView")->model()->rowCount(), 0);
    host.view()->setCurrentIndex(host.item("top.bin"));
    QCOMPARE(host.child<QTreeView>("PropertyView")->model()->rowCount(), 3);
}

void PropertyEditorTest::offersWhatProvidersAnnounce()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->removeDesignProperty("ZORV Pelk Device");
    QCOMPARE(offered(host), QStringList() << "ZORV Pelk Device"
                                          << "!ZORV Pelk Config Number"
                                          << "!ZORV Pelk Module");
    const Provider provider;
    QCOMPARE(offered(host).last(), QString("Reviewer"));
    QCOMPARE(offered(host).count(), 4);
}

void PropertyEditorTest::explainsTheCurrentProperty()
{
    HostFixture host;
    host.openDesign("radar");
    const auto* const help = host.child<QTextBrowser>("PropertyHelp");
    QCOMPARE(help->toPlainText(), QString());
    host.child<QTreeView>("PropertyView")->setCurrentIndex(cell(host, 2, 0));
    QCOMPARE(help->toPlainText(), QString("Specifies the flash location to use when generating FCF "
                                          "files for this design.\n\nPossible values: 1-10"));
}

void PropertyEditorTest::addsAPropertyFromTheMenuByKeys()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->removeDesignProperty("ZORV Pelk Config Number");
    QString help;
    host.activate();
    // The button's menu has an event loop of its own.
    QTimer::singleShot(0, host.window(), [&] {
        QMenu* const menu = host.child<QMenu>("AddPropertyMenu");
        QTest::keyClick(menu, Qt::Key_Down);
        if (menu->activeAction() && menu->activeAction()->text() != "ZORV Pelk Config Number")
            QTest::keyClick(menu, Qt::Key_Down);
        help = host.child<QTextBrowser>("PropertyHelp")->toPlainText();
        QTest::keyClick(menu, Qt::Key_Return);
    });
    QTest::keyClick(host.child<QPushButton>("AddPropertyButton"), Qt::Key_Space);
    QVERIFY2(help.startsWith("Specifies the flash location"), qPrintable(help));
    QTRY_COMPARE(design->designProperties().count(), 3);
    QCOMPARE(design->designProperties().last().name, QString("ZORV Pelk Config Number"));
    QVERIFY(!design->designProperties().last().value.isValid());

    // The new value's editor is open already.
    const auto* const view = host.child<QTreeView>("PropertyView");
    QTRY_VERIFY(view->findChild<QComboBox*>());
    auto* const editor = view->findChild<QComboBox*>();
    QCOMPARE(editor->count(), 10);
    QCOMPARE(host.window()->focusWidget(), editor);
    QTest::keyClicks(editor, "9");
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(9));
}

void PropertyEditorTest::addsNothingOnceAnotherDesignIsCurrent()
{
    HostFixture host;
    const Provider provider;
    Design* const chosen = host.openDesign("radar");
    Design* const other = host.openDesign("sonar");
    host.view()->setCurrentIndex(host.item("radar"));
    choose(host, "Reviewer");
    host.view()->setCurrentIndex(host.item("sonar"));
    QCoreApplication::processEvents();
    QCOMPARE(chosen->designProperties().count(), 3);
    QCOMPARE(other->designProperties().count(), 3);
}

void PropertyEditorTest::addsNothingToADesignThatIsClosedMeanwhile()
{
    HostFixture host;
    const Provider provider;
    const QPointer<Design> closed = host.openDesign("radar");
    host.view()->setCurrentIndex(host.item("radar"));
    choose(host, "Reviewer");
    host.action("File.CloseDesign")->trigger();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!closed);
    QCoreApplication::processEvents();
    QCOMPARE(cell(host, 0, 0), QModelIndex());
}

void PropertyEditorTest::editsValuesOfTheirTypes()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    enterValue(host, 0, "DFE2");
    QTRY_COMPARE(design->designProperty("ZORV Pelk Module"), QVariant("DFE2"));
    enterValue(host, 2, "10");
    QTRY_COMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(10));
    QCOMPARE(design->designProperty("ZORV Pelk Config Number").type(), QVariant::Int);
    QCOMPARE(design->designProperties().first().category.toString(), QString("Target"));
    QVERIFY(design->isModified());
}

void PropertyEditorTest::takesAnEmptyTextForNoValue()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    enterValue(host, 0, "");
    QTRY_VERIFY(!design->designProperty("ZORV Pelk Module").isValid());
    QCOMPARE(design->designProperties().count(), 3);
}

void PropertyEditorTest::keepsAPropertyWithoutValueUntilOneFits()
{
    HostFixture host;
    Design* const design = host.openDesign("radar");
    design->setDesignProperty("ZORV Pelk Config Number", QVariant(), QtilitiesCategory());
    QAbstractItemModel* const model = host.child<QTreeView>("PropertyView")->model();
    QVERIFY(!model->setData(cell(host, 2, 1), "seven"));
    QVERIFY(model->setData(cell(host, 2, 1), ""));
    QVERIFY(!design->designProperty("ZORV Pelk Config Number").isValid());
    enterValue(host, 2, "7");
    QTRY_COMPARE(design->designProperty("ZORV Pelk Config Number"), QVariant(7));
    QCOMPARE(design->designProperty("ZORV Pelk Config Number").type(), QVariant::Int);
}

void PropertyEditorTest::removesAProperty()
{
    HostFixture host;
    const Design* const design = host.openDesign("radar");
    auto* const view = host.child<QTreeView>("PropertyView");
    auto* const remove = host.child<QPushButton>("RemovePropertyButton");
    QVERIFY(!remove->isEnabled());
    view->setCurrentIndex(cell(host, 0, 0));
    QTest::mouseClick(remove, Qt::LeftButton);
    QVERIFY(!design->designProperty("ZORV Pelk Module").isValid());
    view->setFocus();
    view->setCurrentIndex(cell(host, 0, 0));
    QTest::keyClick(view, Qt::Key_Delete);
    QCOMPARE(design->designProperties().count(), 1);
    // The design's files stay: the same key means something else there.
    QCOMPARE(design->files().count(), 1);
}

void PropertyEditorTest::leavesALockedDesignAsItIs()
{
    HostFixture host;
    host.openDesign("radar")->setLocked(true);
    host.child<QTreeView>("PropertyView")->setCurrentIndex(cell(host, 0, 1));
    QVERIFY(!host.child<QPushButton>("AddPropertyButton")->isEnabled());
    QVERIFY(!host.child<QPushButton>("RemovePropertyButton")->isEnabled());
    QVERIFY(!cell(host, 0, 1).flags().testFlag(Qt::ItemIsEditable));
}

void PropertyEditorTest::savesValuesWithTheDesign()
{
    HostFixture host;
    host.openDesign("radar");
    enterValue(host, 1, "Interface_FPGA");
    QTRY_VERIFY(host.window()->isWindowModified());
    host.press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(host.bytesOf("radar/design.json").contains("\"value\": \"Interface_FPGA\""));
    QVERIFY(host.closeWindow());
    host.restart();
    host.window()->openDesign(host.path("radar"));
    QCOMPARE(cell(host, 1, 1).data().toString(), QString("Interface_FPGA"));
}

HOST_TEST(PropertyEditorTest)

#include "PropertyEditorTest.moc"
