#ifndef TESTS_TOOLKIT_HOST_H
#define TESTS_TOOLKIT_HOST_H

#include "support/FindWidget.h"
#include "support/WorkFolder.h"

#include <QtilitiesExtensionSystem/IPlugin.h>
#include <QtilitiesLogging/Logger.h>

#include <QList>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <QWidget>

#include <functional>

/// The host of the one plug-in. The framework loads it once in a program's life.
class Host : public QObject {
    Q_OBJECT

    // As the logger's signal has it.
    typedef Qtilities::Logging::Logger Logger;

public:
    /// Starts the framework with the libraries in \p plugin_folder.
    explicit Host(const QString& plugin_folder);

    static Host* instance();

    /// Null when the framework has not started the plug-in.
    Qtilities::ExtensionSystem::Interfaces::IPlugin* plugin() const;

    /// The classes of the objects that the plug-in has put into the pool, in that order.
    QStringList pooledClasses() const { return m_pooledClasses; }

    /// The one object of the pool that a cast to \p Interface accepts, or null.
    template <typename Interface>
    static Interface* pooled()
    {
        const QList<QObject*> objects = registered(qobject_interface_iid<Interface*>());
        return objects.count() == 1 ? qobject_cast<Interface*>(objects.first()) : nullptr;
    }

    /// Chooses "Pelk FCF Generator" from the Tools menu with the mouse, and returns the window.
    QWidget* chooseGenerator();

    /// The generator windows that are open.
    static QList<QWidget*> generatorWindows();

    /// "TYPE text" of each message since the last call.
    QStringList takeMessages();

private Q_SLOTS:
    void notePooled(QObject* object);
    void noteMessage(Logger::MessageType type, const QString& text);

private:
    static QList<QObject*> registered(const char* identifier);

    QStringList m_pooledClasses;
    QStringList m_messages;
};

/// Lets events run until \p condition is true. Returns false when it is still not after a minute.
bool waitFor(const std::function<bool()>& condition);

/// Presses the button named \p name with the mouse.
void press(const QWidget* window, const char* name);

/// Replaces the text of the line or text edit named \p name, as a person pastes it.
void enter(const QWidget* window, const char* name, const QString& text);

/// The text of the line edit, text edit or label named \p name.
QString textOf(const QWidget* window, const char* name);

/// Selects the item \p text of the combo box named \p name with the keys.
void choose(const QWidget* window, const char* name, const QString& text);
QStringList itemsOf(const QWidget* window, const char* name);

/// Brings the form back to what it is in a new window, but for the target.
void clearForm(const QWidget* window);

#endif
