#ifndef HOST_APP_IMAGE_IMAGEFILES_H
#define HOST_APP_IMAGE_IMAGEFILES_H

#include <QString>

/// The files of one image: they have the same name, but for its end, and are in the same folder.
struct ImageFiles {
    QString binary;
    QString image;
    QString companion;
    /// The digest that the command-line tool writes.
    QString digest;

    /// The files that belong to the one at \p path. All paths are empty unless that is a binary, an
    /// image or a companion by its name.
    static ImageFiles of(const QString& path);

    /// Whether there is an image, and the binary from which it can be made again.
    bool canBeMadeAgain() const;

    bool operator==(const ImageFiles& other) const { return image == other.image; }
};

#endif
