#include "generator/PelkFcfGenerator.h"

#include "fcf/FcfTarget.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "generator/FileDrop.h"
#include "generator/FormFit.h"
#include "generator/MenuKey.h"

#include "ui_PelkFcfGenerator.h"

#include <QtCreatorUtilities/DetailsWidget.h>

#include <QVBoxLayout>

using QtCreatorUtilities::DetailsWidget;

namespace {

/// One object for all windows, since it has no state.
QScopedPointer<PelkFcfGeneratorFileInfo> fileInfo;

/// Selects the item with exactly the text \p text; an unknown one changes nothing.
void selectText(QComboBox* box, const QString& text)
{
    const int index = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index >= 0)
        box->setCurrentIndex(index);
}

/// Puts what \a panel itself offers to the keyboard (to fold, say) right behind \a previous in the
/// tab order. Made after the form, it would come last.
void putIntoTabOrder(const DetailsWidget* panel, QWidget* previous)
{
    const QList<QWidget*> widgets = panel->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool ofBody = panel->widget() == widget || panel->widget()->isAncestorOf(widget);
        if (ofBody || !(widget->focusPolicy() & Qt::TabFocus))
            continue;
        QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}

} // namespace

PelkFcfGenerator::PelkFcfGenerator(QWidget* parent)
    : QMainWindow(parent), ui(new Ui_PelkFcfGenerator), m_clock(&QDateTime::currentDateTime),
      functionsDetails(nullptr), targetDetails(nullptr), moduleCode(0), deviceCode(0)
{
    ui->setupUi(this);
    fileInfo.reset(new PelkFcfGeneratorFileInfo);

    listTargets();
    connectWidgets();

    functionsDetails = foldInto(ui->widgetFunctionDetailsHolder, ui->widgetFunctions,
                                tr("<b>Functions In Build:</b>"));
    targetDetails = foldInto(ui->widgetTargetDetailsHolder, ui->widgetTargetSettings,
                             tr("<b>Target Flash Location:</b>"));
    targetDetails->setState(DetailsWidget::Expanded);

    putIntoTabOrder(targetDetails, ui->DescriptionMemo);
    putIntoTabOrder(functionsDetails, ui->ConfigComboBox);

    new FormFit(this, ui->formArea,
                QList<QWidget*>() << ui->widgetTargetSettings << ui->widgetFunctions);
    new FileDrop(this);
    new MenuKey(ui->menuBar, ui->menuFile->menuAction());
}

PelkFcfGenerator::~PelkFcfGenerator() {}

void PelkFcfGenerator::listTargets()
{
    ui->ModuleComboBox->addItems(FcfTarget::modules());
    updateComboBoxFPGA();
    for (int slot = FcfTarget::FirstSlot; slot <= FcfTarget::LastSlot; ++slot)
        ui->ConfigComboBox->addItem(QString::number(slot));
}

void PelkFcfGenerator::connectWidgets()
{
    connect(ui->ModuleComboBox, SIGNAL(currentIndexChanged(int)), SLOT(updateComboBoxFPGA()));
    connect(ui->btnLoad, SIGNAL(clicked()), SLOT(openFileDialog()));
    connect(ui->GenerateButton, SIGNAL(clicked()), SLOT(generateButtonClick()));
    connect(ui->btnRemove, SIGNAL(clicked()), SLOT(btnRemove_clicked()));
    connect(ui->AddNewFunction, SIGNAL(clicked()), SLOT(addNewFuction()));
    connect(ui->actionNew, SIGNAL(triggered()), SLOT(addNew()));
    connect(ui->ModifyFunctionCheckBox, SIGNAL(clicked()), SLOT(modifyFunctionsCheckBoxClick()));
    connect(ui->DescriptionMemo, SIGNAL(textChanged()), SLOT(DescriptionMemoExit()));
    connect(ui->UploadFunctionButton, SIGNAL(clicked()), SLOT(uploadFunctionButtonClick()));
    connect(ui->actionLoad, SIGNAL(triggered()), SLOT(fileOpenAccept()));
    connect(ui->FunctionComboBox, SIGNAL(currentIndexChanged(int)), SLOT(displayFunctionInfo(int)));
}

DetailsWidget* PelkFcfGenerator::foldInto(QWidget* holder, QWidget* body, const QString& summary)
{
    delete holder->layout();
    QVBoxLayout* const layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);

    DetailsWidget* const details = new DetailsWidget;
    layout->addWidget(details);
    details->setWidget(body);
    details->setSummaryText(summary);
    return details;
}

void PelkFcfGenerator::setClock(const FcfClock& clock) { m_clock = clock; }

void PelkFcfGenerator::setModule(const QString& module) { selectText(ui->ModuleComboBox, module); }

QString PelkFcfGenerator::getModule() const { return ui->ModuleComboBox->currentText(); }

void PelkFcfGenerator::setDevice(const QString& device) { selectText(ui->FpgaComboBox, device); }

QString PelkFcfGenerator::getDevice() const { return ui->FpgaComboBox->currentText(); }

void PelkFcfGenerator::setConfigNum(int number)
{
    selectText(ui->ConfigComboBox, QString::number(number));
}

int PelkFcfGenerator::getConfigNum() const { return ui->ConfigComboBox->currentText().toInt(); }

void PelkFcfGenerator::setVersion(int major, int minor)
{
    ui->MajorVerEditBox->setText(QString::number(major));
    ui->MinorVerEditBox->setText(QString::number(minor));
}

void PelkFcfGenerator::setAuthor(const QString& author) { ui->AuthoEditBox->setText(author); }

void PelkFcfGenerator::setCINumber(const QString& number) { ui->CiNumEditBox->setText(number); }

void PelkFcfGenerator::setDescription(const QString& description)
{
    ui->DescriptionMemo->setPlainText(description);
}

void PelkFcfGenerator::setBinFile(const QString& path)
{
    ui->txtInputFile->setText(path);
    displayBinFileSizeInfo(path);
}

void PelkFcfGenerator::displayBinFileSizeInfo(const QString& path)
{
    const qint64 size = fileInfo->getFileSize(path);
    m_sizes = fileInfo->measure(size);
    ui->BinFileSize->setText(QString::number(size) + tr("  Bytes"));
    ui->BinFilePages->setText(QString::number(m_sizes.binPages) + tr(" Pages"));
    ui->BinFileBlocks->setText(QString::number(m_sizes.binBlocks) + tr(" blocks"));
}

void PelkFcfGenerator::updateComboBoxFPGA()
{
    ui->FpgaComboBox->clear();
    ui->FpgaComboBox->addItems(FcfTarget::devicesOf(getModule()));
}

void PelkFcfGenerator::clearScreen()
{
    ui->txtInputFile->clear();
    ui->AuthoEditBox->clear();
    ui->CiNumEditBox->clear();
    ui->MajorVerEditBox->clear();
    ui->MinorVerEditBox->clear();
    ui->DescriptionMemo->clear();
    ui->FunctionComboBox->clear();
    clearFunctionFields();
    ui->StatusBar->clear();
    ui->StatusBar->setToolTip(QString());
    ui->BinFileSize->clear();
    ui->BinFilePages->clear();
    ui->BinFileBlocks->clear();
    ui->finalPages->clear();
    ui->finalBlocks->clear();
    ui->finalSize->clear();
}

void PelkFcfGenerator::bringToFront()
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    // A covered window would come up without it, but the keyboard would stay with the other one.
    activateWindow();
}

void PelkFcfGenerator::on_btnCancel_clicked() { close(); }
