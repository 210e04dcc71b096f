#ifndef HOST_APP_IMAGE_REMAKE_H
#define HOST_APP_IMAGE_REMAKE_H

#include "host/app/image/ImageFiles.h"
#include "host/app/image/ImageTarget.h"

#include <QStringList>

/// An image that is to be made again, with the texts and functions that it has, from the binary
/// beside it.
struct Remake {
    ImageFiles files;
    ImageTarget target;
    /// As in "1.4".
    QString version;

    /// Replaces the image, its companion and, if there is one, its digest, all of them or none.
    /// Returns the warnings of the tool. Throws a HostError.
    QStringList run() const;

    /// What the image that is there was made for, as far as its header can be read.
    ImageTarget presentTarget() const;
};

#endif
