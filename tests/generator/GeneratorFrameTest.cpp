#include "generator/PelkFcfGenerator.h"
#include "support/TestProgram.h"
#include "toolkit/QtDifferences.h"

#include <QToolButton>
#include <QtTest>
#include <QWindow>

/// Runs with a window manager, which gives windows frames, on a screen of 1024 by 600 pixels.
class GeneratorFrameTest : public QObject {
    Q_OBJECT

    /// With the frame that the desktop has reported: a widget takes it over only when it is moved
    /// or resized the next time.
    static QRect framed(const QWidget& window)
    {
        return window.geometry().marginsAdded(window.windowHandle()->frameMargins());
    }

    /// Whether title and content of \p window are on its screen.
    static bool isWhole(const QWidget& window)
    {
        const QRect screen = Toolkit::availableGeometry(&window);
        return framed(window).top() >= screen.top() && screen.contains(window.geometry());
    }

private slots:
    void keepsItsTitleOnTheScreen_data();
    void keepsItsTitleOnTheScreen();
};

void GeneratorFrameTest::keepsItsTitleOnTheScreen_data()
{
    QTest::addColumn<bool>("isCentred");
    QTest::newRow("placed by the desktop") << false;
    QTest::newRow("in the middle of the screen") << true;
}

void GeneratorFrameTest::keepsItsTitleOnTheScreen()
{
    QFETCH(bool, isCentred);
    PelkFcfGenerator window;
    const QRect screen = Toolkit::availableGeometry(&window);
    QCOMPARE(screen.size(), QSize(1024, 600));
    if (isCentred)
        window.move(screen.center() - window.rect().center());
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTRY_VERIFY(framed(window) != window.geometry());
    QTRY_VERIFY2(isWhole(window), "shown");

    auto* const arrow =
        window.findChild<QWidget*>("widgetFunctionDetailsHolder")->findChild<QToolButton*>();
    for (int times = 0; times < 2; ++times) {
        QTest::mouseClick(arrow, Qt::LeftButton);
        QCoreApplication::processEvents();
        QTRY_VERIFY2(isWhole(window), "folded or unfolded");
    }
}

ZORV_WINDOW_TEST(GeneratorFrameTest)
#include "GeneratorFrameTest.moc"
