#include "tool/commands/Command.h"

#include "tool/base/Text.h"
#include "tool/console/Console.h"

Task::Task(const Environment* world, const char* command)
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
    return findings.valueOf(textOf(argument, codec, QLatin1String(option)));
}

std::optional<QString> Task::path(const std::string& argument, const char* option)
{
    return findings.valueOf(pathOf(argument, codec, QLatin1String(option)));
}

std::optional<InputFile> Task::open(const QString& path, qint64 limit, const char* field)
{
    return findings.valueOf(inputs.open(path, limit, QLatin1String(field)));
}

std::optional<FcfFile> Task::openFcf(const QString& path, qint64 limit, const char* field)
{
    auto file = open(path, limit, field);
    auto page =
        file ? findings.valueOf(HeaderPage::read(*file, codec, ExitCode::NotValid)) : std::nullopt;
    return page ? std::optional<FcfFile>({std::move(*file), std::move(*page)}) : std::nullopt;
}
