#ifndef HOST_APP_GUIDEWINDOW_H
#define HOST_APP_GUIDEWINDOW_H

#include <QMainWindow>

/// Shows the guide, which is part of the program. Deletes itself when it is closed.
///
/// For drivers: "HelpWindow", "HelpBrowser".
class GuideWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit GuideWindow(QWidget* parent);
};

#endif
