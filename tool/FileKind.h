#ifndef TOOL_FILEKIND_H
#define TOOL_FILEKIND_H

#include "tool/Validator.h"

#include <optional>
#include <string>

/// Whether the file at \p path is an image or a companion: what \p type (of --type) says, else the
/// ending of its name, and never what is in it: an image that was cut off behind its header looks
/// just like a companion. Anything else is refused.
std::optional<Validator::Kind> kindOfFile(const QString& path,
                                          const std::optional<std::string>& type, Session* session);

#endif
