// How the window turns its form into an image and a companion.

#include "generator/model/GeneratorModel.h"

#include <QFileInfo>
#include <QLocale>
#include <QTextCodec>

namespace {

const char TextOfFilling[] = "\xC3\xAF\xC2\xBF\xC2\xBD";

QString withExtension(const QString& path, const char* extension)
{
    return QString(path).replace(QLatin1String(".bin"), QLatin1String(extension));
}

QByteArray encoded(const QString& text) { return QTextCodec::codecForLocale()->fromUnicode(text); }

QByteArray fillerFor(qint64 bytes)
{
    const QByteArray unit = encoded(QString::fromUtf8(TextOfFilling));
    QByteArray filler;
    while (bytes + filler.size() < PageBytes)
        filler += unit;
    return filler;
}

QByteArray bigEndian(qint32 number)
{
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(static_cast<quint32>(number) >> shift & 0xFF);
    return bytes;
}

QString twoDigits(int number)
{
    return QString::fromLatin1("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

/// An image or a companion while it is made.
struct GeneratorModel::Page {
    explicit Page(const QString& path_) : path(path_), isOpen(false), bytes(0) {}

    QString path;
    bool isOpen;
    /// What was written to it.
    qint64 bytes;
};

void GeneratorModel::generateButtonClick()
{
    if (updateConfigData())
        close();
}

bool GeneratorModel::updateConfigData()
{
    const QString module = form[ModuleComboBox].text;
    const QString device = form[FpgaComboBox].text;
    form.moduleCode = module == QLatin1String("DFE") ? 1 : 2;
    if (device == QLatin1String("Interface_FPGA"))
        form.deviceCode = 1;
    if (device == QLatin1String("Processing_FPGA_1"))
        form.deviceCode = 2;
    if (device == QLatin1String("Processing_FPGA_3"))
        form.deviceCode = 8;
    if (device ==
        QLatin1String(module == QLatin1String("GPM") ? "Processing_FPGA_2" : "Clock_Master_Device"))
        form.deviceCode = 4;

    if (form[txtInputFile].text.isEmpty()) {
        inform(QLatin1String("Please select a bin file first"));
        return false;
    }
    if (form[AuthoEditBox].text.isEmpty()) {
        inform(QLatin1String("Please enter the author 's name"));
        return false;
    }
    if (form[CiNumEditBox].text.isEmpty()) {
        inform(QLatin1String("Please enter a CI number"));
        return false;
    }
    saveTofile(form[txtInputFile].text);
    return true;
}

void GeneratorModel::saveTofile(QString binPath)
{
    Page image(withExtension(binPath, ".fcf"));
    Page companion(withExtension(form[txtInputFile].text, ".txt"));

    const bool isOverwriting = disk.exists(image.path);
    if (isOverwriting && ask(QLatin1String("A fcf file already exists at path:<br><br>") +
                                 image.path + QLatin1String("<br><br>Do you want to overwrite it?"),
                             true) != Yes) {
        generationFailed();
        return;
    }

    image.isOpen = disk.truncate(image.path).isEmpty();
    if (isOverwriting && !image.isOpen && !cannotOpen(image.path))
        return;
    const QString whyNotBinary = disk.whyNotRead(binPath);
    if (isOverwriting && !whyNotBinary.isEmpty() && !cannotOpen(binPath))
        return;
    companion.isOpen = disk.truncate(companion.path).isEmpty();
    if (isOverwriting && !companion.isOpen && !cannotOpen(companion.path))
        return;
    // An image that is the binary itself has emptied it.
    const qint64 payloadBytes = disk.size(binPath);

    const QString imageName = QFileInfo(image.path).fileName();
    writeHeader(&image, imageName);
    writeHeader(&companion, imageName);
    showTotals();
    if (!fillHeaders(&image, &companion))
        return;
    if (!disk.whyNotAppend(image.path).isEmpty() && !cannotOpen(image.path))
        return;
    if (!whyNotBinary.isEmpty() && !notComplete(binPath, whyNotBinary))
        return;
    if (!appendPayload(&image, binPath, payloadBytes))
        return;

    if (static_cast<qint32>(payloadBytes) != form.binFileSize)
        log(4, QString::fromLatin1("\"%1\" has %2 bytes, but the header says %3, as the binary was "
                                   "when it was last selected. Select it again and generate anew.")
                   .arg(binPath, QString::number(payloadBytes), QString::number(form.binFileSize)));
    observe(QString::fromLatin1("signal newFilesCreated(%1, %2)").arg(image.path, companion.path));
    setStatus(QLatin1String("<font color='green'>Successfully generated output files.</font>"));
    log(2, QString::fromLatin1("Successfully generated output files."));
}

QByteArray GeneratorModel::header(const QString& imageName, const QDateTime& moment) const
{
    QByteArray bytes;
    const int slot = form[ConfigComboBox].index + 1;
    for (qint32 number : {form.totalPages, form.totalBlocks, form.totalSize, form.binPages,
                          form.binBlocks, form.binFileSize, form.moduleCode, form.deviceCode, slot,
                          form[MajorVerEditBox].text.toInt(), form[MinorVerEditBox].text.toInt()})
        bytes += bigEndian(number);
    bytes += QByteArray(20, '\xFF');

    const QTime time = moment.time();
    QStringList lines;
    lines << QString() << QLatin1String("Filename: ") + imageName
          << QLatin1String("CI No: ") + form[CiNumEditBox].text
          << QLatin1String("Author: ") + form[AuthoEditBox].text
          << QLatin1String("Date: ") +
                 QLocale::system().toString(moment.date(), QLocale::ShortFormat)
          << QLatin1String("Time: ") + twoDigits(time.hour()) + QLatin1Char(':') +
                 twoDigits(time.minute()) + QLatin1Char(':') + twoDigits(time.second())
          << QLatin1String("Description: ") + form[DescriptionMemo].text.trimmed()
          << QLatin1String("---");
    for (int i = 0; i < form[FunctionComboBox].items.size(); ++i) {
        lines << QLatin1String("Function name: ") + entry(4 * i)
              << QLatin1String("Function author: ") + entry(4 * i + 1)
              << QLatin1String("Function CI No: ") + entry(4 * i + 3)
              << QLatin1String("Function description: ") + entry(4 * i + 2).trimmed()
              << QLatin1String("---");
    }
    lines << QLatin1String("----") << QString();
    return bytes + encoded(lines.join(QLatin1String("\n")));
}

int GeneratorModel::headerBytes(const QString& imageName, const QDateTime& moment) const
{
    return header(imageName, moment).size();
}

bool GeneratorModel::writeHeader(Page* page, const QString& imageName)
{
    const QByteArray bytes = header(imageName, clock());
    if (!page->isOpen)
        return false;
    disk.write(page->path, 0, bytes);
    page->bytes = bytes.size();
    return true;
}

void GeneratorModel::showTotals()
{
    form[finalSize].text = QString::number(form.totalSize) + QLatin1String(" bytes");
    form[finalPages].text = QString::number(form.totalPages) + QLatin1String(" pages");
    form[finalBlocks].text = QString::number(form.totalBlocks) + QLatin1String(" blocks");
}

bool GeneratorModel::closeWhole(const Page& page)
{
    const qint64 found = disk.size(page.path);
    return !page.isOpen || found == page.bytes ||
           notComplete(page.path, QString::fromLatin1("it has %1 bytes, but %2 were written")
                                      .arg(found)
                                      .arg(page.bytes));
}

bool GeneratorModel::fillHeaders(Page* image, Page* companion)
{
    if (!closeWhole(*image) || !closeWhole(*companion))
        return false;
    if (companion->bytes > PageBytes)
        return refuseTooLong(image->path, companion->path);
    if (image->bytes >= PageBytes && companion->bytes >= PageBytes)
        return true;

    Page* const pages[] = {image, companion};
    for (Page* page : pages) {
        const QString error = disk.whyNotAppend(page->path);
        if (!error.isEmpty() && !cannotOpen(page->path))
            return false;
        page->isOpen = true;
        if (!disk.exists(page->path))
            disk.truncate(page->path);
    }
    for (Page* page : pages) {
        const QByteArray filler = fillerFor(page->bytes);
        disk.write(page->path, disk.size(page->path), filler);
        page->bytes += filler.size();
        if (!closeWhole(*page))
            return false;
    }
    return true;
}

bool GeneratorModel::appendPayload(Page* image, const QString& binary, qint64 bytes)
{
    const QByteArray payload = disk.bytes(binary).left(static_cast<int>(bytes));
    disk.write(image->path, disk.size(image->path), payload);
    image->bytes += bytes;
    if (disk.size(binary) > bytes)
        return notComplete(
            image->path, QString::fromLatin1("the payload is longer than its %1 bytes").arg(bytes));
    return closeWhole(*image);
}

bool GeneratorModel::refuseTooLong(const QString& image, const QString& companion)
{
    inform(QLatin1String("The file Size is too large please change some fields"));
    disk.remove(companion);
    disk.remove(image);
    generationFailed();
    return false;
}

bool GeneratorModel::cannotOpen(const QString& path)
{
    inform(QLatin1String("can't open ") + path);
    generationFailed();
    return false;
}

bool GeneratorModel::notComplete(const QString& path, const QString& reason)
{
    log(8, QString::fromLatin1("\"%1\" is not complete: %2.").arg(path, reason));
    generationFailed();
    return false;
}

void GeneratorModel::generationFailed()
{
    setStatus(QLatin1String("<font color='red'>Failed to generate output file.</font>"));
}
