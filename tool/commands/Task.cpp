#include "tool/commands/Task.h"

#include "tool/base/Text.h"
#include "tool/check/FcfFileChecker.h"
#include "tool/console/Progress.h"

Task::Task(const Environment* world, const std::string& command)
    : environment(*world), codec(world->codec), report(command),
      inputs(world->in, [this](const QString& label) { return progress(label, Progress::Unknown); })
{
}

CopyObserver Task::progress(const QString& label, qint64 total) const
{
    if (report.quiet)
        return [](const char*, qint64) {};

    return Progress::observer(&environment, label, total);
}

std::optional<QString> Task::text(const std::string& argument, const char* option)
{
    return findings.valueOf(decodedText(argument, codec, QLatin1String(option)));
}

std::optional<QString> Task::path(const std::string& argument, const char* option)
{
    return findings.valueOf(decodedPath(argument, codec, QLatin1String(option)));
}

std::optional<InputFile> Task::open(const QString& path, qint64 limit, const char* field)
{
    return findings.valueOf(inputs.open(path, limit, QLatin1String(field)));
}

std::optional<QByteArray> Task::bytesOf(const QString& path, qint64 limit, const char* field)
{
    const std::optional<InputFile> file = open(path, limit, field);
    if (!file)
        return std::nullopt;

    return findings.valueOf(file->bytesAt(0, limit));
}

void Task::refuse(const char* option, const QString& reason)
{
    findings.refuse(QString(), QLatin1String(option), reason);
}

std::optional<FcfFile> Task::openFcf(const std::string& argument, Reach reach, ExitCode ifBad,
                                     HeaderPage::Bytes bytes)
{
    const std::optional<QString> name = path(argument, "FILE");
    if (!name)
        return std::nullopt;

    const qint64 limit =
        reach == Whole ? FcfFileChecker::LargestFile : FcfExactReader::MaximumBytes;
    auto file = open(*name, limit, "FILE");
    if (!file)
        return std::nullopt;

    return readFcf(std::move(*file), reach, ifBad, bytes);
}

std::optional<FcfFile> Task::readFcf(InputFile file, Reach reach, ExitCode ifBad,
                                     HeaderPage::Bytes bytes)
{
    auto page = findings.valueOf(HeaderPage::read(file, codec, ifBad, bytes));
    if (!page)
        return std::nullopt;
    if (reach == Whole && !findings.accept(page->measure(file)))
        return std::nullopt;

    return FcfFile{std::move(file), std::move(*page)};
}
