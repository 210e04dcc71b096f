#ifndef TOOL_KILLEDRUN_H
#define TOOL_KILLEDRUN_H

#include "tool/FileError.h"

#include <QString>

#include <optional>

/// What a run that was killed left of one image while it put its outputs in place: files that
/// belong to an image which did not follow.
class KilledRun {
public:
    /// A run for the image at \p image, its companion at \p companion, and its digest.
    KilledRun(const QString& image, const QString& companion);

    /// A run to whose outputs the file at \p path would belong by its name; of a name that is none
    /// of theirs, a run that was not.
    static KilledRun around(const QString& path);

    /// Whether undo() would remove the file at \p path.
    bool placedWhereNothingWas(const QString& path) const;

    /// Gives companion and digest what stood there before, unless the image did follow or somebody
    /// has written into the file since, and clears the temporary names. Returns false, with
    /// \p error, if another run is at it or a file cannot be had; then nothing is lost.
    bool undo(FileError* error) const;

private:
    std::optional<bool> isUntouched(const QString& path) const;
    bool undo(const QString& path, FileError* error) const;

    QString m_image;
    QString m_companion;
};

#endif
