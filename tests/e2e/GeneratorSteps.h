#ifndef TESTS_E2E_GENERATORSTEPS_H
#define TESTS_E2E_GENERATORSTEPS_H

#include "e2e/UserActions.h"

#include "support/ModalAnswer.h"

#include <QPointer>

/// What a user does in one generator window.
class GeneratorSteps {
public:
    /// Waits for a generator window, unless one is open.
    explicit GeneratorSteps(ModalAnswer* dialogs);

    void chooseBinary(const QString& path);
    void load(const QString& companion);
    void unfoldFunctions();
    void addFunction(const QString& name, const QString& author, const QString& description);
    void selectTarget(const QString& module, const QString& device, const QString& slot);
    void type(const char* field, const QString& text) { UserActions::type(m_window, field, text); }
    void describe(const QString& text) { UserActions::write(m_window, "DescriptionMemo", text); }
    /// Presses Generate, answering Yes if \p overwriting, and waits for the window to close.
    void generate(bool overwriting);
    void cancel() { UserActions::click(m_window, "btnCancel"); }

    /// Requires the text of a field, label, memo or combo box to be \p text.
    void expect(const char* widget, const QString& text) const;
    void expectFunctions(const QStringList& names) const;

private:
    ModalAnswer* m_dialogs;
    QPointer<QWidget> m_window;
};

#endif
