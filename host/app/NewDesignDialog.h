#ifndef HOST_APP_NEWDESIGNDIALOG_H
#define HOST_APP_NEWDESIGNDIALOG_H

#include <QDialog>

#include <memory>

namespace Ui {
class NewDesignDialog;
}

/// Asks where a new design is to be made, and of which type and version.
///
/// For drivers: "NewDesignFolder", "NewDesignType", "NewVersionMajor", "NewVersionMinor".
class NewDesignDialog : public QDialog {
    Q_OBJECT

public:
    explicit NewDesignDialog(const QString& folder, QWidget* parent = nullptr);
    ~NewDesignDialog() override;

    /// An absolute path once the dialog is accepted.
    QString folder() const;
    QString typeName() const;
    int versionMajor() const;
    int versionMinor() const;

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void browse();
    /// Lets only such a folder pass that has no design yet, and says why another does not.
    void check();

    std::unique_ptr<Ui::NewDesignDialog> m_ui;
};

#endif
