#ifndef HOST_APP_IMAGE_FILESTATE_H
#define HOST_APP_IMAGE_FILESTATE_H

#include <QStringList>

namespace OrvanticCore {
class Design;
class DesignFile;
} // namespace OrvanticCore

/// What the disk and the design say about a file of a design.
struct FileState {
    bool isGenerated = false;
    bool isMissing = false;
    /// Whether it is outside of the folder of the design.
    bool isOutside = false;
    /// What is wrong with the header page of an image or a companion, or empty.
    QString invalid;
    /// Why an image, or another generated file, should be made again.
    QStringList outdated;

    static FileState of(const OrvanticCore::DesignFile& file);

    /// The words for the user, as in "Generated, Outdated".
    QStringList words() const;

    /// Whether the file is not what the design needs.
    bool needsAttention() const { return isMissing || !invalid.isEmpty() || !outdated.isEmpty(); }

    /// The files of \p design that need attention, a line for each with its words and reasons.
    static QStringList linesOf(const OrvanticCore::Design& design);
};

#endif
