#ifndef TOOL_COMMANDS_COMMAND_H
#define TOOL_COMMANDS_COMMAND_H

#include "tool/check/Findings.h"
#include "tool/check/HeaderPage.h"
#include "tool/console/Console.h"
#include "tool/files/InputFile.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

/// The arguments of a command, which are taken as they are. Commands declare theirs by these
/// functions and see no more of the parser.
namespace Argument {

/// An argument as the parser must get it: in operands it would read what is in brackets as a list.
/// The functions below take the guard off again.
std::string guarded(const std::string& argument);

/// A message of the parser without the guards of the arguments in it.
std::string unguarded(std::string message);

/// Adds an option, or an operand, that takes one argument, whatever that looks like, and may be
/// given once.
void addOption(CLI::App* app, const char* name, std::optional<std::string>* value, const char* type,
               const char* help);
void addRequired(CLI::App* app, const char* name, std::optional<std::string>* value,
                 const char* type, const char* help);

/// Adds an option that takes \p count arguments each time it is given.
void addRepeatedOption(CLI::App* app, const char* name, int count, std::vector<std::string>* values,
                       const char* type, const char* help);

/// Adds an operand that must be given at least once.
void addOperands(CLI::App* app, const char* name, std::vector<std::string>* values,
                 const char* help);

/// Adds an option without an argument.
void addFlag(CLI::App* app, const char* name, bool* value, const char* help);

/// Refuses \p option without \p other.
void setNeeded(CLI::App* app, const char* option, const char* other);

/// What --help says above \p option, and at its end.
void setGroup(CLI::App* app, const char* option, const char* title);
void setFooter(CLI::App* app, const std::string& text);

} // namespace Argument

/// An image or a companion, and its header page.
struct FcfFile {
    InputFile file;
    HeaderPage page;
};

/// One run of one command: the world outside, what it reads, what it finds and what it reports.
/// Only commands see all of it.
struct Task {
    /// \p environment does not become its own.
    Task(const Environment* environment, const std::string& command);

    /// Writes what there is to report, and returns what the run ends with.
    int finish() { return report.finish(environment, inputs, &findings); }

    /// What shows that \p label goes on, for \p total bytes.
    CopyObserver progress(const QString& label, qint64 total) const;

    /// The argument of \p option as text or as the name of a file, or nothing, with a finding.
    std::optional<QString> text(const std::string& argument, const char* option);
    std::optional<QString> path(const std::string& argument, const char* option);
    /// As Inputs::open().
    std::optional<InputFile> open(const QString& path, qint64 limit, const char* field);
    /// Up to \p limit bytes of the file at \p path.
    std::optional<QByteArray> bytesOf(const QString& path, qint64 limit, const char* field);
    /// Adds the error that the argument of \p option is refused.
    void refuse(const char* option, const QString& reason);
    /// The image or companion that the operand FILE names. Of a whole one the payload is measured.
    enum Reach { PageOnly, Whole };
    std::optional<FcfFile> openFcf(const std::string& argument, Reach reach,
                                   ExitCode ifBad = ExitCode::NotValid,
                                   HeaderPage::Bytes bytes = HeaderPage::Exact);

    const Environment& environment;
    QTextCodec* const codec;
    Findings findings;
    Report report;
    Inputs inputs;
};

/// One command of the tool: its arguments, and what it does.
class Command {
public:
    /// Adds the command to \p parent, which fills its arguments into this object and owns app.
    Command(CLI::App* parent, const char* name, const char* summary);
    virtual ~Command() = default;
    Q_DISABLE_COPY(Command)

    /// Does it. Whatever is to be said goes to \p task.
    virtual void run(Task* task) = 0;

    CLI::App* const app;
};

using CommandPointer = std::unique_ptr<Command>;
using CommandFactory = CommandPointer (*)(CLI::App* parent);

CommandPointer createCommand(CLI::App* parent);
CommandPointer showCommand(CLI::App* parent);
CommandPointer listCommand(CLI::App* parent);
CommandPointer verifyCommand(CLI::App* parent);
CommandPointer extractCommand(CLI::App* parent);
CommandPointer recipeCommand(CLI::App* parent);
CommandPointer diffCommand(CLI::App* parent);
CommandPointer digestCommand(CLI::App* parent);

/// Runs the tool with \p arguments (without the program's own name), and returns the exit code.
int runCommandLine(const std::vector<std::string>& arguments, const Environment& environment);

#endif
