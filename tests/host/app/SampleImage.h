#ifndef TESTS_HOST_APP_SAMPLEIMAGE_H
#define TESTS_HOST_APP_SAMPLEIMAGE_H

#include "fcf/FcfHeader.h"

#include <QByteArray>

/// Valid images for designs in the host, made without the tool.
namespace SampleImage {

/// A binary of \p bytes bytes, in which the sync word is where it should be.
QByteArray binary(int bytes, char fill);

/// The header of an image for GPM, Processing_FPGA_2, slot 3, with four functions, in which every
/// text differs.
FcfHeader header(const QString& name, int major, int minor);

/// The image of \p payload, with its sizes.
QByteArray image(FcfHeader header, const QByteArray& payload);

} // namespace SampleImage

#endif
