#ifndef HOST_APP_IMAGE_TARGETDIALOG_H
#define HOST_APP_IMAGE_TARGETDIALOG_H

#include "host/app/image/ImageTarget.h"

#include <QDialog>

#include <memory>

namespace Ui {
class TargetDialog;
}

/// Asks for the target of an image that neither its design nor its codes give.
///
/// For drivers: "TargetModule", "TargetDevice", "TargetSlot".
class TargetDialog : public QDialog {
    Q_OBJECT

public:
    /// Offers what is known of the target, \p known, for the image of the name \p imageName.
    TargetDialog(const QString& imageName, const ImageTarget& known, QWidget* parent);
    ~TargetDialog() override;

    ImageTarget target() const;

private:
    void showDevices();
    void check();

    std::unique_ptr<Ui::TargetDialog> m_ui;
};

#endif
