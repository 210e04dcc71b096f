#ifndef TOOL_FILES_DEPFILE_H
#define TOOL_FILES_DEPFILE_H

#include "tool/base/Result.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// Dependencies as make and ninja read them.
namespace DepFile {

/// The rule that \p target depends on \p inputs. Refuses a name with a line break, which no rule
/// can have.
Result<QByteArray> rule(const QString& target, const QStringList& inputs);

} // namespace DepFile

#endif
