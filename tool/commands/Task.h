#ifndef TOOL_COMMANDS_TASK_H
#define TOOL_COMMANDS_TASK_H

#include "tool/check/FcfFile.h"
#include "tool/check/Findings.h"
#include "tool/console/Environment.h"
#include "tool/console/Report.h"
#include "tool/files/InputOpener.h"

#include <optional>
#include <string>

/// One run of one command: its environment, what it reads, what it finds and what it reports. Only
/// commands use all of it.
struct Task {
    /// \p environment is not owned.
    Task(const Environment* environment, const std::string& command);

    /// Writes the report, and returns the exit code.
    int finish() { return report.finish(environment, inputs, &findings); }

    /// Shows the progress of \p label, for \p total bytes.
    CopyObserver progress(const QString& label, qint64 total) const;

    /// The argument of \p option as text or as the name of a file, or nothing, with a finding.
    std::optional<QString> text(const std::string& argument, const char* option);
    std::optional<QString> path(const std::string& argument, const char* option);

    /// Opens an input as InputOpener::open() does.
    std::optional<InputFile> open(const QString& path, qint64 limit, const char* field);

    /// Reads up to \p limit bytes of the file at \p path.
    std::optional<QByteArray> bytesOf(const QString& path, qint64 limit, const char* field);

    /// Adds the error that the argument of \p option is refused.
    void refuse(const char* option, const QString& reason);

    enum Reach {
        PageOnly,
        /// The payload is measured, too.
        Whole
    };

    /// The image or companion that the operand FILE names. One that has no right page ends the run
    /// with \p ifBad.
    std::optional<FcfFile> openFcf(const std::string& argument, Reach reach,
                                   ExitCode ifBad = ExitCode::NotValid,
                                   HeaderPage::Bytes bytes = HeaderPage::Exact);

    /// As openFcf(), of a \p file that was opened already.
    std::optional<FcfFile> readFcf(InputFile file, Reach reach, ExitCode ifBad = ExitCode::NotValid,
                                   HeaderPage::Bytes bytes = HeaderPage::Exact);

    const Environment& environment;
    /// Not owned.
    QTextCodec* const codec;
    Findings findings;
    Report report;
    InputOpener inputs;
};

#endif
