#include "host/app/ImageReport.h"

#include "fcf/FcfTarget.h"
#include "tool/check/Findings.h"
#include "tool/check/HeaderPage.h"
#include "tool/check/Validator.h"
#include "tool/files/Digest.h"
#include "tool/files/InputFile.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTextCodec>

namespace {

QString tr(const char* text) { return QCoreApplication::translate("ImageReport", text); }

const CopyObserver Unobserved = [](const char*, qint64) {};

class Inspection {
    Q_DECLARE_TR_FUNCTIONS(ImageReport)

public:
    Inspection(const InputFile& file, ImageReport* report)
        : m_file(file), m_report(report), m_codec(QTextCodec::codecForLocale())
    {
    }

    /// Shows what can be read of a damaged file, too.
    void run()
    {
        QBuffer start;
        start.setData(m_file.bytesAt(0, FcfExactReader::MaximumBytes).value_or(QByteArray()));
        start.open(QIODevice::ReadOnly);
        const FcfExactReading reading = FcfExactReader::read(&start, m_codec);
        if (reading.outcome != FcfExactReading::NoText &&
            reading.outcome != FcfExactReading::NoFilenameLine)
            addHeader(reading.header);
        auto page = m_findings.valueOf(HeaderPage::read(m_file, m_codec, ExitCode::NotValid));
        if (page && m_findings.accept(page->measure(m_file)))
            addPayload(*page);
        // Such as a page of 2114 bytes, which many images have.
        m_findings.dropNotes();
        for (Finding finding : m_findings.list()) {
            finding.file.clear();
            m_report->findings << finding.text();
        }
    }

private:
    void add(const QString& name, const QString& value)
    {
        m_report->rows << qMakePair(name, value);
    }

    void addSize(const QString& name, qint32 bytes, qint32 pages, qint32 blocks)
    {
        add(name, tr("%1 bytes, %2 pages, %3 blocks").arg(bytes).arg(pages).arg(blocks));
    }

    void addHeader(const FcfHeader& header)
    {
        const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
        const QString place = target ? QString("%1, %2").arg(target->module, target->device)
                                     : tr("unknown (module code %1, device code %2)")
                                           .arg(header.moduleCode)
                                           .arg(header.deviceCode);
        add(tr("Image"), header.fileName);
        add(tr("Version"), QString("%1.%2").arg(header.versionMajor).arg(header.versionMinor));
        add(tr("CI number"), header.ciNumber);
        add(tr("Author"), header.author);
        add(tr("Made"), (header.date + ' ' + header.time).trimmed());
        add(tr("Description"), header.description);
        add(tr("Target"), tr("%1, slot %2").arg(place).arg(header.configNumber));
        for (const FcfFunction& function : header.functions)
            add(tr("Function"),
                tr("%1 (%2, CI %3): %4")
                    .arg(function.name, function.author, function.ciNumber, function.description));
        addSize(tr("Binary"), header.binFileSize, header.binPages, header.binBlocks);
        addSize(tr("Whole image"), header.totalSize, header.totalPages, header.totalBlocks);
    }

    void addPayload(const HeaderPage& page)
    {
        const bool isCompanion = page.payloadBytes == 0;
        add(tr("Kind"),
            isCompanion
                ? tr("companion: the header page alone")
                : tr("image: the header page and a binary of %1 bytes").arg(page.payloadBytes));
        Validator(&m_file, isCompanion ? Validator::Companion : Validator::Image, m_codec,
                  &m_findings)
            .validate(page);
        QFile file(Digest::pathFor(m_file.path()));
        if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
            return;
        const auto digest = Digest::of({&m_file, 0, page.imageBytes(), {}}, Unobserved);
        if (!m_findings.accept(digest.map([](auto) {})))
            return;
        const bool isNoted =
            Digest::find(file.read(Digest::MaximumBytes), m_file.path()).contains(*digest);
        const QString text = QString::fromLatin1(digest->toHex());
        add(tr("SHA-256"), isNoted ? tr("%1, as in the digest file").arg(text) : text);
        if (!isNoted)
            m_findings.error(
                ExitCode::NotValid, QString(), QString(),
                tr("The digest in %1 is that of another file.").arg(QFileInfo(file).fileName()));
    }

    const InputFile& m_file;
    ImageReport* m_report;
    QTextCodec* m_codec;
    Findings m_findings;
};

} // namespace

ImageReport ImageReport::of(const QString& path)
{
    ImageReport report;
    report.rows << qMakePair(tr("File"), QDir::toNativeSeparators(path));
    const QFileInfo info(path);
    // To open a pipe would wait for another program, and the host with it.
    if (info.exists() && !info.isFile()) {
        report.findings << tr("This is not a file.");
        return report;
    }
    Inputs inputs(nullptr, [](const QString&) { return Unobserved; });
    const auto file = inputs.open(path, Validator::LargestFile, QString());
    if (file)
        Inspection(*file, &report).run();
    else
        report.findings << file.error().text();
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
