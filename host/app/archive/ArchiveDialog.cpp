#include "host/app/archive/ArchiveDialog.h"

#include "host/app/archive/ArchiveExtensions.h"
#include "host/app/archive/ArchiveJob.h"
#include "host/app/archive/ArchivePlan.h"
#include "host/app/common/HostError.h"
#include "host/app/common/WheelGuard.h"
#include "host/app/common/WindowPlace.h"
#include "ui_ArchiveDialog.h"

#include <OrvanticCore/Design.h>

#include <QtilitiesCore/IObjectManager.h>
#include <QtilitiesCore/QtilitiesCoreApplication.h>

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

using OrvanticCore::Design;
using Qtilities::Core::QtilitiesCoreApplication;
using Qtilities::Core::Interfaces::IObjectManager;

namespace {

using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;

const Extension::ArchiveItemFlags Everything =
    Extension::ArchiveItemFlags(Extension::SourceFiles) | Extension::DesignFolders |
    Extension::GeneratedFiles | Extension::ExternalFiles | Extension::DesignDescription;

/// How many rows the list of contents has on a small screen. Elsewhere it has more room.
constexpr int LeastRows = 4;

} // namespace

ArchiveDialog::ArchiveDialog(Design* design, const Description& description, QWidget* parent)
    : DesignArchiveOutputParserDialog(parent), m_ui(new Ui::ArchiveDialog), m_design(design),
      m_description(description)
{
    buildForm();
    m_plainDestination = destination().proposal(currentFormat());
    m_plainItems = Everything;
    loadTypes();
    connectForm();
    enterType();
    recall();
}

ArchiveDialog::~ArchiveDialog()
{
    m_job.reset();
    leaveType();
    for (int type = 0; type < m_ui->typeBox->count(); ++type) {
        if (Extension* const extension = qobject_cast<Extension*>(extensionOf(type)))
            extension->setArchiveDialogWidget(nullptr);
    }
}

void ArchiveDialog::buildForm()
{
    m_ui->setupUi(this);
    guardWheel(this);
    if (design())
        setWindowTitle(tr("Archive \"%1\"").arg(QDir(design()->workingFolderPath()).dirName()));

    m_ui->contentsList->setHeaderLabels({tr("Contents"), tr("Size")});
    m_ui->contentsList->headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    m_ui->contentsList->setMinimumHeight(fontMetrics().lineSpacing() * LeastRows);
    m_ui->contentsList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_ui->contentsList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    m_archiveButton = m_ui->buttonBox->addButton(tr("&Archive"), QDialogButtonBox::AcceptRole);
    m_archiveButton->setObjectName("archiveButton");
    m_archiveButton->setDefault(true);

    for (const ArchiveFormat format : ArchiveFormats::all())
        m_ui->formatBox->addItem(ArchiveFormats::label(format), static_cast<int>(format));
    m_ui->progressBar->setMaximum(ArchiveJob::Whole);
}

void ArchiveDialog::loadTypes()
{
    m_ui->typeBox->addItem(tr("Plain Archive"));
    for (QObject* object : archiveExtensionsFor(design())) {
        Extension* const extension = qobject_cast<Extension*>(object);
        extension->setArchiveDialogWidget(this);
        m_ui->typeBox->addItem(extension->archiveType(),
                               QVariant::fromValue(QPointer<QObject>(object)));
    }
}

QObject* ArchiveDialog::extensionOf(int type) const
{
    return m_ui->typeBox->itemData(type).value<QPointer<QObject>>();
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
    for (const QCheckBox* box : m_ui->includedItems->findChildren<QCheckBox*>())
        connect(box, &QCheckBox::toggled, this, &ArchiveDialog::showContents);
    connect(QtilitiesCoreApplication::objectManager(), &IObjectManager::objectRemoved, this,
            &ArchiveDialog::handleObjectRemoved);
    if (m_design)
        connect(m_design, &QObject::destroyed, this, &ArchiveDialog::updateState);
}

QString ArchiveDialog::currentExtension() const
{
    return ArchiveFormats::extension(currentFormat());
}

Design* ArchiveDialog::design() const { return m_design; }

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

void ArchiveDialog::changeType()
{
    leaveType();
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
    m_isPlain = m_ui->typeBox->currentIndex() == 0;
    m_extension = extensionOf(m_ui->typeBox->currentIndex());
    if (Extension* const extension = currentExtensionObject()) {
        enterExtension(extension);
        const QString wanted = extension->destinationPathOnActivation();
        path = wanted.isEmpty() ? path : wanted;
    }

    // The format may be another one than when the path was built.
    showDestination(destination().withFormat(path, currentFormat()));
    showContents();
}

void ArchiveDialog::showContents()
{
    m_ui->contentsList->clear();
    m_ui->contentsTotal->clear();
    if (!design())
        return;

    qint64 total = 0;
    int files = 0;
    try {
        for (const ArchiveMember& member : plan().members()) {
            auto* const item = new QTreeWidgetItem(m_ui->contentsList, {member.name});
            if (member.kind == ArchiveMember::Folder)
                continue;
            item->setText(1, QLocale().formattedDataSize(member.size()));
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            total += member.size();
            ++files;
        }
        const QString count = files == 1 ? tr("1 file") : tr("%1 files").arg(files);
        m_ui->contentsTotal->setText(tr("%1, %2").arg(count, QLocale().formattedDataSize(total)));
    } catch (const HostError& error) {
        m_ui->contentsTotal->setText(error.text());
    }
}

void ArchiveDialog::enterExtension(Extension* extension)
{
    connect(m_extension, SIGNAL(destinationPathChanged(QString)), this,
            SLOT(showDestination(QString)));
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
    if (m_isPlain) {
        m_plainDestination = m_ui->destinationPath->text();
        m_plainItems = includedItems();
    }

    if (m_extension)
        disconnect(m_extension, nullptr, this, nullptr);
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
    resizeToScreen(this, QSize(width(), sizeHint().height()));
}

void ArchiveDialog::handleObjectRemoved(QObject* object)
{
    // A form that is being deleted leaves its place by itself.
    if (m_extensionWidget == object && !qobject_cast<Extension*>(object))
        m_extensionWidget = nullptr;

    for (int type = m_ui->typeBox->count() - 1; type > 0; --type) {
        if (extensionOf(type) && extensionOf(type) != object)
            continue;

        if (type == m_ui->typeBox->currentIndex())
            m_ui->typeBox->setCurrentIndex(0);
        if (Extension* const extension = qobject_cast<Extension*>(extensionOf(type)))
            extension->setArchiveDialogWidget(nullptr);
        const QSignalBlocker blocker(m_ui->typeBox);
        m_ui->typeBox->removeItem(type);
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
    // That question comes when the archive is made, since the path may also be typed.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setNameFilters({ArchiveFormats::label(currentFormat()), tr("All files (*)")});
    dialog.setDefaultSuffix(currentExtension());
    if (dialog.exec() == QDialog::Accepted)
        changeDestination(QDir::toNativeSeparators(dialog.selectedFiles().constFirst()));
}

void ArchiveDialog::changeDestination(const QString& path)
{
    showDestination(path);
    if (Extension* const extension = currentExtensionObject())
        extension->handleDestinationPathChanged(path);
}

void ArchiveDialog::showDestination(const QString& path)
{
    // Setting the same text would move the cursor of a user who is typing.
    if (m_ui->destinationPath->text() != path)
        m_ui->destinationPath->setText(path);
    m_ui->stateLabel->clear();
    updateState();
}

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
    const Extension* const extension = currentExtensionObject();
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
