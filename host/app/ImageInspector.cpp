#include "host/app/ImageInspector.h"

#include "fcf/FcfTarget.h"
#include "host/app/image/ImageFiles.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/check/Findings.h"
#include "tool/check/HeaderPage.h"
#include "tool/files/Digest.h"
#include "tool/files/DigestList.h"
#include "tool/files/FileCompare.h"
#include "tool/files/FolderLock.h"
#include "tool/files/InputOpener.h"

#include <QApplication>
#include <QBoxLayout>
#include <QBuffer>
#include <QClipboard>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QPushButton>
#include <QTextBrowser>
#include <QTextCodec>
#include <QTimer>

#include <optional>

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(ImageInspector)
};

constexpr int LookAgainMs = 100;

const CopyObserver Unobserved = [](const char*, qint64) {};

class Inspection {
public:
    /// \p digests is the digest file beside the image; null if there is none.
    Inspection(const InputFile& file, const QByteArray& digests, ImageReport* report)
        : m_file(file), m_digests(digests), m_report(report), m_codec(QTextCodec::codecForLocale())
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
        // Notes are about what is allowed, such as a page of 2114 bytes.
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
        add(name, Texts::tr("%1 bytes, %2 pages, %3 blocks").arg(bytes).arg(pages).arg(blocks));
    }

    void addHeader(const FcfHeader& header)
    {
        const auto* const target = FcfTarget::find(header.moduleCode, header.deviceCode);
        const QString place = target ? QString("%1, %2").arg(target->module, target->device)
                                     : Texts::tr("unknown (module code %1, device code %2)")
                                           .arg(header.moduleCode)
                                           .arg(header.deviceCode);
        add(Texts::tr("Image"), header.fileName);
        add(Texts::tr("Version"),
            QString("%1.%2").arg(header.versionMajor).arg(header.versionMinor));
        add(Texts::tr("CI number"), header.ciNumber);
        add(Texts::tr("Author"), header.author);
        add(Texts::tr("Made"), (header.date + ' ' + header.time).trimmed());
        add(Texts::tr("Description"), header.description);
        add(Texts::tr("Target"), Texts::tr("%1, slot %2").arg(place).arg(header.configNumber));
        for (const FcfFunction& function : header.functions)
            add(Texts::tr("Function"),
                Texts::tr("%1 (%2, CI %3): %4")
                    .arg(function.name, function.author, function.ciNumber, function.description));
        addSize(Texts::tr("Binary"), header.binFileSize, header.binPages, header.binBlocks);
        addSize(Texts::tr("Whole image"), header.totalSize, header.totalPages, header.totalBlocks);
    }

    void addPayload(const HeaderPage& page)
    {
        // An image without a payload is not a companion, whatever its bytes are.
        const bool isCompanion =
            page.payloadBytes == 0 && QFileInfo(m_file.path()).suffix() != "fcf";
        add(Texts::tr("Kind"), isCompanion
                                   ? Texts::tr("companion: the header page alone")
                                   : Texts::tr("image: the header page and a binary of %1 bytes")
                                         .arg(page.payloadBytes));
        FcfFileChecker(&m_file, isCompanion ? FcfFileChecker::Companion : FcfFileChecker::Image,
                       m_codec, &m_findings)
            .check(page);
        compareBinary(page);
        if (!m_digests.isNull())
            checkDigest(page);
    }

    void checkDigest(const HeaderPage& page)
    {
        const auto digest = Digest::of({&m_file, 0, page.imageBytes(), {}}, Unobserved);
        if (!m_findings.accept(digest.map([](auto) {})))
            return;
        const QFileInfo file(Digest::pathFor(m_file.path()));
        const DigestList list(m_digests, file.path());
        bool isNoted = false;
        for (const DigestList::Entry& entry : list.entriesOfName(m_file.path()))
            isNoted = isNoted || entry.digest == *digest;
        const QString text = QString::fromLatin1(digest->toHex());
        add(Texts::tr("SHA-256"),
            isNoted ? Texts::tr("%1, as in the digest file").arg(text) : text);
        if (!isNoted)
            m_findings.error(
                ExitCode::NotValid, QString(), QString(),
                Texts::tr("The digest in %1 is that of another file.").arg(file.fileName()));
    }

    /// Compares the payload, or the size in a companion, with the binary beside the file. Another
    /// binary is no error: it may have been built since.
    void compareBinary(const HeaderPage& page)
    {
        const QString path = ImageFiles::of(m_file.path()).binary;
        const QString name = QFileInfo(path).fileName();
        if (!QFileInfo(path).isFile())
            return;

        InputOpener inputs(nullptr, [](const QString&) { return Unobserved; });
        const auto binary = inputs.open(path, FcfFileChecker::LargestFile, QString());
        if (!binary)
            return;

        const qint64 stated = page.reading.header.binFileSize;
        if (binary->size() != stated) {
            add(Texts::tr("Beside it"), Texts::tr("%1 has %2 bytes, the image is of %3")
                                            .arg(name)
                                            .arg(binary->size())
                                            .arg(stated));
            return;
        }
        if (page.payloadBytes != stated)
            return;

        const auto difference =
            FileCompare::compare({&m_file, page.bytes, page.payloadBytes, nullptr},
                                 {&*binary, 0, binary->size(), nullptr}, Unobserved);
        if (!difference)
            return;
        add(Texts::tr("Beside it"),
            difference->count == 0 ? Texts::tr("%1 is the payload, byte for byte").arg(name)
                                   : Texts::tr("%1 differs in %2 bytes, the first one at offset %3")
                                         .arg(name)
                                         .arg(difference->count)
                                         .arg(difference->offset));
    }

    const InputFile& m_file;
    QByteArray m_digests;
    ImageReport* m_report;
    QTextCodec* m_codec;
    Findings m_findings;
};

/// The digest file beside the image at \p path; null if there is none.
QByteArray digestsBeside(const QString& path)
{
    QFile file(Digest::pathFor(path));
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return QByteArray();
    const QByteArray digests = file.read(DigestList::MaximumBytes);
    return digests.isNull() ? QByteArray("") : digests;
}

} // namespace

ImageReport ImageReport::of(const QString& path)
{
    ImageReport report;
    report.rows << qMakePair(Texts::tr("File"), QDir::toNativeSeparators(path));
    // A pipe would block the host until another program writes to it.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) {
        report.findings << Texts::tr("This is not a file.");
        return report;
    }

    // What is open stays as it is, whatever takes its name.
    std::optional<FolderLock> lock(std::in_place, path, FolderLock::WaitsNot);
    report.isBusy = lock->isBusy();
    if (report.isBusy)
        return report;
    InputOpener inputs(nullptr, [](const QString&) { return Unobserved; });
    const auto file = inputs.open(path, FcfFileChecker::LargestFile, QString());
    const QByteArray digests = digestsBeside(path);
    lock.reset();

    if (file)
        Inspection(*file, digests, &report).run();
    else
        report.findings << file.error().text();
    return report;
}

QString ImageReport::html() const
{
    QString html = "<h3>" + verdict() + "</h3>";
    html += findings.isEmpty() ? Texts::tr("<p>The file is as the generator writes it.</p>")
                               : Texts::tr("<p><b>Findings</b></p>");
    for (const QString& finding : findings)
        html += "<p>&#9888; " + finding.toHtmlEscaped() + "</p>";
    html += "<table cellpadding='3'>";
    for (const auto& row : rows)
        html +=
            QString("<tr><td><b>%1</b></td><td>%2</td></tr>")
                .arg(row.first.toHtmlEscaped(), row.second.toHtmlEscaped().replace('\n', "<br>"));
    return html + "</table>";
}

QString ImageReport::verdict() const
{
    return findings.isEmpty() ? Texts::tr("VALID") : Texts::tr("NOT VALID");
}

QString ImageReport::text() const
{
    QStringList lines{verdict()};
    for (const auto& row : rows)
        lines << row.first + ": " + row.second;
    for (const QString& finding : findings)
        lines << Texts::tr("Finding: %1").arg(finding);
    return lines.join('\n') + '\n';
}

ImageInspector::ImageInspector(QWidget* parent)
    : QWidget(parent), m_lookAgain(new QTimer(this)), m_view(new QTextBrowser(this)),
      m_page(new QPushButton(tr("Header Pa&ge"), this)), m_copy(new QPushButton(tr("Cop&y"), this))
{
    m_view->setObjectName("ImageReport");
    m_view->setAccessibleName(tr("Image"));
    m_view->setPlaceholderText(tr("Select an image or a companion, and Inspect Image."));
    m_page->setObjectName("ShowPageButton");
    m_page->setToolTip(tr("Show the header page as bytes and fields"));
    m_copy->setObjectName("CopyReportButton");
    m_copy->setEnabled(false);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_view);
    auto* const buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(m_page);
    buttons->addWidget(m_copy);
    layout->addLayout(buttons);

    m_lookAgain->setInterval(LookAgainMs);
    m_lookAgain->setSingleShot(true);
    connect(m_page, &QPushButton::clicked, this, &ImageInspector::pageWanted);
    connect(m_copy, &QPushButton::clicked, this,
            [this] { QApplication::clipboard()->setText(m_text); });
}

void ImageInspector::inspect(const QString& path)
{
    // A large image takes a while to be read for its digest.
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ImageReport report = ImageReport::of(path);
    QApplication::restoreOverrideCursor();

    // A later file takes the place of one that was busy.
    m_lookAgain->disconnect(this);
    if (report.isBusy) {
        m_view->setPlainText(tr("Another program is just replacing files of this folder."));
        connect(m_lookAgain, &QTimer::timeout, this, [this, path] { inspect(path); });
        m_lookAgain->start();
        return;
    }

    m_lookAgain->stop();
    m_view->setHtml(report.html());
    m_text = report.text();
    m_copy->setEnabled(true);
}
