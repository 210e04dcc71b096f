#include "host/app/archive/ArchiveDialog.h"

#include "host/app/archive/ArchiveJob.h"
#include "ui_ArchiveDialog.h"

#include "host/app/common/PlainMessageBox.h"

#include <OrvanticCore/IDesign.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>
#include <QtilitiesLogging/Logger.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPushButton>

using OrvanticCore::IDesign;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::Interfaces::IObjectManager;
using Qtilities::Logging::Logger;

namespace {

using Extension = ArchiveType::Extension;

const Extension::ArchiveItemFlags Everything =
    Extension::ArchiveItemFlags(Extension::SourceFiles) | Extension::DesignFolders |
    Extension::GeneratedFiles | Extension::ExternalFiles | Extension::DesignDescription;

void logInfo(const QString& text)
{
    Logger::instance()->logPriorityMessage(QString(), Logger::Info, text);
}

} // namespace

ArchiveDialog::ArchiveDialog(IDesign* design, const Description& description, QWidget* parent)
    : DesignArchiveOutputParserDialog(parent), m_ui(new Ui::ArchiveDialog), m_design(design),
      m_designObject(design ? design->objectBase() : nullptr), m_description(description)
{
    buildForm();
    m_plainDestination = destination().proposal(currentFormat());
    m_plainItems = Everything;
    loadTypes();
    connectForm();
    enterType();
}

ArchiveDialog::~ArchiveDialog()
{
    m_job.reset();
    leaveType();
    for (const ArchiveType& type : m_types) {
        if (Extension* const extension = type.extension())
            extension->setArchiveDialogWidget(nullptr);
    }
}

void ArchiveDialog::buildForm()
{
    m_ui->setupUi(this);
    m_archiveButton = m_ui->buttonBox->addButton(tr("&Archive"), QDialogButtonBox::AcceptRole);
    m_archiveButton->setObjectName("archiveButton");
    m_archiveButton->setDefault(true);
    for (const ArchiveFormat format : ArchiveFormats::all())
        m_ui->formatBox->addItem(ArchiveFormats::label(format), static_cast<int>(format));
    m_ui->progressBar->setMaximum(ArchiveJob::Whole);
}

void ArchiveDialog::loadTypes()
{
    m_types = archiveTypesFor(design());
    for (const ArchiveType& type : m_types) {
        if (Extension* const extension = type.extension())
            extension->setArchiveDialogWidget(this);
        m_ui->typeBox->addItem(type.name());
    }
}

void ArchiveDialog::connectForm()
{
    const auto changed = QOverload<int>::of(&QComboBox::currentIndexChanged);
    connect(m_ui->typeBox, changed, this, &ArchiveDialog::changeType);
    connect(m_ui->formatBox, changed, this, &ArchiveDialog::changeFormat);
    connect(m_ui->appendVersion, &QCheckBox::toggled, this, &ArchiveDialog::changeVersionSuffix);
    connect(m_ui->browseButton, &QPushButton::clicked, this, &ArchiveDialog::browse);
    connect(m_ui->destinationPath, &QLineEdit::textEdited, this, &ArchiveDialog::changeDestination);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &ArchiveDialog::archive);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &ArchiveDialog::reject);
    connect(QtilitiesCoreApplication::objectManager(), &IObjectManager::objectRemoved, this,
            &ArchiveDialog::handleObjectRemoved);
    if (m_designObject)
        connect(m_designObject, &QObject::destroyed, this, &ArchiveDialog::updateState);
}

QString ArchiveDialog::currentExtension() const
{
    return ArchiveFormats::extension(currentFormat());
}

IDesign* ArchiveDialog::design() const { return m_designObject ? m_design : nullptr; }

void ArchiveDialog::setAppendVersionCheckboxVisible(bool visible)
{
    m_ui->appendVersion->setVisible(visible);
}

void ArchiveDialog::setDestinationPathReadOnly(bool read_only)
{
    m_ui->destinationPath->setReadOnly(read_only);
    QPalette colours = palette();
    if (read_only)
        colours.setBrush(QPalette::Base, colours.window());
    m_ui->destinationPath->setPalette(colours);
    m_ui->browseButton->setHidden(read_only);
}

void ArchiveDialog::setIncludedItemsGroupboxVisible(bool visible)
{
    m_ui->includedItems->setVisible(visible);
}

void ArchiveDialog::changeType(int index)
{
    leaveType();
    m_current = static_cast<std::size_t>(index);
    enterType();
    fitHeight();
}

void ArchiveDialog::enterType()
{
    setAppendVersionCheckboxVisible(true);
    setDestinationPathReadOnly(false);
    setIncludedItemsGroupboxVisible(true);
    setIncludedItems(m_plainItems);
    QString path = m_plainDestination;
    if (Extension* const extension = currentType().extension()) {
        enterExtension(extension, currentType().object());
        const QString wanted = extension->destinationPathOnActivation();
        path = wanted.isEmpty() ? path : wanted;
    }
    // The format may be another one than when the path was built.
    showDestination(destination().withFormat(path, currentFormat()));
}

void ArchiveDialog::enterExtension(Extension* extension, QObject* object)
{
    connect(object, SIGNAL(destinationPathChanged(QString)), this,
            SLOT(followDestinationPath(QString)));
    setIncludedItems(extension->archiveDesignItems());
    extension->updateArchiveDialogWidget();
    m_extensionWidget = extension->extensionWidget();
    if (!m_extensionWidget)
        return;
    m_ui->extensionLayout->addWidget(m_extensionWidget);
    m_extensionWidget->show();
}

void ArchiveDialog::leaveType()
{
    if (currentType().isPlain()) {
        m_plainDestination = m_ui->destinationPath->text();
        m_plainItems = includedItems();
    }
    if (QObject* const object = currentType().object())
        disconnect(object, nullptr, this, nullptr);
    if (m_extensionWidget) {
        m_ui->extensionLayout->removeWidget(m_extensionWidget);
        m_extensionWidget->hide();
        m_extensionWidget->setParent(nullptr);
        m_extensionWidget = nullptr;
    }
}

void ArchiveDialog::fitHeight()
{
    m_ui->contentLayout->activate();
    layout()->activate();
    resize(width(), sizeHint().height());
}

void ArchiveDialog::handleObjectRemoved(QObject* object)
{
    // A form that is about to be gone leaves its place by itself.
    if (m_extensionWidget == object && !qobject_cast<Extension*>(object))
        m_extensionWidget = nullptr;
    for (std::size_t index = m_types.size() - 1; index > 0; --index) {
        const bool isDeleted = !m_types.at(index).object();
        if (!isDeleted && m_types.at(index).object() != object)
            continue;
        const int row = static_cast<int>(index);
        if (m_current == index)
            m_ui->typeBox->setCurrentIndex(0);
        if (Extension* const extension = m_types.at(index).extension())
            extension->setArchiveDialogWidget(nullptr);
        m_types.erase(m_types.begin() + row);
        const QSignalBlocker blocker(m_ui->typeBox);
        m_ui->typeBox->removeItem(row);
        m_current = static_cast<std::size_t>(m_ui->typeBox->currentIndex());
    }
}

void ArchiveDialog::changeFormat()
{
    changeDestination(destination().withFormat(m_ui->destinationPath->text(), currentFormat()));
}

void ArchiveDialog::changeVersionSuffix(bool present)
{
    changeDestination(destination().withVersion(m_ui->destinationPath->text(), present));
}

void ArchiveDialog::browse()
{
    QFileDialog dialog(this, tr("Choose Destination"),
                       destination().filePath(m_ui->destinationPath->text()));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // Asked when the archive is made, however the path came about.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters({ArchiveFormats::label(currentFormat()), tr("All files (*)")});
    dialog.setDefaultSuffix(currentExtension());
    if (dialog.exec() == QDialog::Accepted)
        changeDestination(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

void ArchiveDialog::changeDestination(const QString& path)
{
    showDestination(path);
    if (Extension* const extension = currentType().extension())
        extension->handleDestinationPathChanged(path);
}

void ArchiveDialog::showDestination(const QString& path)
{
    // Setting the same text would move the cursor of someone who types.
    if (m_ui->destinationPath->text() != path)
        m_ui->destinationPath->setText(path);
    m_ui->stateLabel->clear();
    updateState();
}

void ArchiveDialog::followDestinationPath(const QString& path) { showDestination(path); }

ArchiveFormat ArchiveDialog::currentFormat() const
{
    return static_cast<ArchiveFormat>(m_ui->formatBox->currentData().toInt());
}

ArchiveDestination ArchiveDialog::destination() const
{
    return ArchiveDestination(design(), m_description.name);
}

ArchiveDialog::Items ArchiveDialog::includedItems() const
{
    const Extension* const extension = currentType().extension();
    if (extension && m_ui->includedItems->isHidden())
        return extension->archiveDesignItems();
    Items items;
    items.setFlag(Extension::SourceFiles, m_ui->designFiles->isChecked());
    items.setFlag(Extension::DesignFolders, m_ui->designFolders->isChecked());
    items.setFlag(Extension::GeneratedFiles, m_ui->generatedFiles->isChecked());
    items.setFlag(Extension::ExternalFiles, m_ui->externalFiles->isChecked());
    items.setFlag(Extension::DesignDescription, m_ui->designDescription->isChecked());
    return items;
}

void ArchiveDialog::setIncludedItems(Items items)
{
    m_ui->designFiles->setChecked(items.testFlag(Extension::SourceFiles));
    m_ui->designFolders->setChecked(items.testFlag(Extension::DesignFolders));
    m_ui->generatedFiles->setChecked(items.testFlag(Extension::GeneratedFiles));
    m_ui->externalFiles->setChecked(items.testFlag(Extension::ExternalFiles));
    m_ui->designDescription->setChecked(items.testFlag(Extension::DesignDescription));
}

void ArchiveDialog::archive()
{
    const QString path = destination().filePath(m_ui->destinationPath->text());
    const QFileInfo present(path);
    if (destination().isOfDesign(path)) {
        showError(tr("%1 belongs to the design. Choose another destination.")
                      .arg(QDir::toNativeSeparators(path)));
        return;
    }
    if (present.isFile() && !mayReplace(path))
        return;
    // While the question waited the host may have closed the design.
    if (!design())
        return;

    const Extension* const extension = currentType().extension();
    if (extension && extension->archiveIncludeInstaller())
        logInfo(tr("The archive gets no installer: this host has none."));
    m_job = std::make_unique<ArchiveJob>(ArchiveJob::Order{
        plan(), currentFormat(), path, design()->workingFolderPath(), present.isFile()});
    connect(m_job.get(), &ArchiveJob::progressed, m_ui->progressBar, &QProgressBar::setValue);
    connect(m_job.get(), &ArchiveJob::finished, this, &ArchiveDialog::handleJobFinished);
    m_ui->progressBar->setValue(0);
    m_ui->stateLabel->clear();
    updateState();
    m_job->start();
}

bool ArchiveDialog::mayReplace(const QString& path)
{
    return showBox(QMessageBox::Question,
                   tr("%1 exists already. Replace it?").arg(QDir::toNativeSeparators(path)),
                   QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

ArchivePlan ArchiveDialog::plan() const
{
    const Items items = includedItems();
    ArchivePlan plan(*design(), items);
    if (items.testFlag(Extension::DesignDescription) && !m_description.name.isEmpty())
        plan.setDescription(m_description.name, m_description.text());
    return plan;
}

void ArchiveDialog::reject()
{
    if (m_job)
        m_job->cancel();
    else
        DesignArchiveOutputParserDialog::reject();
}

void ArchiveDialog::handleJobFinished()
{
    const std::unique_ptr<ArchiveJob> job = std::move(m_job);
    job->wait();
    updateState();
    switch (job->outcome()) {
    case ArchiveJob::Written:
        logInfo(tr("The design is archived in %1.")
                    .arg(QDir::toNativeSeparators(job->order().destination)));
        accept();
        break;
    case ArchiveJob::Cancelled:
        m_ui->stateLabel->setText(tr("Cancelled. No archive was made."));
        break;
    default:
        showError(job->error());
    }
}

void ArchiveDialog::showError(const QString& reason)
{
    showBox(QMessageBox::Critical, tr("The design cannot be archived.\n\n%1").arg(reason),
            QMessageBox::Ok, QMessageBox::Ok);
}

int ArchiveDialog::showBox(QMessageBox::Icon icon, const QString& text,
                           QMessageBox::StandardButtons buttons,
                           QMessageBox::StandardButton defaultButton)
{
    return PlainMessageBox(icon, windowTitle(), text, buttons, defaultButton, this).exec();
}

void ArchiveDialog::updateState()
{
    const bool running = m_job != nullptr;
    m_ui->content->setDisabled(running);
    // One in place of the other: both would make the dialog grow.
    m_ui->stateWidgets->setCurrentWidget(running ? static_cast<QWidget*>(m_ui->progressBar)
                                                 : m_ui->stateLabel);
    m_archiveButton->setEnabled(!running && design() && !m_ui->destinationPath->text().isEmpty());
}

void archiveDesign(IDesign* design, const ArchiveDialog::Description& description, QWidget* parent)
{
    ArchiveDialog dialog(design, description, parent);
    dialog.exec();
}
