#include "FileKind.h"

#include "tool/Session.h"

std::optional<Validator::Kind> kindOfFile(const QString& path,
                                          const std::optional<std::string>& type, Session* session)
{
    if (type == "image" || (!type && path.endsWith(QStringLiteral(".fcf"))))
        return Validator::Image;
    if (type == "companion" || (!type && path.endsWith(QStringLiteral(".txt"))))
        return Validator::Companion;
    session->findings.error(
        ExitCode::Refused, path, QStringLiteral("--type"),
        type ? QStringLiteral("is neither \"image\" nor \"companion\"")
             : QStringLiteral("is missing: the name ends with neither .fcf nor .txt"));
    return std::nullopt;
}
