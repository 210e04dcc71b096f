#include "host/app/FormRules.h"
#include "host/app/HostFixture.h"

#include <QtilitiesLogging/Logger.h>

#include <QComboBox>
#include <QDockWidget>
#include <QMenuBar>
#include <QtTest>

using Qtilities::Logging::Logger;

/// What the host has around its designs: menus, log and the icons that plug-ins ask for.
class HostFrameTest : public QObject {
    Q_OBJECT

private slots:
    void showsTheMenusOfTheActionManager();
    void listsPriorityMessagesWithTheirKinds();
    void showsMarkupInMessagesAsItIs();
    void providesTheIconsOfThePlugin();
    void closesThePluginsWindowsWithItsOwn();
    void letsKeyboardAndScreenReaderWorkInEveryWindow();
};

namespace {

void appendProblems(QStringList* problems, const QWidget* window)
{
    for (const QString& problem : FormRules::nameless(window) + FormRules::ambiguous(window) +
                                      FormRules::outOfOrder(window) + FormRules::cutOff(window))
        *problems << window->windowTitle() + ": " + problem;
}

} // namespace

void HostFrameTest::showsTheMenusOfTheActionManager()
{
    const HostFixture host;
    QStringList titles;
    for (const QAction* menu : host.window()->menuBar()->actions())
        titles << menu->text().remove('&');
    QCOMPARE(titles, QStringList({"File", "Edit", "Design", "View", "Tools", "Help"}));
    QMenu* const tools = host.menu("Tools");
    QVERIFY(tools);
    const QList<QAction*> entries = tools->actions();
    QVERIFY(entries.size() >= 2);
    QVERIFY(entries.last()->isSeparator());
    QCOMPARE(entries.at(entries.size() - 2)->text(), QString("Pelk FCF Generator"));
    tools->close();
}

void HostFrameTest::listsPriorityMessagesWithTheirKinds()
{
    const HostFixture host;
    const QAbstractItemModel* const log = host.child<QTreeView>("logMessages")->model();
    const int before = log->rowCount();
    for (const auto type : {Logger::Info, Logger::Warning, Logger::Error, Logger::Fatal})
        Logger::instance()->logPriorityMessage(QString(), type, QString("number %1").arg(type));
    QStringList rows;
    for (int row = before; row < log->rowCount(); ++row) {
        QVERIFY(!log->index(row, 0).data().toString().isEmpty());
        QVERIFY(!log->index(row, 1).data(Qt::DecorationRole).value<QIcon>().isNull());
        rows << log->index(row, 1).data().toString() + ": " + log->index(row, 2).data().toString();
    }
    QCOMPARE(rows, QStringList({"Info: number 2", "Warning: number 4", "Error: number 8",
                                "Fatal: number 16"}));
}

void HostFrameTest::showsMarkupInMessagesAsItIs()
{
    const HostFixture host;
    Logger::instance()->logPriorityMessage(QString(), Logger::Info, "<b>bold</b> & more");
    QCOMPARE(host.log().last(), QString("<b>bold</b> & more"));
    const QAbstractItemModel* const log = host.child<QTreeView>("logMessages")->model();
    QCOMPARE(log->index(log->rowCount() - 1, 2).data(Qt::ToolTipRole).toString(),
             QString("&lt;b&gt;bold&lt;/b&gt; &amp; more"));
}

void HostFrameTest::providesTheIconsOfThePlugin()
{
    HostFixture host;
    QCOMPARE(QImage(":/icons/radar_22x22.png").size(), QSize(22, 22));
    QCOMPARE(QImage(":/icons/config_output_16x16.png").size(), QSize(16, 16));

    QVERIFY(HostFixture::choose(host.menu("Tools"), "Pelk FCF Generator"));
    QTRY_VERIFY(HostFixture::generator());
    QVERIFY(!HostFixture::generator()->windowIcon().pixmap(22, 22).isNull());
}

void HostFrameTest::closesThePluginsWindowsWithItsOwn()
{
    HostFixture host;
    QVERIFY(HostFixture::choose(host.menu("Tools"), "Pelk FCF Generator"));
    QTRY_VERIFY(HostFixture::generator());
    QVERIFY(host.closeWindow());
    QTRY_VERIFY(!HostFixture::generator());
}

void HostFrameTest::letsKeyboardAndScreenReaderWorkInEveryWindow()
{
    HostFixture host;
    QStringList problems;
    int seen = 0;
    appendProblems(&problems, host.window());
    host.openDesign("radar");
    host.window()->inspect(host.writeFile("top.fcf", "no image"));
    appendProblems(&problems, host.window());
    host.child<QDockWidget>("PropertyDock")->raise();
    QCoreApplication::processEvents();
    appendProblems(&problems, host.window());

    for (const char* id : {"File.NewDesign", "Help.About", "Help.AboutPlugins"}) {
        host.dialogs().leaveTo([&](QWidget* dialog) {
            ++seen;
            appendProblems(&problems, dialog);
            dialog->close();
        });
        host.action(id)->trigger();
    }
    host.dialogs().leaveTo([&](QWidget* dialog) {
        ++seen;
        appendProblems(&problems, dialog);
        dialog->findChild<QComboBox*>("typeBox")->setCurrentIndex(1);
        QCoreApplication::processEvents();
        appendProblems(&problems, dialog);
        const auto* const form = dialog->findChild<QWidget*>("ZORV_ArchiveConfigExtension");
        for (const QString& problem : FormRules::unexplained(dialog)) {
            if (form->isVisible() && !problem.contains("Box\"") && !problem.contains("Path\""))
                problems << problem;
        }
        dialog->close();
    });
    host.action("File.ArchiveDesign")->trigger();
    QCOMPARE(seen, 4);

    host.action("Help.Guide")->trigger();
    appendProblems(&problems, host.child<QMainWindow>("HelpWindow"));
    QMenu* const tools = host.menu("Tools");
    QVERIFY(HostFixture::choose(tools, "Pelk FCF Generator"));
    QTRY_VERIFY(HostFixture::generator());
    appendProblems(&problems, HostFixture::generator());
    problems << FormRules::unexplained(HostFixture::generator());
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join("\n")));
}

HOST_TEST(HostFrameTest)

#include "HostFrameTest.moc"
