#ifndef TOOL_COMMANDS_COMMAND_H
#define TOOL_COMMANDS_COMMAND_H

#include "tool/check/Findings.h"
#include "tool/check/HeaderPage.h"
#include "tool/console/Console.h"
#include "tool/console/Report.h"
#include "tool/files/InputFile.h"

#include <memory>

namespace CLI {
class App;
}

/// An image or a companion, and its header page.
struct FcfFile {
    InputFile file;
    HeaderPage page;
};

/// One run of one command: the world outside, what it reads, what it finds and what it reports.
/// Only commands see all of it.
struct Task {
    /// \p environment does not become its own.
    Task(const Environment* environment, const char* command);

    /// What shows that \p label goes on, for \p total bytes.
    CopyObserver progress(const QString& label, qint64 total) const;

    /// The argument of \p option as text or as the name of a file, or nothing, with a finding.
    std::optional<QString> text(const std::string& argument, const char* option);
    std::optional<QString> path(const std::string& argument, const char* option);
    /// As Inputs::open().
    std::optional<InputFile> open(const QString& path, qint64 limit, const char* field);
    std::optional<FcfFile> openFcf(const QString& path, qint64 limit, const char* field);

    const Environment& environment;
    QTextCodec* const codec;
    Findings findings;
    Report report;
    Inputs inputs;
};

/// One command of the tool: its arguments, and what it does.
class Command {
public:
    Command() = default;
    virtual ~Command() = default;
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    virtual const char* name() const = 0;
    virtual const char* summary() const = 0;

    /// Adds the command's own arguments to \p app, which fills them into this object.
    virtual void declare(CLI::App* app) = 0;

    /// Does it. Whatever is to be said goes to \p task.
    virtual void run(Task* task) = 0;
};

std::unique_ptr<Command> createCommand();
std::unique_ptr<Command> showCommand();
std::unique_ptr<Command> verifyCommand();
std::unique_ptr<Command> extractCommand();
std::unique_ptr<Command> recipeCommand();
std::unique_ptr<Command> diffCommand();
std::unique_ptr<Command> digestCommand();

#endif
