#include "host/app/HostFixture.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignManager.h>

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QProgressBar>
#include <QRandomGenerator>
#include <QThread>
#include <QtTest>

#include <algorithm>
#include <ctime>
#include <utility>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;

namespace {

constexpr int DefaultActions = 2000;
constexpr double LongestMs = 1000;
constexpr int KeptSteps = 15;

/// Of this thread: a loaded machine does not count as a hang.
double processorMs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

int numberFrom(const char* variable, int otherwise)
{
    bool ok = false;
    const int number = qEnvironmentVariableIntValue(variable, &ok);
    return ok ? number : otherwise;
}

/// Keeps the desktop's programs closed.
class LinkSink : public QObject {
    Q_OBJECT

public:
    LinkSink()
    {
        for (const char* scheme : {"file", "http", "https", "mailto"})
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~LinkSink() override
    {
        for (const char* scheme : {"file", "http", "https", "mailto"})
            QDesktopServices::unsetUrlHandler(scheme);
    }

public slots:
    void open(const QUrl&) {}
};

/// Clicks, types and drops at random over all windows. The same seed does the same.
///
/// Each action is started by the event loop, so that it goes on in the loops of modal boxes.
class Monkey : public QObject {
    Q_OBJECT

public:
    Monkey(HostFixture* host, quint32 seed, int actions)
        : m_host(host), m_random(seed), m_actions(actions)
    {
        // Where a dock is on its way would depend on the machine, as would which keys belong
        // together.
        host->window()->setAnimated(false);
        QApplication::setKeyboardInputInterval(0);
        m_files << host->path("radar/top.bin") << host->path("radar/top.txt")
                << host->path("radar/design.json") << host->writeFile("loose.vhd", "entity")
                << host->writeFile("loose.bin", QByteArray(3000, 'x')) << host->path("sonar")
                << host->path("radar");
    }

    /// What went wrong; empty when nothing did.
    QString run()
    {
        schedule();
        m_loop.exec();
        return m_problem;
    }

private:
    /// Acts when everything is shown that an action has changed, and loops that it ended are left.
    void schedule() { QTimer::singleShot(0, this, &Monkey::settle); }

    void settle()
    {
        // Or the next look would show at some later action what this one has changed.
        QMetaObject::invokeMethod(m_host->view()->model(), "refreshFromDisk");
        QTimer::singleShot(0, this, [this] { QTimer::singleShot(0, this, &Monkey::act); });
    }

    void act()
    {
        const int level = QThread::currentThread()->loopLevel();
        // An action handles events itself; the next one waits until it is over, or runs a loop.
        // How far an archive is depends on the machine.
        if (level == m_level || isArchiving()) {
            schedule();
            return;
        }
        const int outer = std::exchange(m_level, level);
        actNow();
        m_level = outer;
    }

    static bool isArchiving()
    {
        const QWidget* const dialog = QApplication::activeModalWidget();
        const auto* const bar = dialog ? dialog->findChild<QProgressBar*>("progressBar") : nullptr;
        return bar && bar->isVisible();
    }

    void actNow()
    {
        checkTime();
        if (m_problem.isEmpty())
            checkInvariants();
        if (m_done >= m_actions || !m_problem.isEmpty()) {
            finish();
            return;
        }
        ++m_done;
        // Before the action, which may run a loop of its own.
        schedule();
        m_last = processorMs();
        if (!m_host->window()->isVisible())
            m_host->window()->show();
        if (auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            // It could reach files that are not the test's.
            answer(dialog);
            return;
        }
        if (QWidget* const window = pickWindow())
            actOn(window);
    }

    void finish()
    {
        // One at a time: each ends a loop.
        if (QWidget* const popup = QApplication::activePopupWidget()) {
            schedule();
            popup->close();
        } else if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            schedule();
            dialog->reject();
        } else {
            m_loop.quit();
        }
    }

    void checkTime()
    {
        const double taken = processorMs() - m_last;
        if (m_done > 0 && taken > LongestMs)
            fail(QString("An action took %1 ms.").arg(taken));
    }

    void checkInvariants()
    {
        const auto designs = DesignManager::instance()->designs();
        const QAbstractItemModel* const model = m_host->view()->model();
        if (model->rowCount() != designs.count())
            fail(QString("%1 designs, %2 rows.").arg(designs.count()).arg(model->rowCount()));
        for (OrvanticCore::IDesign* each : designs) {
            const auto* const design = dynamic_cast<const Design*>(each);
            for (const OrvanticCore::DesignFile* file : design->files()) {
                if (model
                        ->match(model->index(0, 0), Qt::DisplayRole, file->fileName(), 1,
                                Qt::MatchExactly | Qt::MatchRecursive)
                        .isEmpty())
                    fail("The view does not show " + file->fileName() + '.');
            }
        }
        const QModelIndex current = m_host->view()->currentIndex();
        if (designs.count() > 1 && current.isValid() &&
            m_host->window()->windowTitle() == "Pelk Design Host")
            fail("There is a current item, but no current design.");
    }

    void fail(const QString& problem)
    {
        if (m_problem.isEmpty())
            m_problem = QString("%1 After %2 actions; the last ones:\n%3")
                            .arg(problem)
                            .arg(m_done)
                            .arg(m_steps.join('\n'));
    }

    void note(const QString& step)
    {
        m_steps << step;
        if (m_steps.count() > KeptSteps)
            m_steps.removeFirst();
        if (qEnvironmentVariableIsSet("PELK_MONKEY_VERBOSE"))
            qInfo("%d: %s", m_done, qPrintable(step));
    }

    int below(int limit) { return m_random.bounded(limit); }

    template <class List>
    auto oneOf(const List& list)
    {
        return list.at(below(int(list.size())));
    }

    QWidget* pickWindow()
    {
        if (QWidget* const popup = QApplication::activePopupWidget())
            return popup;
        if (QWidget* const modal = QApplication::activeModalWidget())
            return modal;
        QWidgetList windows;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->windowHandle() &&
                window->windowType() != Qt::ToolTip)
                windows << window;
        }
        // In an order that does not depend on addresses.
        std::sort(windows.begin(), windows.end(), [](const QWidget* left, const QWidget* right) {
            return left->objectName() < right->objectName();
        });
        return windows.isEmpty() ? nullptr : oneOf(windows);
    }

    QWidget* pickWidget(QWidget* window)
    {
        QWidgetList widgets{window};
        for (QWidget* widget : window->findChildren<QWidget*>()) {
            if (widget->isVisible() && widget->isEnabled() && widget->window() == window)
                widgets << widget;
        }
        return oneOf(widgets);
    }

    void answer(QFileDialog* dialog)
    {
        const QString path = oneOf(m_files);
        if (below(2) == 0) {
            note("dismiss " + dialog->windowTitle());
            dialog->reject();
            return;
        }
        note("choose " + path);
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
        // What it does not take leaves it open, with a box perhaps.
        if (QApplication::activeModalWidget() == dialog && dialog->isVisible())
            dialog->reject();
    }

    void actOn(QWidget* window)
    {
        QWidget* const widget = pickWidget(window);
        const QString name = window->objectName() + '/' + widget->metaObject()->className() + ' ' +
                             widget->objectName();
        switch (below(8)) {
        case 0:
        case 1:
        case 2:
            note("click " + name);
            click(window, widget, Qt::LeftButton, false);
            break;
        case 3:
            note("double-click " + name);
            click(window, widget, Qt::LeftButton, true);
            break;
        case 4:
            note("right-click " + name);
            click(window, widget, Qt::RightButton, false);
            break;
        case 5:
            press(window, name);
            break;
        case 6:
            drop(widget, name);
            break;
        default:
            trigger();
        }
    }

    void click(QWidget* window, QWidget* widget, Qt::MouseButton button, bool twice)
    {
        const QRect seen = widget->visibleRegion().boundingRect();
        if (seen.isEmpty())
            return;
        const QPoint place = seen.topLeft() + QPoint(below(seen.width()), below(seen.height()));
        // Through the window, as the desktop does: a widget may go with its first event.
        const QPoint inWindow = widget->mapTo(window, place);
        const QPointer<QWindow> handle = window->windowHandle();
        if (!handle)
            return;
        QTest::mousePress(handle, button, {}, inWindow);
        if (handle)
            QTest::mouseRelease(handle, button, {}, inWindow);
        if (twice && handle) {
            QTest::mousePress(handle, button, {}, inWindow);
            if (handle)
                QTest::mouseRelease(handle, button, {}, inWindow);
        }
    }

    void press(QWidget* window, const QString& name)
    {
        static const int control = int(Qt::ControlModifier);
        static const int shift = int(Qt::ShiftModifier);
        static const QVector<int> keys{
            Qt::Key_Tab,         Qt::Key_Return,      Qt::Key_Escape,      Qt::Key_Up,
            Qt::Key_Down,        Qt::Key_Left,        Qt::Key_Right,       Qt::Key_Delete,
            Qt::Key_Space,       Qt::Key_F2,          Qt::Key_Home,        Qt::Key_End,
            Qt::Key_F5,          Qt::Key_A,           Qt::Key_7,           Qt::Key_Minus,
            Qt::Key_Colon,       control | Qt::Key_Z, control | Qt::Key_Y, control | Qt::Key_A,
            shift | Qt::Key_Down};
        const int key = oneOf(keys);
        note("press " + QKeySequence(key).toString() + " in " + name);
        const QPointer<QWindow> handle = window->windowHandle();
        const auto code = Qt::Key(key & ~int(Qt::KeyboardModifierMask));
        const auto modifiers = Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask));
        if (handle)
            QTest::keyPress(handle, code, modifiers);
        if (handle)
            QTest::keyRelease(handle, code, modifiers);
    }

    void drop(QWidget* widget, const QString& name)
    {
        const QString path = oneOf(m_files);
        while (widget && !widget->acceptDrops())
            widget = widget->isWindow() ? nullptr : widget->parentWidget();
        if (!widget)
            return;
        note("drop " + path + " on " + name);
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        const QPointer<QWidget> target = widget;
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        QDropEvent event(QPoint(below(300), below(300)), Qt::CopyAction, &data, Qt::LeftButton, {});
        if (target && enter.isAccepted())
            QApplication::sendEvent(target, &event);
    }

    void trigger()
    {
        if (QApplication::activePopupWidget() || QApplication::activeModalWidget())
            return;
        QList<QAction*> actions;
        for (const QAction* menu : m_host->window()->menuBar()->actions()) {
            for (QAction* action : menu->menu()->actions()) {
                if (action->isEnabled() && action->isVisible() && !action->menu() &&
                    !action->isSeparator())
                    actions << action;
            }
        }
        QAction* const action = oneOf(actions);
        note("choose " + action->text());
        action->trigger();
    }

    HostFixture* m_host;
    QRandomGenerator m_random;
    QEventLoop m_loop;
    QStringList m_files;
    QStringList m_steps;
    QString m_problem;
    double m_last = 0;
    int m_actions;
    int m_done = 0;
    /// The depth of event loops at which an action is under way.
    int m_level = -1;
};

} // namespace

/// What no script thinks of. PELK_MONKEY_SEED and PELK_MONKEY_ACTIONS choose another run.
class MonkeyTest : public QObject {
    Q_OBJECT

private slots:
    void survivesWhateverIsDone();
};

void MonkeyTest::survivesWhateverIsDone()
{
    const LinkSink links;
    const int seed = numberFrom("PELK_MONKEY_SEED", 20261121);
    // A crash leaves no time for it.
    qInfo("Seed %d", seed);
    HostFixture host;
    // The monkey answers.
    host.dialogs().stop();
    // A design can be made in a folder whose name is typed.
    QVERIFY(QDir::setCurrent(host.path(QString())));
    host.openDesign("radar");
    host.openDesign("sonar");
    Monkey monkey(&host, quint32(seed), numberFrom("PELK_MONKEY_ACTIONS", DefaultActions));
    const QString problem = monkey.run();
    QVERIFY2(problem.isEmpty(), qPrintable(QString("Seed %1: %2").arg(seed).arg(problem)));
}

HOST_TEST(MonkeyTest)

#include "MonkeyTest.moc"
