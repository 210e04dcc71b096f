#ifndef TESTS_GENERATOR_GENERATORDRIVER_H
#define TESTS_GENERATOR_GENERATORDRIVER_H

#include "generator/PelkFcfGenerator.h"
#include "support/ModalAnswer.h"

#include <QtilitiesLogging/Logger.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTextEdit>

#include <memory>

struct FcfHeader;

/// One real generator window, used by keys and mouse, with a folder to work in.
///
/// After each action the function list in memory is compared with what the form lists.
class GeneratorDriver : public QObject {
    Q_OBJECT

public:
    /// A window that is shown, with its function list unfolded and its clock at 2026-11-21
    /// 09:05:07.
    GeneratorDriver();

    /// Closes the window for good and opens a fresh one.
    void reopen();

    PelkFcfGenerator* window() const { return m_window.get(); }
    ModalAnswer& dialogs() { return m_dialogs; }

    template <class Widget>
    Widget* find(const char* name) const
    {
        auto* const widget = m_window->findChild<Widget*>(name);
        if (!widget)
            qFatal("The window has no %s", name);
        return widget;
    }

    /// The text of the line edit, label, text edit or combo box \p name.
    QString text(const char* name) const;
    /// What is in the editor of functions: name, author, description, CI number.
    QStringList editor() const;
    QStringList items(const char* comboBox) const;
    QStringList functionNames() const { return items("FunctionComboBox"); }

    void click(const char* button);
    /// Replaces the text of a line edit or text edit by typing.
    void type(const char* field, const QString& text);
    void select(const char* comboBox, int index);
    void chooseFromFileMenu(const QString& entry);
    void upload(const QString& name, const QString& author, const QString& description,
                const QString& ciNumber);
    /// Fills in what Generate asks for: \p binary, an author and a CI number.
    void fillIn(const QString& binary);

    /// A path in the working folder.
    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// Writes a binary of \p bytes bytes and returns its path.
    QString binary(const QString& name, int bytes) const;
    /// Writes a file and returns its path.
    QString write(const QString& name, const QByteArray& bytes) const;
    /// Writes a companion, or an image without payload, and returns its path.
    QString writeHeader(const QString& name, const FcfHeader& header) const;
    QByteArray content(const QString& path) const;
    bool exists(const QString& path) const;

    /// The first action after which memory and form did not agree, and how; empty for none.
    QString listFault() const { return m_listFault; }
    /// For what no action of a user does: memory and form may disagree from now on.
    void allowListFaults() { m_comparesLists = false; }

    /// Kinds and texts of the priority messages, as "2 text".
    QStringList log() const { return m_log; }

private:
    void compareLists(const QString& action);

    QTemporaryDir m_folder;
    std::unique_ptr<PelkFcfGenerator> m_window;
    ModalAnswer m_dialogs;
    QStringList m_log;
    QString m_listFault;
    bool m_comparesLists = true;
};

#endif
