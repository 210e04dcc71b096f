#ifndef TESTS_GENERATOR_MODEL_GENERATORWINDOW_H
#define TESTS_GENERATOR_MODEL_GENERATORWINDOW_H

#include "generator/model/DiskModel.h"
#include "generator/model/GeneratorState.h"

#include <QMap>
#include <QString>

class PelkFcfGenerator;
class QDialog;
class QLineEdit;
class QTextEdit;
class QWidget;

/// The real window by the names of its widgets.
class GeneratorWindow {
public:
    explicit GeneratorWindow(PelkFcfGenerator* window) : m_window(window) {}

    QWidget* widget(WidgetName name) const;
    QLineEdit* lineEdit(WidgetName name) const;
    QTextEdit* textEdit(WidgetName name) const;

    GeneratorState state() const;

    /// Sets the text of an edit, as a program does.
    void setText(WidgetName name, const QString& text);
    /// Replaces the text of an edit in one go, as by pasting.
    void enter(WidgetName name, const QString& text);
    /// Goes to a row of a combo box with the keys; to none for -1.
    void choose(WidgetName name, int row);
    /// Clicks on what folds and unfolds the functions.
    void foldFunctions();

    /// Gives the focus to a widget that no rule is about.
    static void focus(PelkFcfGenerator* window);

    /// Everything of a box or a file dialog that its user can see. \p window is called so where it
    /// is the parent.
    static QString description(QDialog* dialog, const PelkFcfGenerator* window);

private:
    WidgetState stateOf(QWidget* widget) const;

    PelkFcfGenerator* m_window;
};

/// The files of a run as they are.
namespace WorkingFolder {

/// Removes \p folder with all that is in it.
void remove(const QString& folder);

void write(const QString& file, const QByteArray& bytes);
void makePipe(const QString& file);

/// Entries that are no files have a negative size.
FileState stateOf(const DiskEntry& entry);
QMap<QString, FileState> files(const QString& folder);

/// The first file that differs, and how; empty for none.
QString difference(const QMap<QString, FileState>& expected, const QMap<QString, FileState>& found);

} // namespace WorkingFolder

#endif
