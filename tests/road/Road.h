#ifndef TESTS_ROAD_ROAD_H
#define TESTS_ROAD_ROAD_H

#include "Hands.h"

#include "support/ModalAnswer.h"

#include <functional>

/// The way of a person through the host's real menus and windows.
class Road {
public:
    /// \p design is the folder of the design that the host has open, \p screenshot may be empty.
    Road(const QString& design, const QString& screenshot);

    /// Throws a RoadBlock at the first thing that falls short.
    void drive();
    /// What the host must still know after it was ended and started again.
    void driveAfterRestart();

    /// What was made on the way, as far as it was gone.
    QString report() const { return m_report; }

private:
    /// From the Tools menu: an image with two functions, which is loaded again and made anew.
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
    /// Opens the archive dialog and lets \p deal have it, in which a RoadBlock may be thrown.
    void withArchiveDialog(const std::function<void(QWidget*)>& deal);
    void takeScreenshot() const;
    void tell(const QString& title, const QString& text);

    QString path(const char* name) const;

    QString m_design;
    QString m_binary;
    QString m_screenshot;
    QString m_report;
    ModalAnswer m_dialogs;
    QWidget* m_host = nullptr;
};

#endif
