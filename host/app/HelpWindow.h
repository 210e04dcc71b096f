#ifndef HOST_APP_HELPWINDOW_H
#define HOST_APP_HELPWINDOW_H

#include <QMainWindow>

class QTextBrowser;

/// Shows the guide, which is part of the program.
class HelpWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit HelpWindow(QWidget* parent = nullptr);

private:
    QTextBrowser* m_browser;
};

#endif
