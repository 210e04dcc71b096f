#include "host/app/ImageReport.h"

#include "fcf/FcfExactReader.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfTarget.h"
#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>

namespace {

QString tr(const char* text) { return QCoreApplication::translate("ImageReport", text); }

/// What is found in a damaged file may be anything, and long.
QString printable(const QString& text)
{
    constexpr int Longest = 40;
    QString shown = text.left(Longest);
    for (QChar& letter : shown) {
        if (!letter.isPrint())
            letter = '?';
    }
    return text.size() > Longest ? shown + "..." : shown;
}

QString reasonOf(const FcfExactReading& reading)
{
    switch (reading.outcome) {
    case FcfExactReading::Complete:
        return QString();
    case FcfExactReading::NoText:
        return tr("This is no FCF file: it ends before the text of the header.");
    case FcfExactReading::NoFilenameLine:
        return tr("This is no FCF file: its text does not begin with \"%1\".")
            .arg(FcfLayout::FirstLineKeyword);
    case FcfExactReading::EndedEarly:
        return tr("The text of the header does not end: the file is cut off or damaged.");
    case FcfExactReading::Deviates:
        return tr("At byte %1: expected %2, found %3.")
            .arg(reading.deviation.offset)
            .arg(reading.expected, printable(reading.found));
    }
    return QString();
}

class Inspection {
public:
    explicit Inspection(QFile* file) : m_file(file), m_reading(FcfExactReader::read(file)) {}

    ImageReport report()
    {
        const QString reason = reasonOf(m_reading);
        if (!reason.isEmpty())
            m_report.findings << reason;
        if (m_reading.outcome == FcfExactReading::NoText ||
            m_reading.outcome == FcfExactReading::NoFilenameLine)
            return m_report;
        addBuild();
        addTarget();
        addFunctions();
        if (m_reading.outcome == FcfExactReading::Complete) {
            checkPage();
            addSizes();
            addDigest();
        }
        return m_report;
    }

private:
    void add(const QString& name, const QString& value) { m_report.rows << qMakePair(name, value); }

    void addBuild()
    {
        const FcfHeader& header = m_reading.header;
        add(tr("Image"), header.fileName);
        add(tr("Version"), QString("%1.%2").arg(header.versionMajor).arg(header.versionMinor));
        add(tr("CI number"), header.ciNumber);
        add(tr("Author"), header.author);
        add(tr("Made"), (header.date + ' ' + header.time).trimmed());
        add(tr("Description"), header.description);
    }

    void addTarget()
    {
        const FcfHeader& header = m_reading.header;
        const FcfTarget::Target* const target =
            FcfTarget::find(header.moduleCode, header.deviceCode);
        const QString place = target ? QString("%1, %2").arg(target->module, target->device)
                                     : tr("unknown (module code %1, device code %2)")
                                           .arg(header.moduleCode)
                                           .arg(header.deviceCode);
        add(tr("Target"), tr("%1, slot %2").arg(place).arg(header.configNumber));
        if (!target)
            m_report.findings << tr("No device has module code %1 and device code %2.")
                                     .arg(header.moduleCode)
                                     .arg(header.deviceCode);
        if (header.configNumber < FcfTarget::FirstSlot || header.configNumber > FcfTarget::LastSlot)
            m_report.findings << tr("There is no slot %1.").arg(header.configNumber);
    }

    void addFunctions()
    {
        for (const FcfFunction& function : m_reading.header.functions)
            add(tr("Function"),
                tr("%1 (%2, CI %3): %4")
                    .arg(function.name, function.author, function.ciNumber, function.description));
    }

    void checkPage()
    {
        const QByteArray filler = FcfWriter().fillerFor(m_reading.textEnd);
        m_pageBytes = m_reading.textEnd + filler.size();
        if (!m_file->seek(m_reading.textEnd) || m_file->read(filler.size()) != filler)
            m_report.findings << tr("From byte %1 the header page is not filled as it should be.")
                                     .arg(m_reading.textEnd);
        for (const quint32 word : m_reading.reservedWords) {
            if (word != FcfLayout::ReservedWord) {
                m_report.findings << tr("A reserved word of the header is not as it should be.");
                break;
            }
        }
    }

    void addSizes()
    {
        const qint64 payload = m_file->size() - m_pageBytes;
        const FcfHeader& header = m_reading.header;
        add(tr("Binary"), tr("%1 bytes, %2 pages, %3 blocks")
                              .arg(header.binFileSize)
                              .arg(header.binPages)
                              .arg(header.binBlocks));
        add(tr("Whole image"), tr("%1 bytes, %2 pages, %3 blocks")
                                   .arg(header.totalSize)
                                   .arg(header.totalPages)
                                   .arg(header.totalBlocks));
        if (payload <= 0) {
            add(tr("Kind"), tr("companion: the header page alone"));
            return;
        }
        add(tr("Kind"), tr("image: the header page and a binary of %1 bytes").arg(payload));
        FcfHeader measured;
        PelkFcfGeneratorFileInfo().measure(payload, &measured);
        for (const FcfLayout::NumberField& field : FcfLayout::Numbers) {
            // The six sizes are those that a measuring sets.
            const bool isSize = measured.*field.value != 0 || FcfHeader().*field.value != 0;
            if (isSize && header.*field.value != measured.*field.value)
                m_report.findings << tr("%1 is %2, but the binary in the file has %3.")
                                         .arg(QString(field.meaning))
                                         .arg(header.*field.value)
                                         .arg(measured.*field.value);
        }
    }

    void addDigest()
    {
        QFile digest(m_file->fileName() + ".sha256");
        if (!QFileInfo(digest).isFile() || !digest.open(QIODevice::ReadOnly))
            return;
        const QByteArray noted = digest.readLine(1024).split(' ').value(0).trimmed().toLower();
        QCryptographicHash hash(QCryptographicHash::Sha256);
        m_file->seek(0);
        const bool same = hash.addData(m_file) && hash.result().toHex() == noted;
        add(tr("SHA-256"), same ? tr("%1, as in the digest file").arg(QString::fromLatin1(noted))
                                : QString::fromLatin1(hash.result().toHex()));
        if (!same)
            m_report.findings << tr("The digest in %1 is that of another file.")
                                     .arg(QFileInfo(digest.fileName()).fileName());
    }

    QFile* m_file;
    FcfExactReading m_reading;
    ImageReport m_report;
    int m_pageBytes = 0;
};

} // namespace

ImageReport ImageReport::of(const QString& path)
{
    QFile file(path);
    ImageReport report;
    const QFileInfo info(file);
    // To open a pipe would wait for another program, and the host with it.
    if (info.exists() && !info.isFile())
        report.findings << tr("This is not a file.");
    else if (file.open(QIODevice::ReadOnly))
        report = Inspection(&file).report();
    else
        report.findings << tr("The file cannot be read: %1.").arg(file.errorString());
    report.rows.prepend(qMakePair(tr("File"), QDir::toNativeSeparators(path)));
    return report;
}

QString ImageReport::html() const
{
    QString html = findings.isEmpty() ? tr("<p>The file is as the generator writes it.</p>")
                                      : tr("<p><b>Findings</b></p>");
    for (const QString& finding : findings)
        html += "<p>&#9888; " + finding.toHtmlEscaped() + "</p>";
    html += "<table cellpadding='3'>";
    for (const auto& row : rows)
        html +=
            QString("<tr><td><b>%1</b></td><td>%2</td></tr>")
                .arg(row.first.toHtmlEscaped(), row.second.toHtmlEscaped().replace('\n', "<br>"));
    return html + "</table>";
}

QString ImageReport::text() const
{
    QStringList lines;
    for (const auto& row : rows)
        lines << row.first + ": " + row.second;
    for (const QString& finding : findings)
        lines << tr("Finding: %1").arg(finding);
    return lines.join('\n') + '\n';
}
