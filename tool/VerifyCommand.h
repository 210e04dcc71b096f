#ifndef TOOL_VERIFYCOMMAND_H
#define TOOL_VERIFYCOMMAND_H

#include "tool/Command.h"
#include "tool/Validator.h"

#include <QJsonObject>

struct HeaderPage;

/// Says whether files are valid images or companions.
class VerifyCommand : public Command {
public:
    const char* name() const override { return "verify"; }
    const char* summary() const override { return "Say whether images and companions are valid"; }
    void declare(CLI::App* app) override;
    void run(Session* session) override;

private:
    bool usageIsRight(Session* session) const;
    void verify(const QString& path, Session* session, QJsonObject* result) const;
    bool compareOthers(InputFile* file, Validator::Kind kind, const HeaderPage& page,
                       Session* session) const;
    /// Returns whether the payload is known to be right.
    bool checkDigest(InputFile* file, Session* session) const;

    std::vector<std::string> m_files;
    std::optional<std::string> m_binary;
    std::optional<std::string> m_companion;
    std::optional<std::string> m_digest;
    std::optional<std::string> m_type;
};

#endif
