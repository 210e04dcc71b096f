#ifndef HOST_APP_OPENDESIGNDIALOG_H
#define HOST_APP_OPENDESIGNDIALOG_H

#include <QFileDialog>

/// Chooses a design: its description, or the folder that has one.
class OpenDesignDialog : public QFileDialog {
    Q_OBJECT

public:
    /// The chosen path; empty when the user cancels.
    static QString choose(QWidget* parent);

protected:
    void accept() override;

private:
    explicit OpenDesignDialog(QWidget* parent);
};

#endif
