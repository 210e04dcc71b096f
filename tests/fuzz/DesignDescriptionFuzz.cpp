// A description of a design that is read is written, and read again, as the same design.

#include "fuzz/FuzzTarget.h"

#include "host/app/common/HostError.h"
#include "host/app/DesignDescription.h"
#include "host/app/JsonNode.h"

#include <OrvanticCore/Design.h>

#include <QJsonDocument>

namespace {

const QString Folder = QStringLiteral("/designs/radar");

QJsonObject rewritten(const QJsonObject& description)
{
    return DesignDescription::write(*DesignDescription::read(JsonNode(description), Folder));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QJsonObject description =
        QJsonDocument::fromJson(
            QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)))
            .object();
    QJsonObject written;
    try {
        written = rewritten(description);
    } catch (const HostError& error) {
        require(!error.text().isEmpty(), "refused without a reason");
        return 0;
    }
    try {
        require(rewritten(written) == written, "another description");
    } catch (const HostError&) {
        require(false, "own description is refused");
    }
    return 0;
}
