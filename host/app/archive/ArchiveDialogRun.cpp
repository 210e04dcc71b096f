// How the archive dialog makes the archive, and what it keeps for the next time.

#include "host/app/archive/ArchiveDialog.h"

#include "host/app/archive/ArchiveJob.h"
#include "host/app/common/HostLog.h"
#include "host/app/common/PlainMessageBox.h"
#include "ui_ArchiveDialog.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignManager.h>

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QSettings>
#include <QUrl>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;
using Qtilities::Logging::Logger;

namespace {

using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;

const char TypeKey[] = "ArchiveDialog/type";
const char FormatKey[] = "ArchiveDialog/format";

/// The key under which the folder of the last plain archive is kept. A slash in a design's path
/// would begin a group.
QString folderKey(const Design& design)
{
    return "ArchiveDialog/folders/" +
           QString::fromLatin1(QUrl::toPercentEncoding(design.workingFolderPath()));
}

struct ArchiveDialogRunTexts {
    Q_DECLARE_TR_FUNCTIONS(ArchiveDialog)
};

} // namespace

void ArchiveDialog::archive()
{
    const QString path = destination().filePath(m_ui->destinationPath->text());
    const QFileInfo present(path);
    if (destination().isOfDesign(path)) {
        showError(tr("%1 belongs to the design. Choose another destination.")
                      .arg(QDir::toNativeSeparators(path)));
        return;
    }

    if (!m_isPlain && !mayUseName())
        return;

    const QString question =
        tr("%1 exists already. Replace it?").arg(QDir::toNativeSeparators(path));
    if (present.isFile() &&
        showBox(QMessageBox::Question, question, QMessageBox::Yes | QMessageBox::No,
                QMessageBox::No) != QMessageBox::Yes)
        return;
    // While the question waited the host may have closed the design.
    if (!design())
        return;

    const Extension* const extension = currentExtensionObject();
    if (extension && extension->archiveIncludeInstaller())
        HostLog::add(Logger::Info, tr("The archive gets no installer: this host has none."));

    m_job = std::make_unique<ArchiveJob>(ArchiveJob::Order{
        plan(), currentFormat(), path, design()->workingFolderPath(), present.isFile()});
    connect(m_job.get(), &ArchiveJob::progressed, m_ui->progressBar, &QProgressBar::setValue);
    connect(m_job.get(), &ArchiveJob::finished, this, &ArchiveDialog::handleJobFinished);

    m_ui->progressBar->setValue(0);
    m_ui->stateLabel->clear();
    updateState();
    m_job->start();
}

bool ArchiveDialog::mayUseName()
{
    const QString path = m_ui->destinationPath->text();
    const QString shown = QDir::toNativeSeparators(path);
    if (ArchiveDestination::leadsOut(path)) {
        showError(tr("The name leads out of the folder of the archive:\n%1").arg(shown));
        return false;
    }

    const QStringList oddities = destination().oddities(path);
    return oddities.isEmpty() ||
           showBox(QMessageBox::Question,
                   tr("%1\n\n%2\n\nDo you want to archive the design under this name?")
                       .arg(shown, oddities.join('\n')),
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
        HostLog::add(Logger::Info, tr("The design is archived in %1.")
                                       .arg(QDir::toNativeSeparators(job->order().destination)));
        m_archivePath = job->order().destination;
        remember();
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
    // One replaces the other, since the dialog would grow with both.
    m_ui->stateWidgets->setCurrentWidget(running ? static_cast<QWidget*>(m_ui->progressBar)
                                                 : m_ui->stateLabel);
    m_archiveButton->setEnabled(!running && design() && !m_ui->destinationPath->text().isEmpty());
}

void ArchiveDialog::recall()
{
    if (!design())
        return;

    const QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    const QString folder = settings.value(folderKey(*design())).toString();
    if (QFileInfo(folder).isDir()) {
        const QString name = QFileInfo(m_ui->destinationPath->text()).fileName();
        showDestination(QDir::toNativeSeparators(QDir(folder).filePath(name)));
    }

    const int format = m_ui->formatBox->findText(settings.value(FormatKey).toString());
    m_ui->formatBox->setCurrentIndex(qMax(0, format));
    const int type = m_ui->typeBox->findText(settings.value(TypeKey).toString());
    m_ui->typeBox->setCurrentIndex(qMax(0, type));
}

void ArchiveDialog::remember() const
{
    if (!design())
        return;

    QSettings settings(DesignManager::instance()->settingsFilePath(), QSettings::IniFormat);
    settings.setValue(TypeKey, m_ui->typeBox->currentText());
    settings.setValue(FormatKey, m_ui->formatBox->currentText());
    if (m_isPlain)
        settings.setValue(folderKey(*design()), QFileInfo(m_archivePath).absolutePath());
}

void archiveDesign(Design* design, const ArchiveDialog::Description& description, QWidget* parent)
{
    ArchiveDialog dialog(design, description, parent);
    if (dialog.exec() != QDialog::Accepted)
        return;

    // The box is not modal, since nobody has to answer it.
    const QString path = dialog.archivePath();
    auto* const box = new PlainMessageBox(QMessageBox::Information, dialog.windowTitle(),
                                          ArchiveDialogRunTexts::tr("The design is archived in %1.")
                                              .arg(QDir::toNativeSeparators(path)),
                                          QMessageBox::Close, QMessageBox::Close, parent);
    box->setObjectName("ArchivedBox");
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setModal(false);

    QPushButton* const show =
        box->addButton(ArchiveDialogRunTexts::tr("&Show in Folder"), QMessageBox::ActionRole);
    show->setObjectName("ShowInFolderButton");
    QObject::connect(show, &QPushButton::clicked, box, [path] {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(path).absolutePath()));
    });

    box->show();
}
