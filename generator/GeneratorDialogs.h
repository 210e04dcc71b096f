#ifndef GENERATOR_GENERATORDIALOGS_H
#define GENERATOR_GENERATORDIALOGS_H

#include <QString>

class QWidget;

/// The one place through which the generator window speaks to its user in boxes of its own.
///
/// Every call is modal: it returns once the user has answered.
class GeneratorDialogs {
public:
    enum Answer { Yes, No };
    enum DefaultButton { NoDefault, DefaultsToNo };

    GeneratorDialogs() {}
    virtual ~GeneratorDialogs();

    /// Shows \p text until the user confirms it.
    virtual void tell(const QString& text) = 0;

    /// Asks \p text with the buttons Yes and No. Closing the box answers No.
    virtual Answer ask(const QString& text, DefaultButton defaultButton) = 0;

    /// The existing file that the user chose over \p parent, or an empty text.
    virtual QString chooseFile(QWidget* parent, const QString& caption, const QString& start,
                               const QString& filter) = 0;

private:
    Q_DISABLE_COPY(GeneratorDialogs)
};

/// The dialogs of Qt. The boxes have no parent.
class DesktopDialogs : public GeneratorDialogs {
public:
    void tell(const QString& text);
    Answer ask(const QString& text, DefaultButton defaultButton);
    QString chooseFile(QWidget* parent, const QString& caption, const QString& start,
                       const QString& filter);
};

#endif
