#ifndef HOST_APP_IMAGE_IMAGETARGET_H
#define HOST_APP_IMAGE_IMAGETARGET_H

#include <QString>

namespace OrvanticCore {
class Design;
}

struct FcfHeader;

/// The module, the device and the flash slot that an image is for.
struct ImageTarget {
    /// The properties in which a design has its target.
    static const char ModuleProperty[];
    static const char DeviceProperty[];
    static const char SlotProperty[];

    /// Empty if it is not known.
    QString module;
    /// Empty if it is not known, else a device of the module.
    QString device;
    /// 0 if it is not known.
    int slot = 0;

    /// What \p design has of a target. A value that no image can have counts as not known.
    static ImageTarget of(const OrvanticCore::Design& design);

    /// The target of the codes in \p header.
    static ImageTarget of(const FcfHeader& header);

    bool isComplete() const { return !module.isEmpty() && !device.isEmpty() && slot != 0; }

    /// This target, with what is not known of it from \p other.
    ImageTarget completedBy(const ImageTarget& other) const;

    /// As in "GPM, Processing_FPGA_2, slot 3".
    QString text() const;

    bool operator==(const ImageTarget& other) const
    {
        return module == other.module && device == other.device && slot == other.slot;
    }
    bool operator!=(const ImageTarget& other) const { return !(*this == other); }
};

#endif
