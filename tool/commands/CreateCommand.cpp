#include "fcf/FcfLayout.h"
#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"
#include "tool/base/Text.h"
#include "tool/build/BuildJson.h"
#include "tool/build/Stamp.h"
#include "tool/check/Checker.h"
#include "tool/check/HeaderPage.h"
#include "tool/check/Validator.h"
#include "tool/commands/Arguments.h"
#include "tool/commands/BinaryInput.h"
#include "tool/commands/BuildOptions.h"
#include "tool/commands/Command.h"
#include "tool/commands/Outputs.h"
#include "tool/files/Copy.h"
#include "tool/files/Digest.h"
#include "tool/files/OutputFiles.h"

#include <CLI/CLI.hpp>

namespace {

/// The whole header page of \p header.
QByteArray pageOf(const FcfHeader& header, QTextCodec* codec)
{
    const FcfWriter writer(codec);
    const QByteArray page = writer.compose(header);
    return page + writer.fillerFor(page.size());
}

/// Makes an image and its companion of a binary.
class CreateCommand : public Command {
public:
    const char* name() const override { return "create"; }
    const char* summary() const override { return "Make an image and its companion of a binary"; }
    void declare(CLI::App* app) override;
    void run(Task* task) override;

private:
    std::optional<Outputs> plan(const InputFile& binary, Task* task) const;
    void guard(const Outputs& outputs, Task* task) const;
    FcfHeader header(const Build& build, qint64 binaryBytes, const QString& imageName,
                     Task* task) const;
    void stamp(FcfHeader* header, Task* task) const;
    Status write(const QByteArray& page, const Region& payload, const Outputs& outputs, Task* task);
    qint64 fillerBytes(qint64 imageBytes) const;
    void readPadTo(qint64 imageBytes, Task* task);
    bool isUnchanged(FcfHeader* header, const Region& payload, const Outputs& outputs, Task* task);
    void report(const FcfHeader& header, const Outputs& outputs, bool isWritten, Task* task) const;

    BuildOptions m_build;
    BinaryInput m_binary;
    std::optional<std::string> m_output;
    std::optional<std::string> m_dateTime;
    std::optional<std::string> m_dateFormat;
    bool m_noCompanion = false;
    bool m_digest = false;
    bool m_force = false;
    bool m_strict = false;
    bool m_ifChanged = false;
    std::optional<std::string> m_padTo;
    /// 0 for none.
    qint64 m_padToBytes = 0;
    bool m_isPadMultiple = false;
    QByteArray m_imageDigest;
};

void CreateCommand::declare(CLI::App* app)
{
    m_binary.declare(app);
    m_build.declare(app);
    Arguments::addOption(app, "-o,--output", &m_output, "FILE",
                         "the image, its name ending with .fcf; - is standard output");
    Arguments::addOption(
        app, "--date-time", &m_dateTime, "YYYY-MM-DDTHH:MM:SS",
        "the date and time in the header, in place of SOURCE_DATE_EPOCH or the clock");
    Arguments::addOption(app, "--date-format", &m_dateFormat, "locale|iso",
                         "how the date is written");
    app->add_flag("--no-companion", m_noCompanion, "write no companion (.txt)");
    app->add_flag("--digest", m_digest, "write the image's SHA-256 beside it (.fcf.sha256)");
    Arguments::addOption(app, "--pad-to", &m_padTo, "page|block|BYTES",
                         "fill the image with 0xFF to the end of a page or block, or to a size");
    app->add_flag("--if-changed", m_ifChanged,
                  "replace outputs that exist, but leave them untouched where nothing but date and "
                  "time would change");
    app->add_flag("-f,--force", m_force, "replace outputs that exist");
    app->add_flag("--strict", m_strict, "take warnings for errors");
}

void CreateCommand::run(Task* task)
{
    task->findings.setSubject(m_binary.label());
    const Build build = m_build.build(task);
    const std::optional<InputFile> binary = m_binary.open(task);
    const std::optional<Outputs> outputs = binary ? plan(*binary, task) : std::nullopt;
    Checker(&task->findings, QString(), build.origins).checkBuild(build);
    FcfHeader composed = header(build, binary ? m_binary.payload(*binary).bytes : 0,
                                outputs ? outputs->imageName : QString(), task);
    if (binary)
        readPadTo(pageOf(composed, task->codec).size() + m_binary.payload(*binary).bytes, task);
    if (m_strict)
        task->findings.promoteWarnings();
    if (task->findings.hasErrors())
        return;
    const Region payload = m_binary.payload(*binary);
    if (m_ifChanged && isUnchanged(&composed, payload, *outputs, task)) {
        report(composed, *outputs, false, task);
        return;
    }
    const QByteArray page = pageOf(composed, task->codec);
    if (task->findings.accept(write(page, payload, *outputs, task)) && !outputs->toStandardOutput())
        report(composed, *outputs, true, task);
}

std::optional<Outputs> CreateCommand::plan(const InputFile& binary, Task* task) const
{
    std::optional<QString> output;
    if (m_output) {
        output = task->path(*m_output, "--output");
        if (!output)
            return std::nullopt;
        // As JSON it is refused, and that is what goes there.
        task->report.outIsTaken = output == StandardStream && !task->report.json;
    }
    auto outputs = task->findings.valueOf(Outputs::of(binary, output));
    if (outputs)
        guard(*outputs, task);
    return outputs;
}

void CreateCommand::guard(const Outputs& outputs, Task* task) const
{
    const OutputGuard guard(&task->inputs, m_force || m_ifChanged, &task->findings);
    guard.guardStandardOutput(task->environment, outputs.toStandardOutput());
    if (outputs.toStandardOutput()) {
        const auto refuse = [task](const QString& reason) {
            task->findings.error(ExitCode::Refused, StandardOutputLabel, QStringLiteral("--output"),
                                 reason);
        };
        if (!m_noCompanion)
            refuse(QStringLiteral("takes the image alone: give --no-companion as well"));
        if (m_digest || task->report.json)
            refuse(QStringLiteral("takes the image alone: --digest and --json need a file"));
        return;
    }
    guard.guard(outputs.image);
    if (m_noCompanion)
        guard.guardUnwritten(outputs.companion, "--no-companion");
    else
        guard.guard(outputs.companion);
    if (m_digest)
        guard.guard(outputs.digest);
    else
        guard.guardUnwritten(outputs.digest, "--digest");
}

FcfHeader CreateCommand::header(const Build& build, qint64 binaryBytes, const QString& imageName,
                                Task* task) const
{
    FcfHeader header;
    PelkFcfGeneratorFileInfo().measure(binaryBytes, &header);
    build.describe(&header);
    header.fileName = imageName;
    stamp(&header, task);
    Checker(&task->findings, QString(), build.origins).checkTexts(header, task->codec);
    return header;
}

/// With --date-time, else with SOURCE_DATE_EPOCH, else with the clock. Whatever is malformed is
/// refused, used or not.
void CreateCommand::stamp(FcfHeader* header, Task* task) const
{
    Findings& findings = task->findings;
    QDateTime moment = task->environment.clock();
    if (const auto& source = task->environment.sourceDateEpoch)
        moment = findings.valueOf(Stamp::sourceDate(*source)).value_or(moment);
    if (const auto text = m_dateTime ? task->text(*m_dateTime, "--date-time") : std::nullopt)
        moment = findings.valueOf(Stamp::given(*text)).value_or(moment);
    header->stamp(moment);
    const auto format = m_dateFormat ? task->text(*m_dateFormat, "--date-format") : std::nullopt;
    if (format && findings.valueOf(Stamp::dateFormat(*format)) == Stamp::DateFormat::Iso)
        header->date = moment.date().toString(Qt::ISODate);
}

Status CreateCommand::write(const QByteArray& page, const Region& payload, const Outputs& outputs,
                            Task* task)
{
    OutputFiles files(m_force || m_ifChanged ? OutputFiles::Replace : OutputFiles::Keep);
    QIODevice* image = task->environment.out;
    QString label = StandardOutputLabel;
    if (!outputs.toStandardOutput()) {
        const auto added = files.add(outputs.image);
        if (!added)
            return tl::unexpected<Finding>(added.error());
        image = *added;
        label = outputs.image;
    }
    Digest::Hash hash;
    const bool isDigested = m_digest || task->report.json;
    const CopyObserver progress = task->progress(QStringLiteral("create"), payload.bytes);
    const auto observe = [&](const char* data, qint64 bytes) {
        if (isDigested)
            hash.add(data, bytes);
        progress(data, bytes);
    };
    const QByteArray filler(static_cast<int>(fillerBytes(page.size() + payload.bytes)), '\xff');
    observe(page.constData(), page.size());
    Status status = writeAll(image, page, label);
    if (status)
        status = copyPayload(payload, image, label,
                             isDigested ? PayloadCopy::Seen : PayloadCopy::Unseen, observe);
    if (status)
        status = writeAll(image, filler, label);
    observe(filler.constData(), filler.size());
    m_imageDigest = hash.result();
    if (!status || outputs.toStandardOutput())
        return status;
    if (!m_noCompanion)
        status = files.add(outputs.companion, page);
    if (status && m_digest)
        status = files.add(outputs.digest, Digest::line(m_imageDigest, outputs.image));
    return status ? files.place() : status;
}

/// Bytes of 0xFF behind an image of \p imageBytes bytes, as --pad-to asks for.
qint64 CreateCommand::fillerBytes(qint64 imageBytes) const
{
    if (m_padToBytes == 0)
        return 0;
    return m_isPadMultiple ? (m_padToBytes - imageBytes % m_padToBytes) % m_padToBytes
                           : m_padToBytes - imageBytes;
}

void CreateCommand::readPadTo(qint64 imageBytes, Task* task)
{
    const QString option = QStringLiteral("--pad-to");
    const auto text = m_padTo ? task->text(*m_padTo, "--pad-to") : std::nullopt;
    if (!text)
        return;
    const auto number = wholeNumber(*text);
    m_isPadMultiple = !number;
    if (*text == QStringLiteral("page"))
        m_padToBytes = FcfLayout::PageBytes;
    else if (*text == QStringLiteral("block"))
        m_padToBytes = qint64(FcfLayout::PageBytes) * FcfLayout::BlockPages;
    else if (number && *number > 0)
        m_padToBytes = *number;
    else
        task->findings.error(ExitCode::Refused, QString(), option,
                             QStringLiteral("\"%1\" is neither page, block nor a number of bytes")
                                 .arg(shownText(*text)));
    if (number && *number > 0 && imageBytes > *number)
        task->findings.error(ExitCode::Refused, QString(), option,
                             QStringLiteral("the image has %1 bytes already").arg(imageBytes));
}

/// Whether the outputs are there and differ from those that would be written in date and time at
/// most. Then \p header gets theirs.
bool CreateCommand::isUnchanged(FcfHeader* header, const Region& payload, const Outputs& outputs,
                                Task* task)
{
    Inputs inputs(nullptr, nullptr);
    const QString option = QStringLiteral("--if-changed");
    const auto image = inputs.open(outputs.image, Validator::LargestFile, option);
    const auto old = image ? HeaderPage::read(*image, task->codec, ExitCode::NotValid)
                           : Result<HeaderPage>(tl::unexpected<Finding>(image.error()));
    if (!old)
        return false;
    FcfHeader same = *header;
    same.date = old->reading.header.date;
    same.time = old->reading.header.time;
    const QByteArray page = pageOf(same, task->codec);
    const qint64 bytes = page.size() + payload.bytes;
    const QByteArray filler(static_cast<int>(fillerBytes(bytes)), '\xff');
    if (image->size() != bytes + filler.size() || image->bytesAt(0, page.size()) != page ||
        image->bytesAt(bytes, filler.size()) != filler)
        return false;
    qint64 offset = page.size();
    bool isSame = true;
    Status status = readAll(payload, [&](const char* data, qint64 count) {
        isSame = isSame && image->bytesAt(offset, count) ==
                               QByteArray::fromRawData(data, static_cast<int>(count));
        offset += count;
    });
    const auto digest = Digest::of({&*image, 0, image->size(), nullptr}, [](auto, auto) {});
    const auto has = [&](const QString& path, const QByteArray& expected) {
        const auto file = inputs.open(path, Validator::LargestFile, option);
        return file && file->bytesAt(0, expected.size() + 1) == expected;
    };
    if (!status || !isSame || !digest || (!m_noCompanion && !has(outputs.companion, page)) ||
        (m_digest && !has(outputs.digest, Digest::line(*digest, outputs.image))))
        return false;
    m_imageDigest = *digest;
    *header = same;
    return true;
}

void CreateCommand::report(const FcfHeader& header, const Outputs& outputs, bool isWritten,
                           Task* task) const
{
    const struct {
        bool isWanted;
        const char* name;
        QString path;
    } files[] = {{true, "image", outputs.image},
                 {!m_noCompanion, "companion", outputs.companion},
                 {m_digest, "digest", outputs.digest}};
    for (const auto& file : files) {
        if (!file.isWanted)
            continue;
        task->report.print(isWritten ? file.path : QStringLiteral("%1: unchanged").arg(file.path));
        task->report.result[QLatin1String(file.name)] = file.path;
    }
    task->report.result["sha256"] = QString::fromLatin1(m_imageDigest.toHex());
    task->report.result["changed"] = isWritten;
    task->report.result["header"] = BuildJson::header(header);
    task->report.isInPlace = true;
}

} // namespace

std::unique_ptr<Command> createCommand() { return std::make_unique<CreateCommand>(); }
