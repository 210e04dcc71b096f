#ifndef TOOL_KILLEDRUN_H
#define TOOL_KILLEDRUN_H

#include "tool/FileError.h"

#include <QString>
#include <QStringList>

/// What a run that was killed left of one image while it put its outputs in place: files that
/// belong to an image which did not follow.
class KilledRun {
public:
    /// A run for the image at \p image.
    explicit KilledRun(const QString& image) : m_image(image) {}

    /// Whether undo() would remove the file at \p path.
    bool placedWhereNothingWas(const QString& path) const;

    /// Gives each of \p others, the paths of companion and digest, what stood there before, unless
    /// the image did follow or somebody has written into the file since, and clears the temporary
    /// names. Returns false, with \p error, if
    /// another run is at it or a file cannot be had.
    bool undo(const QStringList& others, FileError* error) const;

private:
    bool isUntouched(const QString& path) const;

    const QString m_image;
};

#endif
