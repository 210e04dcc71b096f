#include "generator/GeneratorDriver.h"
#include "generator/GeneratorTest.h"
#include "support/TestProgram.h"

#include <QMenu>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QtTest>

#include <algorithm>

namespace {

/// Sees each painting of a progress bar.
class BarWatcher : public QObject {
public:
    BarWatcher() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const bar = qobject_cast<const QProgressBar*>(watched);
        if (bar && event->type() == QEvent::Paint) {
            values << bar->value();
            wasBusy = QApplication::overrideCursor() &&
                      QApplication::overrideCursor()->shape() == Qt::WaitCursor;
        }
        return false;
    }

    QVector<int> values;
    bool wasBusy = false;
};

bool drop(QWidget* on, const QMimeData& data)
{
    const QPoint place = on->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(on, &enter);
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(on, &event);
    return enter.isAccepted() && event.isAccepted();
}

} // namespace

/// How the window fits the screen, and what it does with a file that is dropped on it.
class GeneratorFitTest : public GeneratorTest {
    Q_OBJECT

private slots:
    void keepsItsButtonsInReach();
    void givesTheHeightOfAFoldedPartBack();
    void movesUpWhereItGrowsBeyondTheScreen();
    void keepsItsSizeWhereItIsMaximised();
    void keepsItsHeightWhenItIsShownAgain();
    void showsThatALargeBinaryIsCopied();
    void showsABarFrom16Mebibytes();
    void takesADroppedFileAsItsInput_data();
    void takesADroppedFileAsItsInput();
    void takesAFileWhenItIsDroppedAndNotBefore();
    void takesTheFirstOfSeveralDroppedFiles();
    void leavesADroppedTextToItsField();
    void refusesADroppedFolder_data();
    void refusesADroppedFolder();
    void showsAStatusThatIsCutOffAsAToolTip();
    void opensItsMenuByTheKeyboard();

private:
    QToolButton* arrow() const
    {
        return driver->find<QWidget>("widgetFunctionDetailsHolder")->findChild<QToolButton*>();
    }
};

void GeneratorFitTest::keepsItsButtonsInReach()
{
    // The functions are unfolded, which this screen has no room for.
    const QWidget* const window = driver->window();
    QVERIFY(window->height() <= window->screen()->availableSize().height());
    const auto* const generate = driver->find<QPushButton>("GenerateButton");
    const QRect place(generate->mapTo(window, QPoint()), generate->size());
    QVERIFY(generate->isVisible());
    QVERIFY(window->rect().contains(place));
}

void GeneratorFitTest::givesTheHeightOfAFoldedPartBack()
{
    QTest::mouseClick(arrow(), Qt::LeftButton);
    QCoreApplication::processEvents();
    // This screen has no room to grow otherwise.
    const int folded = 400;
    driver->window()->resize(driver->window()->width(), folded);
    QTRY_COMPARE(driver->window()->height(), folded);
    QTest::mouseClick(arrow(), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(driver->window()->height() > folded);
    QTest::mouseClick(arrow(), Qt::LeftButton);
    QCoreApplication::processEvents();
    QCOMPARE(driver->window()->height(), folded);
}

void GeneratorFitTest::movesUpWhereItGrowsBeyondTheScreen()
{
    QWidget* const window = driver->window();
    QTest::mouseClick(arrow(), Qt::LeftButton);
    QCoreApplication::processEvents();
    window->resize(window->width(), 400);
    QTRY_COMPARE(window->height(), 400);
    const QRect screen = window->screen()->availableGeometry();
    window->move(screen.left(), screen.bottom() - 450);
    QTest::mouseClick(arrow(), Qt::LeftButton);
    QCoreApplication::processEvents();
    QVERIFY(window->height() > 450);
    QVERIFY(window->geometry().top() >= screen.top());
    QVERIFY(window->geometry().bottom() <= screen.bottom());
}

void GeneratorFitTest::keepsItsSizeWhereItIsMaximised()
{
    QWidget* const window = driver->window();
    QTest::mouseClick(arrow(), Qt::LeftButton);
    window->resize(window->width(), 400);
    QTRY_COMPARE(window->height(), 400);
    QTest::mouseClick(arrow(), Qt::LeftButton);
    QVERIFY(window->height() > 400);

    const int width = window->width();
    window->showMaximized();
    QTRY_VERIFY(window->width() > width);
    const QSize maximised = window->size();
    for (int times = 0; times < 2; ++times) {
        QTest::mouseClick(arrow(), Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(window->size(), maximised);
    }
}

void GeneratorFitTest::keepsItsHeightWhenItIsShownAgain()
{
    QWidget* const window = driver->window();
    window->resize(window->width(), 400);
    QTRY_COMPARE(window->height(), 400);
    window->hide();
    window->show();
    QVERIFY(QTest::qWaitForWindowActive(window));
    QCOMPARE(window->height(), 400);
}

void GeneratorFitTest::showsThatALargeBinaryIsCopied()
{
    const QString binary = driver->write("top.bin", QByteArray());
    QVERIFY(QFile::resize(binary, 64 * 1024 * 1024));
    driver->fillIn(binary);
    BarWatcher watcher;
    driver->click("GenerateButton");
    QVERIFY2(watcher.values.count() > 2, qPrintable(QString::number(watcher.values.count())));
    QVERIFY(std::is_sorted(watcher.values.begin(), watcher.values.end()));
    QCOMPARE(watcher.values.last(), 100);
    QVERIFY(watcher.wasBusy);
    QVERIFY(!QApplication::overrideCursor());
    QVERIFY(!driver->window()->findChild<QProgressBar*>());
}

void GeneratorFitTest::showsABarFrom16Mebibytes()
{
    const QString binary = driver->write("top.bin", QByteArray());
    const int least = 16 * 1024 * 1024;
    for (const int bytes : {least - 1, least}) {
        QVERIFY(QFile::resize(binary, bytes));
        driver->reopen();
        driver->fillIn(binary);
        QFile::remove(driver->path("top.fcf"));
        BarWatcher watcher;
        driver->click("GenerateButton");
        QCOMPARE(watcher.values.isEmpty(), bytes < least);
    }
}

void GeneratorFitTest::takesADroppedFileAsItsInput_data()
{
    QTest::addColumn<QString>("widget");

    for (const char* name : {"txtInputFile", "AuthoEditBox", "DescriptionMemo", "GenerateButton"})
        QTest::newRow(name) << name;
}

void GeneratorFitTest::takesADroppedFileAsItsInput()
{
    QFETCH(QString, widget);
    const QString binary = driver->write("top.bin", QByteArray(5000, 'b'));
    auto* target = driver->find<QWidget>(qPrintable(widget));
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(target))
        target = area->viewport();
    // What takes no drops passes them on to the window.
    if (!target->acceptDrops())
        target = driver->window();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(binary)});
    QVERIFY(drop(target, data));
    QCOMPARE(driver->text("txtInputFile"), binary);
    QCOMPARE(driver->text("BinFileSize"), QString("5000  Bytes"));
    QCOMPARE(driver->text("AuthoEditBox"), QString());
    QCOMPARE(driver->text("DescriptionMemo"), QString());
}

void GeneratorFitTest::takesAFileWhenItIsDroppedAndNotBefore()
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(driver->write("top.bin", QByteArray(5000, 'b')))});
    auto* const field = driver->find<QLineEdit>("txtInputFile");
    const QPoint place = field->rect().center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field, &enter);
    QDragMoveEvent move(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(field, &move);
    QVERIFY(enter.isAccepted() && move.isAccepted());
    QCOMPARE(field->text(), QString());
}

void GeneratorFitTest::takesTheFirstOfSeveralDroppedFiles()
{
    const QString first = driver->write("first.bin", QByteArray(5000, 'a'));
    const QString second = driver->write("second.bin", QByteArray(6000, 'b'));
    QMimeData data;
    data.setUrls({QUrl("http://host.example/other.bin"), QUrl::fromLocalFile(first),
                  QUrl::fromLocalFile(second)});
    QVERIFY(drop(driver->window(), data));
    QCOMPARE(driver->text("txtInputFile"), first);
    QCOMPARE(driver->text("BinFileSize"), QString("5000  Bytes"));
}

void GeneratorFitTest::leavesADroppedTextToItsField()
{
    QMimeData data;
    data.setText("R. Vos");
    QVERIFY(drop(driver->find<QWidget>("AuthoEditBox"), data));
    QCOMPARE(driver->text("AuthoEditBox"), QString("R. Vos"));
    QCOMPARE(driver->text("txtInputFile"), QString());
}

void GeneratorFitTest::refusesADroppedFolder_data() { takesADroppedFileAsItsInput_data(); }

void GeneratorFitTest::refusesADroppedFolder()
{
    QFETCH(QString, widget);
    auto* target = driver->find<QWidget>(qPrintable(widget));
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(target))
        target = area->viewport();
    if (!target->acceptDrops())
        target = driver->window();
    const QString before = driver->text("BinFileSize");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(driver->path(""))});
    QVERIFY(!drop(target, data));
    QCOMPARE(driver->text("txtInputFile"), QString());
    QCOMPARE(driver->text("BinFileSize"), before);
    QCOMPARE(driver->text("AuthoEditBox"), QString());
    QCOMPARE(driver->text("DescriptionMemo"), QString());
}

void GeneratorFitTest::showsAStatusThatIsCutOffAsAToolTip()
{
    const auto* const status = driver->find<QLabel>("StatusBar");
    driver->window()->setTxtFile(driver->path("missing.txt"));
    QVERIFY(status->text().contains("failed."));
    QCOMPARE(status->toolTip(), status->text());

    driver->dialogs().choose(driver->binary("<b>.bin", 10));
    driver->click("btnLoad");
    QVERIFY2(status->toolTip().contains("&lt;b&gt;.bin successfully."),
             qPrintable(status->toolTip()));

    driver->window()->clearScreen();
    QCOMPARE(status->toolTip(), QString());
}

void GeneratorFitTest::opensItsMenuByTheKeyboard()
{
    auto* const path = driver->find<QLineEdit>("txtInputFile");
    path->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(driver->window()));
    const auto* const menu = driver->find<QMenu>("menuFile");
    QTest::keyClick(path, 'f', Qt::AltModifier);
    QVERIFY(menu->isVisible());
    QCOMPARE(path->text(), QString());
    QTest::keyClick(driver->find<QMenu>("menuFile"), Qt::Key_Escape);
    QVERIFY(!menu->isVisible());
}

ZORV_WINDOW_TEST(GeneratorFitTest)
#include "GeneratorFitTest.moc"
