#ifndef GENERATOR_GENERATORDIALOGS_H
#define GENERATOR_GENERATORDIALOGS_H

#include <QMessageBox>
#include <QString>

/// The modal boxes of the generator window. They have no parent, and each call returns once the
/// user has answered. A window that is closed meanwhile is deleted only afterwards.
namespace GeneratorDialogs {

/// Shows \p text until the user confirms it.
void inform(QObject* window, const QString& text);

/// Asks \p text with the buttons Yes and No, of which \p defaultButton answers Enter. Closing the
/// box answers No.
QMessageBox::StandardButton ask(QObject* window, const QString& text,
                                QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace GeneratorDialogs

#endif
