#ifndef TOOL_BUILDOPTIONS_H
#define TOOL_BUILDOPTIONS_H

#include "tool/Build.h"

#include <optional>
#include <string>
#include <vector>

class Session;

namespace CLI {
class App;
}

/// The arguments that describe a build.
class BuildOptions {
public:
    void declare(CLI::App* app);

    /// What they say, completed from the file given with --like. What cannot be taken as it was
    /// given is refused.
    Build build(Session* session) const;

private:
    void readText(const std::optional<std::string>& argument, const char* option,
                  std::optional<QString>* value, Session* session) const;
    void readConfigNumber(Build* build, Session* session) const;
    void readVersion(Build* build, Session* session) const;
    void readDescription(Build* build, Session* session) const;
    void readFunctions(Build* build, Session* session) const;
    Build like(Session* session) const;

    std::optional<std::string> m_author;
    std::optional<std::string> m_ciNumber;
    std::optional<std::string> m_module;
    std::optional<std::string> m_device;
    std::optional<std::string> m_configNumber;
    std::optional<std::string> m_version;
    std::optional<std::string> m_description;
    std::optional<std::string> m_like;
    std::vector<std::string> m_functions;
};

#endif
