#ifndef TOOL_CREATECOMMAND_H
#define TOOL_CREATECOMMAND_H

#include "tool/BuildOptions.h"
#include "tool/Command.h"
#include "tool/Outputs.h"

/// Makes an image and its companion of a binary.
class CreateCommand : public Command {
public:
    const char* name() const override { return "create"; }
    const char* summary() const override { return "Make an image and its companion of a binary"; }
    void declare(CLI::App* app) override;
    void run(Session* session) override;

private:
    std::optional<Outputs> plan(InputFile* binary, Session* session) const;
    void checkBinary(InputFile* binary, Session* session) const;
    FcfHeader header(const Build& build, const InputFile& binary, const QString& imageName,
                     Session* session) const;
    void write(const FcfHeader& header, InputFile* binary, const Outputs& outputs,
               Session* session) const;
    void writeToStandardOutput(const FcfHeader& header, InputFile* binary, Session* session) const;

    BuildOptions m_build;
    std::string m_binary;
    std::optional<std::string> m_output;
    std::optional<std::string> m_dateTime;
    std::optional<std::string> m_dateFormat;
    bool m_noCompanion = false;
    bool m_digest = false;
    bool m_force = false;
    bool m_strict = false;
};

#endif
