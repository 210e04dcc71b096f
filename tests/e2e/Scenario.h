#ifndef TESTS_E2E_SCENARIO_H
#define TESTS_E2E_SCENARIO_H

#include "e2e/UserActions.h"

#include "support/ModalAnswer.h"

#include <functional>

/// What a user does with the host's real menus and windows, from the sample binary to checked
/// images and a configuration package.
class Scenario {
public:
    /// \p design is the folder of the design that the host has open, \p screenshot may be empty.
    Scenario(const QString& design, const QString& screenshot);

    /// Throws StepFailed at the first step whose result is not the expected one.
    void run();
    /// Checks what the host must remember after it was closed and started again.
    void runAfterRestart();

    /// What was made so far.
    QString report() const { return m_report; }

private:
    /// From the Tools menu: an image with two functions, which is then loaded and made again.
    void makeImageFromToolsMenu();
    void remakeImageFromItsCompanion();
    /// From the design: an image whose files become the design's own.
    void makeImageFromDesign();
    void checkDesignView();
    void saveDesign();
    void openCompanionFromDesign();
    /// A configuration package of the design, named by the plug-in's form.
    void archiveDesign();
    void makePackage(QWidget* dialog);
    /// Opens the archive dialog and calls \p use with it, which may throw StepFailed.
    void withArchiveDialog(const std::function<void(QWidget*)>& use);
    void takeScreenshot() const;
    void addToReport(const QString& title, const QString& text);

    QString path(const char* name) const;

    QString m_design;
    QString m_binary;
    QString m_screenshot;
    QString m_report;
    ModalAnswer m_dialogs;
    QWidget* m_host = nullptr;
};

#endif
