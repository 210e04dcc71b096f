#include "host/app/image/TargetDialog.h"

#include "fcf/FcfTarget.h"
#include "host/app/common/WheelGuard.h"
#include "ui_TargetDialog.h"

#include <QPushButton>

TargetDialog::TargetDialog(const QString& imageName, const ImageTarget& known, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::TargetDialog)
{
    m_ui->setupUi(this);
    guardWheel(this);
    m_ui->question->setText(tr("For which target is %1? Neither the properties of the design nor "
                               "the codes in the image say so.")
                                .arg(imageName));

    m_ui->TargetModule->addItems(FcfTarget::modules());
    m_ui->TargetModule->setCurrentIndex(m_ui->TargetModule->findText(known.module));
    showDevices();
    m_ui->TargetDevice->setCurrentIndex(m_ui->TargetDevice->findText(known.device));
    for (int slot = FcfTarget::FirstSlot; slot <= FcfTarget::LastSlot; ++slot)
        m_ui->TargetSlot->addItem(QString::number(slot), slot);
    m_ui->TargetSlot->setCurrentIndex(m_ui->TargetSlot->findData(known.slot));

    const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_ui->TargetModule, changed, this, &TargetDialog::showDevices);
    connect(m_ui->TargetModule, changed, this, &TargetDialog::check);
    connect(m_ui->TargetDevice, changed, this, &TargetDialog::check);
    connect(m_ui->TargetSlot, changed, this, &TargetDialog::check);
    check();
}

TargetDialog::~TargetDialog() = default;

ImageTarget TargetDialog::target() const
{
    ImageTarget target;
    target.module = m_ui->TargetModule->currentText();
    target.device = m_ui->TargetDevice->currentText();
    target.slot = m_ui->TargetSlot->currentData().toInt();
    return target;
}

void TargetDialog::showDevices()
{
    const QStringList devices = FcfTarget::devicesOf(m_ui->TargetModule->currentText());
    m_ui->TargetDevice->clear();
    m_ui->TargetDevice->addItems(devices);
    // A single device is no choice.
    m_ui->TargetDevice->setCurrentIndex(devices.count() == 1 ? 0 : -1);
}

void TargetDialog::check()
{
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(target().isComplete());
}
