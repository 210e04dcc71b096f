#ifndef HOST_APP_IMAGE_PAGECHECK_H
#define HOST_APP_IMAGE_PAGECHECK_H

#include "fcf/FcfHeader.h"
#include "tool/base/Result.h"

#include <QList>
#include <QString>

class InputFile;

/// What the tool finds in the header page of an image or a companion. The payload is left alone,
/// but for its length, so that the check takes no time worth mentioning.
struct PageCheck {
    /// The first error, in English as the tool says it. Empty for a valid page.
    QString problem;
    /// The header of a valid page.
    FcfHeader header;

    /// Checks the page of the file at \p path. A file that has the size and the time of the last
    /// check is not read again.
    static PageCheck of(const QString& path);

    /// The errors in the page of \p file, which is open.
    static QList<Finding> errorsOf(const InputFile& file);
};

#endif
