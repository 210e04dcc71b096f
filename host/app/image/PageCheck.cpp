#include "host/app/image/PageCheck.h"

#include "fcf/FcfLayout.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/check/Findings.h"
#include "tool/check/HeaderPage.h"
#include "tool/files/InputOpener.h"

#include <QDateTime>
#include <QFileInfo>
#include <QHash>
#include <QTextCodec>

namespace {

/// How many bytes of payload follow \p page. Those behind the size that the header states may be
/// erased flash, of which only the beginning is read.
qint64 payloadBytes(const InputFile& file, const HeaderPage& page)
{
    const qint64 present = qMax<qint64>(0, file.size() - page.bytes);
    const qint64 stated = page.reading.header.binFileSize;
    if (stated <= 0 || stated >= present)
        return present;

    const auto rest = file.bytesAt(page.bytes + stated, FcfLayout::PageBytes);
    return rest && rest->count('\xff') == rest->size() ? stated : present;
}

void checkPage(const InputFile& file, PageCheck* check, Findings* findings)
{
    QTextCodec* const codec = QTextCodec::codecForLocale();
    auto page = findings->valueOf(HeaderPage::read(file, codec, ExitCode::NotValid));
    if (!page)
        return;

    page->payloadBytes = payloadBytes(file, *page);
    const bool isImage = QFileInfo(file.path()).suffix() == "fcf";
    FcfFileChecker(&file, isImage ? FcfFileChecker::Image : FcfFileChecker::Companion, codec,
                   findings)
        .check(*page);
    check->header = page->reading.header;
}

/// Each without the name of the file, which is known.
QList<Finding> errorsAmong(const Findings& findings)
{
    QList<Finding> errors;
    for (Finding finding : findings.list()) {
        if (finding.severity != Finding::Error)
            continue;
        finding.file.clear();
        errors << finding;
    }
    return errors;
}

PageCheck checkFile(const QString& path)
{
    PageCheck check;
    // A pipe would block the host until another program writes to it.
    if (!QFileInfo(path).isFile()) {
        check.problem = "is no file";
        return check;
    }

    Findings findings;
    InputOpener inputs(nullptr, [](const QString&) { return [](const char*, qint64) {}; });
    const auto file = findings.valueOf(inputs.open(path, FcfFileChecker::LargestFile, QString()));
    if (file)
        checkPage(*file, &check, &findings);

    const QList<Finding> errors = errorsAmong(findings);
    if (!errors.isEmpty())
        check.problem = errors.first().text().section(": ", 1);
    return check;
}

} // namespace

PageCheck PageCheck::of(const QString& path)
{
    struct Checked {
        qint64 bytes;
        QDateTime changed;
        PageCheck check;
    };
    static QHash<QString, Checked> last;

    const QFileInfo info(path);
    const auto known = last.constFind(path);
    if (known != last.constEnd() && known->bytes == info.size() &&
        known->changed == info.lastModified())
        return known->check;

    PageCheck check = checkFile(path);
    last.insert(path, {info.size(), info.lastModified(), check});
    return check;
}

QList<Finding> PageCheck::errorsOf(const InputFile& file)
{
    PageCheck check;
    Findings findings;
    checkPage(file, &check, &findings);
    return errorsAmong(findings);
}
