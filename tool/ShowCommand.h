#ifndef TOOL_SHOWCOMMAND_H
#define TOOL_SHOWCOMMAND_H

#include "tool/Command.h"

class QString;

/// Lists the header pages of images and companions. Never reads a payload.
class ShowCommand : public Command {
public:
    const char* name() const override { return "show"; }
    const char* summary() const override { return "List the header of images and companions"; }
    void declare(CLI::App* app) override;
    void run(Session* session) override;

private:
    std::vector<std::string> m_files;
};

#endif
