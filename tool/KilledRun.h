#ifndef TOOL_KILLEDRUN_H
#define TOOL_KILLEDRUN_H

#include "tool/FileError.h"

#include <QString>
#include <QStringList>

/// What a run that was killed left of one image, while it put its outputs in place: a companion or
/// a digest of an image that was complete, but did not follow.
class KilledRun {
public:
    /// A run for the image at \p image.
    explicit KilledRun(const QString& image);

    /// Whether undo() would remove the file at \p path.
    bool placedWhereNothingWas(const QString& path) const;

    /// Gives each of \p others, the paths of companion and digest, what stood there before, and
    /// clears the image that did not follow. Returns false, with \p error, if another run is at it
    /// or a file cannot be had.
    bool undo(const QStringList& others, FileError* error) const;

private:
    int takeBack(const QString& path) const;
    bool placed(const QString& path) const;
    bool belongs(const QString& path, const QString& image) const;

    const QString m_image;
    const QString m_partial;
};

#endif
