#ifndef TESTS_HOST_APP_HOSTFIXTURE_H
#define TESTS_HOST_APP_HOSTFIXTURE_H

#include "host/app/MainWindow.h"
#include "support/ModalAnswer.h"
#include "support/TestProgram.h"

#include <QMenu>
#include <QScopedPointer>
#include <QTemporaryDir>
#include <QTreeView>

class PelkFcfGenerator;

namespace OrvanticCore {
class Design;
}

/// The host's window, shown, with the plug-in loaded from its library and settings of its own, and
/// a folder in which designs can be made.
class HostFixture {
public:
    HostFixture();
    /// Closes all windows; changes that a test has not saved are dropped.
    ~HostFixture();

    MainWindow* window() const { return m_window.data(); }
    ModalAnswer& dialogs() { return m_dialogs; }

    /// Closes the window, saying No to nothing: a test promises its answers before.
    bool closeWindow() { return m_window->close(); }
    /// A new window with the same settings.
    void restart();

    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString writeFile(const QString& name, const QByteArray& bytes) const;
    QByteArray bytesOf(const QString& name) const;

    /// Makes the folder of a firmware design of version 1.4 with the file "top.bin", the node
    /// "Bit-stream Files" for "*.bit" and the target GPM, Processing_FPGA_2, 3, and returns its
    /// path.
    QString makeDesign(const QString& name) const;
    /// Makes such a design and opens it.
    OrvanticCore::Design* openDesign(const QString& name);

    QTreeView* view() const { return child<QTreeView>("MainDesignWidget"); }
    QAction* action(const char* id) const;
    /// The item whose name begins so, or an invalid index.
    QModelIndex item(const QString& name) const;
    /// Name, state and version of an item.
    QStringList row(const QString& name) const;
    /// The log's messages without their times and kinds.
    QStringList log() const;

    /// Brings the host's window to the front.
    void activate() const;
    /// Presses a shortcut in the host's window, which is brought to the front for it.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const;

    /// Clicks the item with the right mouse button, and returns the menu that comes up, or null.
    QMenu* menuByMouse(const QString& name) const;
    /// Goes to the item and presses the menu key, and returns the menu that comes up, or null.
    QMenu* menuByKey(const QString& name) const;
    /// Drops a file on the item.
    void drop(const QString& name, const QString& path) const;
    /// Opens the menu of that title from the menu bar by the mouse.
    QMenu* menu(const QString& title) const;
    /// The visible entries.
    static QStringList entriesOf(const QMenu* menu);
    /// Chooses an entry of an open menu by the mouse; returns whether that could be done.
    static bool choose(QMenu* menu, const QString& entry);

    /// The visible generator window, or null.
    static QWidget* generator();

    template <class Child>
    Child* child(const char* name) const
    {
        return m_window->findChild<Child*>(name);
    }

private:
    void show();

    QTemporaryDir m_folder;
    ModalAnswer m_dialogs;
    QScopedPointer<MainWindow> m_window;
};

/// How many designs are open.
int openDesigns();

/// Runs the tests of \p test in an application of the framework's.
int runHostTest(QObject* test, int argc, char** argv);

/// For the tests of class Test in the windows of the host.
#define HOST_TEST(Test)                                                                            \
    ZORV_TEST_MAIN(Test)                                                                           \
    {                                                                                              \
        Test test;                                                                                 \
        return runHostTest(&test, argc, argv);                                                     \
    }

#endif
