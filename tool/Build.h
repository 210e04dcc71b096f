#ifndef TOOL_BUILD_H
#define TOOL_BUILD_H

#include "fcf/FcfHeader.h"

#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

struct Version {
    qint32 major = 0;
    qint32 minor = 0;
};

/// What a user says about a build: the header but for what follows from the binary, the clock and
/// the image's name. What was not said is empty.
struct Build {
    std::optional<QString> author;
    std::optional<QString> ciNumber;
    std::optional<QString> module;
    std::optional<QString> device;
    std::optional<qint32> configNumber;
    std::optional<Version> version;
    std::optional<QString> description;
    std::optional<QVector<FcfFunction>> functions;

    /// The files that the fields were taken from, by their names; those of the command line have
    /// none.
    QHash<QString, QString> origins;

    /// Takes from \p other whatever was not said here; it comes from the file \p origin.
    void complete(const Build& other, const QString& origin);

    /// What \p header says. Codes that stand for no target leave it unsaid.
    static Build of(const FcfHeader& header);

    /// Puts all that was said into \p header, the target as codes, the texts as a file holds them.
    void describe(FcfHeader* header) const;
};

#endif
