#include "toolkit/Host.h"

#include <QtilitiesCoreGui/QtilitiesApplication.h>
#include <QtilitiesExtensionSystem/ExtensionSystemCore.h>

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

using Qtilities::CoreGui::QtilitiesApplication;
using Qtilities::ExtensionSystem::ExtensionSystemCore;
using Qtilities::ExtensionSystem::Interfaces::IPlugin;

namespace {

Host* theHost = nullptr;

} // namespace

Host::Host(const QString& plugin_folder)
{
    theHost = this;
    connect(QtilitiesApplication::objectManager(), SIGNAL(newObjectAdded(QObject*)),
            SLOT(notePooled(QObject*)));
    connect(Logger::instance(), SIGNAL(newPriorityMessage(Logger::MessageType, QString)),
            SLOT(noteMessage(Logger::MessageType, QString)));
    ExtensionSystemCore::instance()->addPluginPath(plugin_folder);
    ExtensionSystemCore::instance()->initialize();
}

Host* Host::instance() { return theHost; }

IPlugin* Host::plugin() const
{
    return ExtensionSystemCore::instance()->findPlugin(QLatin1String("ZORV VKT Plugin"));
}

QWidget* Host::chooseGenerator()
{
    Qtilities::CoreGui::Interfaces::IActionManager* const actions =
        QtilitiesApplication::actionManager();
    QMenu* const tools = actions->menu(QLatin1String("Tools"))->menu();
    QAction* const entry = actions->command(QLatin1String("Tools.FcfGenerator"))->action();
    tools->popup(QPoint(0, 0));
    QTest::mouseClick(tools, Qt::LeftButton, Qt::NoModifier, tools->actionGeometry(entry).center());
    return generatorWindows().count() == 1 ? generatorWindows().first() : nullptr;
}

QList<QWidget*> Host::generatorWindows()
{
    QList<QWidget*> windows;
    foreach (QWidget* widget, QApplication::topLevelWidgets()) {
        if (widget->isVisible() && widget->inherits("PelkFcfGenerator"))
            windows.append(widget);
    }
    return windows;
}

QStringList Host::takeMessages()
{
    const QStringList messages = m_messages;
    m_messages.clear();
    return messages;
}

void Host::notePooled(QObject* object)
{
    m_pooledClasses.append(QString::fromLatin1(object->metaObject()->className()));
}

void Host::noteMessage(Logger::MessageType type, const QString& text)
{
    m_messages.append(QString::number(type) + QLatin1Char(' ') + text);
}

QList<QObject*> Host::registered(const char* identifier)
{
    return QtilitiesApplication::objectManager()->registeredInterfaces(QLatin1String(identifier));
}

bool waitFor(const std::function<bool()>& condition)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > 60000)
            return false;
        QTest::qWait(1);
    }
    return true;
}

void press(const QWidget* window, const char* name)
{
    QTest::mouseClick(find<QWidget>(window, name), Qt::LeftButton);
}

void enter(const QWidget* window, const char* name, const QString& text)
{
    QWidget* const widget = find<QWidget>(window, name);
    if (QLineEdit* const line = qobject_cast<QLineEdit*>(widget)) {
        line->selectAll();
        line->insert(text);
    } else if (QTextEdit* const memo = qobject_cast<QTextEdit*>(widget)) {
        memo->selectAll();
        memo->insertPlainText(text);
    } else {
        qFatal("%s takes no text", name);
    }
}

QString textOf(const QWidget* window, const char* name)
{
    const QWidget* const widget = find<QWidget>(window, name);
    if (const QTextEdit* const memo = qobject_cast<const QTextEdit*>(widget))
        return memo->toPlainText();
    return widget->property("text").toString();
}

void choose(const QWidget* window, const char* name, const QString& text)
{
    QComboBox* const box = find<QComboBox>(window, name);
    QTest::keyClick(box, Qt::Key_Home);
    for (int index = box->findText(text); index > 0; --index)
        QTest::keyClick(box, Qt::Key_Down);
    if (box->currentText() != text)
        qFatal("%s has no item %s", name, qPrintable(text));
}

QStringList itemsOf(const QWidget* window, const char* name)
{
    const QComboBox* const box = find<QComboBox>(window, name);
    QStringList items;
    for (int index = 0; index < box->count(); ++index)
        items.append(box->itemText(index));
    return items;
}

void clearForm(const QWidget* window)
{
    window->findChild<QAction*>(QLatin1String("actionNew"))->trigger();
}

#include "moc_Host.cpp"
