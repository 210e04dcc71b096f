#ifndef HOST_APP_DESIGNDESCRIPTION_H
#define HOST_APP_DESIGNDESCRIPTION_H

#include <QJsonObject>
#include <QString>

#include <memory>

class JsonNode;

namespace OrvanticCore {
class Design;
}

/// How a design is written down. Paths are relative to the design's folder where they lie in it.
namespace DesignDescription {

/// The newest format that is read, and the one that is written.
constexpr int Format = 1;

QJsonObject write(const OrvanticCore::Design& design);

/// A new, unmodified design in \p folder. Throws a HostError for a description that is not whole
/// or of a newer format.
std::unique_ptr<OrvanticCore::Design> read(const JsonNode& description, const QString& folder);

} // namespace DesignDescription

#endif
