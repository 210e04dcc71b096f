// How the generator window gets its input: the binary, and the description of an earlier build.

#include "generator/PelkFcfGenerator.h"

#include "fcf/FcfReader.h"
#include "fcf/FormLimits.h"
#include "generator/DeletionHold.h"
#include "generator/FileOpening.h"
#include "generator/GeneratorDialogs.h"
#include "generator/GeneratorLog.h"

#include "ui_PelkFcfGenerator.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using Qtilities::Logging::Logger;

namespace {

/// Adds each line of \p text as a new paragraph at the end of \p memo, and never as markup. All of
/// them are one change, so that the memo is cut, and its user asked, once at most. No more is added
/// than shows that the text is too long: a file may have millions of lines.
void appendParagraphs(QTextEdit* memo, const QString& text)
{
    // Empty lines at the start of an empty memo add nothing to it.
    int start = 0;
    while (memo->document()->isEmpty() && start < text.size() &&
           text.at(start) == QLatin1Char('\n'))
        ++start;

    const QStringList lines =
        text.mid(start, FormLimits::DescriptionLength + 1).split(QLatin1Char('\n'));
    QTextCursor cursor(memo->document());
    cursor.movePosition(QTextCursor::End);
    cursor.beginEditBlock();
    for (const QString& line : lines) {
        if (!memo->document()->isEmpty())
            cursor.insertBlock();
        cursor.insertText(line);
    }
    cursor.endEditBlock();
}

/// Returns why the \p reading of \p device is not complete.
QString reasonOf(const FcfReading& reading, const QIODevice& device)
{
    switch (reading.outcome) {
    case FcfReading::EndedEarly:
        return PelkFcfGenerator::tr("it ends before the end mark of its text");
    case FcfReading::ReadFailed:
        return device.errorString();
    case FcfReading::TooLong:
        return PelkFcfGenerator::tr("its text does not end within %1 bytes")
            .arg(FcfReader::MaximumBytes);
    case FcfReading::FunctionsTooLong:
        return PelkFcfGenerator::tr("its functions do not end within %1 bytes")
            .arg(FcfReader::MaximumFunctionBytes);
    case FcfReading::TooManyFunctions:
        return PelkFcfGenerator::tr("it has more than %1 functions")
            .arg(FcfReader::MaximumFunctions);
    case FcfReading::NoFilenameLine:
    case FcfReading::Complete:
        break;
    }
    return QString();
}

/// A code of the header, and the index of what it selects.
struct CodeIndex {
    qint32 code;
    int index;
};

// These are not the inverse of the codes that are written: what a device code means depends on the
// module, and two modules have module code 2.
const CodeIndex ModuleIndexes[] = {{1, 1}, {2, 0}};
const CodeIndex DeviceIndexes[] = {{1, 0}, {2, 1}, {4, 2}};
/// Selected under module code 2 only.
const CodeIndex FourthDevice = {8, 3};

template <int Count>
int indexOf(qint32 code, const CodeIndex (&indexes)[Count])
{
    for (const CodeIndex& candidate : indexes) {
        if (candidate.code == code)
            return candidate.index;
    }
    return -1;
}

/// The device that \p header selects, or -1 when it leaves the device as it is.
int deviceIndex(const FcfHeader& header)
{
    if (header.moduleCode == 2 && header.deviceCode == FourthDevice.code)
        return FourthDevice.index;
    return indexOf(header.deviceCode, DeviceIndexes);
}

/// The window itself says only that loading \p path has failed.
void logLoadingFailed(const QString& path, const QString& reason)
{
    // No path was chosen where the dialog was cancelled.
    if (!path.isEmpty())
        GeneratorLog::write(Logger::Error,
                            PelkFcfGenerator::tr("\"%1\" cannot be loaded: %2.").arg(path, reason));
}

} // namespace

void PelkFcfGenerator::openFileDialog()
{
    const DeletionHold hold(this);
    const QString path =
        QFileDialog::getOpenFileName(this, tr("Select Bin File"), ui->txtInputFile->text(),
                                     tr("Xilinx Binary Configuration Files (*.bin)"));
    if (path.isEmpty()) {
        showPlainStatus(tr("Failed to load *.bin file"));
        return;
    }

    ui->txtInputFile->setText(path);
    showPlainStatus(tr("Loaded ") + ui->txtInputFile->text() + tr(" successfully."));
    displayBinFileSizeInfo(path);
}

void PelkFcfGenerator::fileOpenAccept()
{
    const DeletionHold hold(this);
    ui->FunctionComboBox->clear();
    ui->btnRemove->setEnabled(false);
    clearScreen();
    // A load that fails must not leave functions in memory that the form no longer lists: the next
    // one uploaded would be taken for the first of them.
    functions.clear();
    ui->txtInputFile->setText(QFileDialog::getOpenFileName(
        this, tr("Open Document"), QDir::currentPath(), tr("Document files (*.txt)")));
    const QString path = ui->txtInputFile->text();
    readConfigFile(path);
    displayConfigFileInfo(path);
}

void PelkFcfGenerator::setTxtFile(const QString& path) { loadTxtFile(path, AddToForm); }

void PelkFcfGenerator::replaceByTxtFile(const QString& path) { loadTxtFile(path, ReplaceForm); }

void PelkFcfGenerator::loadTxtFile(const QString& path, LoadMode mode)
{
    ui->txtInputFile->setText(path);
    load(path, mode);
    displayConfigFileInfo(path);
    clearFunctionFields();
}

void PelkFcfGenerator::displayConfigFileInfo(QString file)
{
    ui->txtInputFile->setText(file.replace(QLatin1String(".txt"), QLatin1String(".bin")));
}

bool PelkFcfGenerator::readConfigFile(QString filename) { return load(filename, AddToForm); }

bool PelkFcfGenerator::load(const QString& path, LoadMode mode)
{
    functionsFieldSetNotEditable();

    QFile file(path);
    QString reason;
    if (!FileOpening::open(&file, QIODevice::ReadOnly, &reason)) {
        showLoadingFailed();
        logLoadingFailed(path, reason);
        return false;
    }

    const FcfReading reading = FcfReader::read(&file);
    if (mode == ReplaceForm)
        makeRoomFor(reading);
    functions.clear();
    ui->ModifyFunctionCheckBox->setEnabled(true);

    showNumbers(reading.header);
    if (reading.outcome == FcfReading::NoFilenameLine) {
        GeneratorDialogs::inform(
            this, tr("please select a correct text file,the selected file is not compartable "
                     "with this programme "));
        return false;
    }

    showTexts(reading);
    if (reading.outcome != FcfReading::Complete) {
        showLoadingFailed();
        logLoadingFailed(path, reasonOf(reading, file));
        return false;
    }

    showStatus(tr("<font color='green'>Loaded ") + ui->txtInputFile->text() +
               tr(" successfully.</font>"));
    return true;
}

void PelkFcfGenerator::makeRoomFor(const FcfReading& reading)
{
    // The functions in memory are replaced whatever the file is, and the form lists the same ones.
    if (reading.outcome == FcfReading::NoFilenameLine) {
        ui->FunctionComboBox->clear();
        return;
    }

    const QString path = ui->txtInputFile->text();
    clearScreen();
    ui->txtInputFile->setText(path);
}

void PelkFcfGenerator::showPlainStatus(const QString& text)
{
    ui->StatusBar->setTextFormat(Qt::PlainText);
    ui->StatusBar->setText(text);
    ui->StatusBar->setToolTip(Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal));
}

void PelkFcfGenerator::showStatus(const QString& html)
{
    ui->StatusBar->setTextFormat(Qt::RichText);
    ui->StatusBar->setText(html);
    // A long path in the one line would hide what comes after it.
    ui->StatusBar->setToolTip(html);
}

void PelkFcfGenerator::showLoadingFailed()
{
    showStatus(tr("<font color='red'>Loading ") + ui->txtInputFile->text() + tr(" failed.</font>"));
}

void PelkFcfGenerator::showNumbers(const FcfHeader& header)
{
    ui->finalPages->setText(QString::number(header.totalPages) + tr(" Pages"));
    ui->finalBlocks->setText(QString::number(header.totalBlocks) + tr(" Blocks"));
    ui->finalSize->setText(QString::number(header.totalSize) + tr(" bytes"));
    ui->BinFilePages->setText(QString::number(header.binPages) + tr(" Pages"));
    ui->BinFileBlocks->setText(QString::number(header.binBlocks) + tr(" Blocks"));
    ui->BinFileSize->setText(QString::number(header.binFileSize) + tr(" bytes"));
    selectTarget(header);
    setVersion(header.versionMajor, header.versionMinor);
}

void PelkFcfGenerator::selectTarget(const FcfHeader& header)
{
    const int module = indexOf(header.moduleCode, ModuleIndexes);
    if (module >= 0) {
        ui->ModuleComboBox->setCurrentIndex(module);
        const int device = deviceIndex(header);
        if (device >= 0)
            ui->FpgaComboBox->setCurrentIndex(device);
    }
    ui->ConfigComboBox->setCurrentIndex(qMax(header.configNumber, 0) - 1);
}

void PelkFcfGenerator::showTexts(const FcfReading& reading)
{
    ui->CiNumEditBox->setText(reading.header.ciNumber);
    ui->AuthoEditBox->setText(reading.header.author);
    if (reading.hasDescription)
        appendParagraphs(ui->DescriptionMemo, reading.header.description);
    for (const FcfFunction& function : reading.header.functions)
        showFunctionRead(function);
}

void PelkFcfGenerator::showFunctionRead(const FcfFunction& function)
{
    ui->FunctionComboBox->addItem(function.name);
    ui->btnRemove->setEnabled(true);
    // The item keeps the blanks around a name, the function in memory does not.
    FcfFunction trimmed = function;
    trimmed.name = function.name.trimmed();
    editFunction(trimmed);
    addFunction();
}
