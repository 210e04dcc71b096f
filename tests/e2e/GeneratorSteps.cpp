#include "e2e/GeneratorSteps.h"

#include <QComboBox>
#include <QLabel>
#include <QTextEdit>
#include <QToolButton>
#include <QtTest>

using UserActions::find;
using UserActions::require;

GeneratorSteps::GeneratorSteps(ModalAnswer* dialogs)
    : m_dialogs(dialogs), m_window(UserActions::window("PelkFcfGenerator"))
{
}

void GeneratorSteps::chooseBinary(const QString& path)
{
    m_dialogs->choose(path);
    UserActions::click(m_window, "btnLoad");
    expect("StatusBar", "Loaded " + path + " successfully.");
}

void GeneratorSteps::load(const QString& companion)
{
    m_dialogs->choose(companion);
    UserActions::chooseFromMenuBar(m_window, "File", "Load");
    expect("StatusBar", "<font color='green'>Loaded " + companion + " successfully.</font>");
}

void GeneratorSteps::unfoldFunctions()
{
    const auto arrows =
        find<QWidget>(m_window, "widgetFunctionDetailsHolder")->findChildren<QToolButton*>();
    require(arrows.size() == 1, "The function list cannot be unfolded.");
    QTest::mouseClick(arrows.first(), Qt::LeftButton);
    require(find<QWidget>(m_window, "widgetFunctions")->isVisible(),
            "The function list stays folded.");
}

void GeneratorSteps::addFunction(const QString& name, const QString& author,
                                 const QString& description)
{
    const int count = find<QComboBox>(m_window, "FunctionComboBox")->count();
    UserActions::click(m_window, "AddNewFunction");
    type("EditFunctionName", name);
    type("AuthorFunctions", author);
    UserActions::write(m_window, "DescriptionMemoFunctions", description);
    type("CiNumberEditBoxFunctions", QString("F-%1").arg(count + 1));
    UserActions::click(m_window, "UploadFunctionButton");
    require(find<QComboBox>(m_window, "FunctionComboBox")->count() == count + 1,
            "The function \"" + name + "\" is not in the list.");
}

void GeneratorSteps::selectTarget(const QString& module, const QString& device, const QString& slot)
{
    UserActions::select(m_window, "ModuleComboBox", module);
    UserActions::select(m_window, "FpgaComboBox", device);
    UserActions::select(m_window, "ConfigComboBox", slot);
}

void GeneratorSteps::generate(bool overwriting)
{
    if (overwriting)
        m_dialogs->click(QMessageBox::Yes);
    UserActions::click(m_window, "GenerateButton");
    if (m_window)
        expect("StatusBar", "<font color='green'>Successfully generated output files.</font>");
    require(QTest::qWaitFor([this] { return !m_window || !m_window->isVisible(); },
                            UserActions::TimeoutMs),
            "The generator stays open.");
    require(m_dialogs->allGiven(), "These message boxes came up instead of the expected ones: " +
                                       m_dialogs->texts().join(" | "));
}

void GeneratorSteps::expect(const char* widget, const QString& text) const
{
    const QWidget* const found = find<QWidget>(m_window, widget);
    const auto* const memo = qobject_cast<const QTextEdit*>(found);
    const char* const property = qobject_cast<const QComboBox*>(found) ? "currentText" : "text";
    const QString shown = memo ? memo->toPlainText() : found->property(property).toString();
    require(shown == text, QString("\"%1\" shows \"%2\" and not \"%3\".").arg(widget, shown, text));
}

void GeneratorSteps::expectFunctions(const QStringList& names) const
{
    const auto* const list = find<QComboBox>(m_window, "FunctionComboBox");
    QStringList shown;
    for (int i = 0; i < list->count(); ++i)
        shown << list->itemText(i);
    require(shown == names, "The functions are " + shown.join(", ") + '.');
}
