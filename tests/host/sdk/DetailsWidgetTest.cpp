#include "support/TestProgram.h"

#include <QtCreatorUtilities/DetailsWidget.h>

#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>
#include <QVBoxLayout>

using QtCreatorUtilities::DetailsWidget;

class DetailsWidgetTest : public QObject {
    Q_OBJECT

private slots:
    void startsCollapsedWithoutBody();
    void showsItsBodyByState();
    void unfoldsByArrowSummaryAndKey();
    void ownsItsBody();
};

void DetailsWidgetTest::startsCollapsedWithoutBody()
{
    const DetailsWidget panel;
    QCOMPARE(panel.state(), DetailsWidget::Collapsed);
    QVERIFY(!panel.widget());
    QCOMPARE(panel.summaryText(), QString());
    QCOMPARE(int(DetailsWidget::Expanded), 0);
}

void DetailsWidgetTest::showsItsBodyByState()
{
    DetailsWidget panel;
    auto* const body = new QPushButton;
    panel.setWidget(body);
    panel.setSummaryText("<b>Summary</b>");
    auto* const summary = panel.findChild<QLabel*>("summary");
    panel.show();
    QVERIFY(summary->isVisible() && !body->isVisible());
    panel.setState(DetailsWidget::Expanded);
    QVERIFY(summary->isVisible() && body->isVisible());
    panel.setState(DetailsWidget::NoSummary);
    QVERIFY(!summary->isVisible() && body->isVisible());
    QCOMPARE(panel.summaryText(), QString("<b>Summary</b>"));
}

void DetailsWidgetTest::unfoldsByArrowSummaryAndKey()
{
    DetailsWidget panel;
    panel.setWidget(new QPushButton);
    panel.setSummaryText("Summary");
    panel.show();
    auto* const arrow = panel.findChild<QToolButton*>("arrow");
    QTest::mouseClick(arrow, Qt::LeftButton);
    QCOMPARE(panel.state(), DetailsWidget::Expanded);
    QTest::mouseClick(panel.findChild<QLabel*>("summary"), Qt::LeftButton);
    QCOMPARE(panel.state(), DetailsWidget::Collapsed);
    QTest::keyClick(arrow, Qt::Key_Space);
    QCOMPARE(panel.state(), DetailsWidget::Expanded);
    QVERIFY(panel.widget()->isVisible());
    QTest::mouseClick(panel.findChild<QLabel*>("summary"), Qt::RightButton);
    QCOMPARE(panel.state(), DetailsWidget::Expanded);
}

void DetailsWidgetTest::ownsItsBody()
{
    QPointer<QWidget> first = new QWidget;
    QPointer<QWidget> second = new QWidget;
    {
        DetailsWidget panel;
        panel.setWidget(first);
        panel.setWidget(first);
        QVERIFY(first);
        panel.setWidget(second);
        QVERIFY(!first);
        QCOMPARE(panel.widget(), second.data());
    }
    QVERIFY(!second);
}

ZORV_WINDOW_TEST(DetailsWidgetTest)
#include "DetailsWidgetTest.moc"
