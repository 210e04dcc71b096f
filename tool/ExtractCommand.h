#ifndef TOOL_EXTRACTCOMMAND_H
#define TOOL_EXTRACTCOMMAND_H

#include "tool/Command.h"

class InputFile;
class QString;
struct HeaderPage;

/// Takes the payload out of a valid image.
class ExtractCommand : public Command {
public:
    const char* name() const override { return "extract"; }
    const char* summary() const override { return "Take the payload out of an image"; }
    void declare(CLI::App* app) override;
    void run(Session* session) override;

private:
    void extract(InputFile* file, const HeaderPage& page, const QString& output,
                 Session* session) const;

    std::string m_file;
    std::string m_output;
    bool m_force = false;
};

#endif
