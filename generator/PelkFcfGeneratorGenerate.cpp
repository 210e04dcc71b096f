// How the generator window turns its form into an image and a companion.

#include "generator/PelkFcfGenerator.h"

#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "generator/CopyProgress.h"
#include "generator/DeletionHold.h"
#include "generator/FcfOutput.h"
#include "generator/GeneratorDialogs.h"
#include "generator/GeneratorLog.h"

#include "ui_PelkFcfGenerator.h"

#include <QFileInfo>

using Qtilities::Logging::Logger;

namespace {

/// \p path with every ".bin" replaced, in the names of folders too.
QString withExtension(const QString& path, const char* extension)
{
    return QString(path).replace(QLatin1String(".bin"), QLatin1String(extension));
}

} // namespace

void PelkFcfGenerator::generateButtonClick()
{
    if (updateConfigData())
        close();
}

bool PelkFcfGenerator::updateConfigData()
{
    moduleCode = FcfTarget::moduleCode(getModule());
    deviceCode = FcfTarget::deviceCode(getModule(), getDevice(), deviceCode);

    if (ui->txtInputFile->text().isEmpty()) {
        GeneratorDialogs::inform(this, tr("Please select a bin file first"));
        return false;
    }
    if (ui->AuthoEditBox->text().isEmpty()) {
        GeneratorDialogs::inform(this, tr("Please enter the author 's name"));
        return false;
    }
    if (ui->CiNumEditBox->text().isEmpty()) {
        GeneratorDialogs::inform(this, tr("Please enter a CI number"));
        return false;
    }
    saveTofile(ui->txtInputFile->text());
    return true;
}

void PelkFcfGenerator::saveTofile(QString binPath)
{
    const QString imagePath = withExtension(binPath, ".fcf");
    const QString companionPath = withExtension(ui->txtInputFile->text(), ".txt");

    const bool overwriting = QFileInfo(imagePath).exists();
    if (overwriting && !mayOverwrite(imagePath)) {
        showGenerationFailed();
        return;
    }

    FcfOutput output(imagePath, binPath, companionPath);
    const auto mode = overwriting ? FcfOutput::EndAtFirstFailure : FcfOutput::ShowFailuresLater;
    if (!output.open(mode) || !writeContents(&output, QFileInfo(imagePath).fileName())) {
        reportFailure(&output);
        return;
    }

    warnOfOtherSize(binPath, output.payloadBytes());
    showGenerated(QStringList() << imagePath << companionPath);
}

bool PelkFcfGenerator::mayOverwrite(const QString& imagePath)
{
    const QString question = tr("A fcf file already exists at path:<br><br>") + imagePath +
                             tr("<br><br>Do you want to overwrite it?");
    return GeneratorDialogs::ask(this, question, QMessageBox::No) == QMessageBox::Yes;
}

bool PelkFcfGenerator::writeContents(FcfOutput* output, const QString& imageName)
{
    if (!writeHeaders(output, imageName))
        return false;
    if (!output->fillHeaders(FcfWriter()))
        return false;

    return appendPayload(output);
}

bool PelkFcfGenerator::appendPayload(FcfOutput* output)
{
    CopyProgress progress(ui->StatusBar, output->payloadBytes());
    return output->appendPayload(
        [&progress](const char*, qint64 bytes) { progress.advance(bytes); });
}

bool PelkFcfGenerator::writeHeaders(FcfOutput* output, const QString& imageName)
{
    const FcfWriter writer;
    FcfHeader header = headerFromForm();
    header.fileName = imageName;

    header.stamp(m_clock());
    const bool imageWritten = output->writeImageHeader(writer.compose(header));
    header.stamp(m_clock());
    const bool companionWritten = output->writeCompanionHeader(writer.compose(header));
    // The totals are the build's, whatever became of the files.
    showTotals();
    return imageWritten && companionWritten;
}

FcfHeader PelkFcfGenerator::headerFromForm() const
{
    FcfHeader header;
    header.setSizes(m_sizes);
    header.moduleCode = moduleCode;
    header.deviceCode = deviceCode;
    header.configNumber = ui->ConfigComboBox->currentIndex() + 1;
    header.versionMajor = ui->MajorVerEditBox->text().toInt();
    header.versionMinor = ui->MinorVerEditBox->text().toInt();

    header.ciNumber = ui->CiNumEditBox->text();
    header.author = ui->AuthoEditBox->text();
    header.description = ui->DescriptionMemo->toPlainText();
    for (int index = 0; index < ui->FunctionComboBox->count(); ++index)
        header.functions.append(functionAt(index));
    return header;
}

void PelkFcfGenerator::showTotals()
{
    ui->finalSize->setText(QString::number(m_sizes.totalSize) + tr(" bytes"));
    ui->finalPages->setText(QString::number(m_sizes.totalPages) + tr(" pages"));
    ui->finalBlocks->setText(QString::number(m_sizes.totalBlocks) + tr(" blocks"));
}

void PelkFcfGenerator::showGenerated(const QStringList& files)
{
    // A receiver of the signal may let events run, and the user may close the window meanwhile.
    const DeletionHold hold(this);
    emit newFilesCreated(files);
    showStatus(tr("<font color='green'>Successfully generated output files.</font>"));
    GeneratorLog::write(Logger::Info, tr("Successfully generated output files."));
}

void PelkFcfGenerator::showGenerationFailed()
{
    showStatus(tr("<font color='red'>Failed to generate output file.</font>"));
}

void PelkFcfGenerator::reportFailure(FcfOutput* output)
{
    switch (output->outcome()) {
    case FcfOutput::CannotOpen:
        GeneratorDialogs::inform(this, tr("can't open ") + output->path());
        break;
    case FcfOutput::HeaderTooLarge:
        GeneratorDialogs::inform(this, tr("The file Size is too large please change some fields"));
        removeFiles(output);
        break;
    case FcfOutput::Failed:
        GeneratorLog::write(
            Logger::Error, tr("\"%1\" is not complete: %2.").arg(output->path(), output->reason()));
        break;
    case FcfOutput::NoFailure:
        break;
    }
    showGenerationFailed();
}

void PelkFcfGenerator::removeFiles(FcfOutput* output)
{
    const QList<FcfOutput::Remaining> remaining = output->removeFiles();
    for (const FcfOutput::Remaining& file : remaining)
        GeneratorLog::write(Logger::Error,
                            tr("\"%1\" cannot be deleted: %2.").arg(file.path, file.reason));
}

void PelkFcfGenerator::warnOfOtherSize(const QString& binPath, qint64 payloadBytes) const
{
    if (static_cast<qint32>(payloadBytes) == m_sizes.binFileSize)
        return;
    // The header has the size from when the binary was selected, even if that was another one.
    GeneratorLog::write(
        Logger::Warning,
        tr("\"%1\" has %2 bytes, but the header says %3, as the binary was when it was last "
           "selected. Select it again and generate anew.")
            .arg(binPath, QString::number(payloadBytes), QString::number(m_sizes.binFileSize)));
}
