#include "host/app/HostFixture.h"

#include <QtilitiesLogging/Logger.h>

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QPushButton>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

using Qtilities::Logging::Logger;

namespace {

class LogHost : public HostFixture {
public:
    LogHost() { activate(); }

    static void add(Logger::MessageType type, const QString& text)
    {
        Logger::instance()->logPriorityMessage(QString(), type, text);
    }
    static void addOneOfEach()
    {
        add(Logger::Info, "loaded");
        add(Logger::Warning, "odd");
        add(Logger::Error, "broken");
        add(Logger::Fatal, "lost");
        add(Logger::Debug, "detail");
    }

    QTreeWidget* list() const { return child<QTreeWidget>("logMessages"); }
    QPushButton* count() const { return child<QPushButton>("ErrorCount"); }
    void click(const char* button) const
    {
        QTest::mouseClick(child<QToolButton>(button), Qt::LeftButton);
    }

    /// The messages that can be seen.
    QStringList shown() const
    {
        QStringList texts;
        for (int row = 0; row < list()->topLevelItemCount(); ++row) {
            if (!list()->topLevelItem(row)->isHidden())
                texts << list()->topLevelItem(row)->text(2);
        }
        return texts;
    }
    /// The message, with its time and kind, as it is copied and saved.
    QString line(int row) const
    {
        const QTreeWidgetItem* const item = list()->topLevelItem(row);
        return item->text(0) + '\t' + item->text(1) + '\t' + item->text(2) + '\n';
    }
};

} // namespace

/// The log: which messages it shows, and where they go.
class LogPaneTest : public QObject {
    Q_OBJECT

private slots:
    void showsTheKindsThatAreChosen();
    void hidesNewMessagesOfOtherKinds();
    void copiesWhatIsShown();
    void savesWhatIsShown();
    void saysWhyItIsNotSaved();
    void wrapsLongMessages();
    void countsErrors();
    void showsTheErrorsByAClick();
    void showsTheErrorsByAKey();
};

void LogPaneTest::showsTheKindsThatAreChosen()
{
    const LogHost host;
    LogHost::addOneOfEach();
    QCOMPARE(host.shown(), QStringList({"loaded", "odd", "broken", "lost", "detail"}));
    host.click("ShowInformationButton");
    QCOMPARE(host.shown(), QStringList({"odd", "broken", "lost"}));
    host.click("ShowErrorsButton");
    QCOMPARE(host.shown(), QStringList({"odd"}));
    host.click("ShowWarningsButton");
    QCOMPARE(host.shown(), QStringList());
    host.click("ShowInformationButton");
    QCOMPARE(host.shown(), QStringList({"loaded", "detail"}));
}

void LogPaneTest::hidesNewMessagesOfOtherKinds()
{
    const LogHost host;
    host.click("ShowWarningsButton");
    LogHost::addOneOfEach();
    QCOMPARE(host.shown(), QStringList({"loaded", "broken", "lost", "detail"}));
}

void LogPaneTest::copiesWhatIsShown()
{
    const LogHost host;
    host.list()->setFocus();
    QTest::keyClick(host.list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString());

    LogHost::addOneOfEach();
    host.click("ShowInformationButton");
    QTest::keyClick(host.list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             (host.line(1) + host.line(2) + host.line(3)).trimmed());

    host.list()->topLevelItem(2)->setSelected(true);
    QTest::keyClick(host.list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), host.line(2).trimmed());
}

void LogPaneTest::savesWhatIsShown()
{
    LogHost host;
    LogHost::addOneOfEach();
    LogHost::add(Logger::Warning, QString::fromUtf8("Grün"));
    host.click("ShowErrorsButton");
    host.dialogs().choose(host.path("saved.txt"));
    host.click("SaveLogButton");
    QVERIFY(host.dialogs().allGiven());
    QCOMPARE(QString::fromUtf8(host.bytesOf("saved.txt")),
             host.line(0) + host.line(1) + host.line(4) + host.line(5));

    // Nothing is written when no file is chosen.
    host.dialogs().cancel();
    host.click("SaveLogButton");
    QVERIFY(host.dialogs().allGiven());
}

void LogPaneTest::saysWhyItIsNotSaved()
{
    LogHost host;
    LogHost::addOneOfEach();
    // Nobody can make a file there.
    const QString path = "/proc/pelk-host-log.txt";
    host.dialogs().choose(path);
    host.dialogs().click(QMessageBox::Ok);
    host.click("SaveLogButton");
    QVERIFY(host.dialogs().allGiven());
    const QString text = host.dialogs().texts().last();
    QVERIFY2(text.startsWith("The log is not saved.\n" + path + ": "), qPrintable(text));
}

void LogPaneTest::wrapsLongMessages()
{
    const LogHost host;
    LogHost::add(Logger::Info, "short");
    LogHost::add(Logger::Info, QString("A message that is wider than the pane. ").repeated(20));
    const auto height = [&host](int row) {
        return host.list()->visualItemRect(host.list()->topLevelItem(row)).height();
    };
    const int line = height(0);
    QCOMPARE(height(1), line);

    host.click("WrapLogButton");
    QTRY_VERIFY(height(1) > 2 * line);
    QCOMPARE(height(0), line);
    const int wide = height(1);
    host.window()->resize(host.window()->width() / 2, host.window()->height());
    QTRY_VERIFY(height(1) > wide);

    host.click("WrapLogButton");
    QTRY_COMPARE(height(1), line);
}

void LogPaneTest::countsErrors()
{
    const LogHost host;
    QVERIFY(!host.count()->isVisible());
    LogHost::add(Logger::Error, "first");
    QVERIFY(host.count()->isVisible());
    QCOMPARE(host.count()->text(), QString("1 error"));
    LogHost::addOneOfEach();
    QCOMPARE(host.count()->text(), QString("3 errors"));
    // Hidden ones count as well.
    host.click("ShowErrorsButton");
    QCOMPARE(host.count()->text(), QString("3 errors"));

    for (QAction* action : host.list()->actions()) {
        if (action->text().remove('&') == "Clear Log")
            action->trigger();
    }
    QCOMPARE(host.list()->topLevelItemCount(), 0);
    QVERIFY(!host.count()->isVisible());
}

void LogPaneTest::showsTheErrorsByAClick()
{
    const LogHost host;
    LogHost::addOneOfEach();
    auto* const dock = host.child<QDockWidget>("LogDock");
    dock->hide();
    QTest::mouseClick(host.count(), Qt::LeftButton);
    QTRY_VERIFY(dock->isVisible());
    QCOMPARE(host.shown(), QStringList({"broken", "lost"}));
    QCOMPARE(host.list()->currentItem()->text(2), QString("lost"));
    QTRY_VERIFY(dock->isAncestorOf(QApplication::focusWidget()));
    QVERIFY(!host.child<QToolButton>("ShowWarningsButton")->isChecked());
    QVERIFY(host.child<QToolButton>("ShowErrorsButton")->isChecked());
}

void LogPaneTest::showsTheErrorsByAKey()
{
    const LogHost host;
    // Without an error there is nothing to hide the other messages for.
    LogHost::add(Logger::Info, "loaded");
    host.press(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(host.shown(), QStringList({"loaded"}));
    LogHost::add(Logger::Error, "broken");
    host.press(Qt::Key_E, Qt::ControlModifier);
    QCOMPARE(host.shown(), QStringList({"broken"}));
    QTRY_VERIFY(host.list()->hasFocus());
}

HOST_TEST(LogPaneTest)

#include "LogPaneTest.moc"
