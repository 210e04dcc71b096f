#ifndef TOOL_CHECK_FCFFILEDIFFERENCES_H
#define TOOL_CHECK_FCFFILEDIFFERENCES_H

#include "tool/base/Result.h"

#include <QJsonArray>
#include <QStringList>

class QTextCodec;
struct FcfFile;

/// What differs in two images or companions.
namespace FcfFileDifferences {

/// The names of all that can differ, besides the fields of a header.
extern const QString Payload;
QStringList otherNames();

/// What differs but for the payloads, as objects of "field", "a" and "b". If it is empty, and the
/// payloads are equal, both files have the same bytes.
Result<QJsonArray> find(const FcfFile& a, const FcfFile& b, QTextCodec* codec);

} // namespace FcfFileDifferences

#endif
