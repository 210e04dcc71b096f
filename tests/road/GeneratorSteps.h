#ifndef TESTS_ROAD_GENERATORSTEPS_H
#define TESTS_ROAD_GENERATORSTEPS_H

#include "Hands.h"

#include "support/ModalAnswer.h"

#include <QPointer>

/// What a person does in one generator window.
class GeneratorSteps {
public:
    /// Takes the generator window that is open, or waits for one.
    explicit GeneratorSteps(ModalAnswer* dialogs);

    void chooseBinary(const QString& path);
    void load(const QString& companion);
    void unfoldFunctions();
    void addFunction(const QString& name, const QString& author, const QString& description);
    void selectTarget(const QString& module, const QString& device, const QString& slot);
    void type(const char* field, const QString& text) { Hands::type(m_window, field, text); }
    void describe(const QString& text) { Hands::write(m_window, "DescriptionMemo", text); }
    /// Presses Generate, answering Yes if \p overwriting, and waits for the window to close.
    void generate(bool overwriting);
    void cancel() { Hands::click(m_window, "btnCancel"); }

    /// Requires the text of a field, label, memo or combo box to be \p text.
    void expect(const char* widget, const QString& text) const;
    void expectFunctions(const QStringList& names) const;

private:
    ModalAnswer* m_dialogs;
    QPointer<QWidget> m_window;
};

#endif
