#ifndef TOOL_JSONKEYS_H
#define TOOL_JSONKEYS_H

#include <QByteArray>
#include <QString>

#include <optional>

namespace JsonKeys {

/// The first name that one object of \p json, which must be valid, gives twice. A parser keeps just
/// one of the two values.
std::optional<QString> repeated(const QByteArray& json);

} // namespace JsonKeys

#endif
