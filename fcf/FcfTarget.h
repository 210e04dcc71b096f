#ifndef FCF_FCFTARGET_H
#define FCF_FCFTARGET_H

#include <QString>
#include <QStringList>
#include <QtGlobal>

/// Where an image can go: the modules, their devices and flash slots, and the codes for them in the
/// header. Names are compared exactly.
namespace FcfTarget {

const int FirstSlot = 1;
const int LastSlot = 10;

/// One device of one module.
struct Target {
    const char* module;
    qint32 moduleCode;
    const char* device;
    /// A single bit, or NoCode.
    qint32 deviceCode;
};

/// A device with this code has none of its own.
const qint32 NoCode = 0;
const int TargetCount = 8;

/// All of them, in the order in which a form offers them; what follows here is read from it.
extern const Target Targets[TargetCount];

QStringList modules();

/// The devices of \p module; none for an unknown one.
QStringList devicesOf(const QString& module);

/// Returns the FcfHeader::moduleCode of \p module. An unknown one has the code of all but the
/// first.
qint32 moduleCode(const QString& module);

/// Returns the FcfHeader::deviceCode of \p device when \p module is selected, or \p without for a
/// device that has no code. A device keeps its code under a module that does not list it, but for
/// the two that share one.
qint32 deviceCode(const QString& module, const QString& device, qint32 without);

/// The target with these codes, or null when there is none.
const Target* find(qint32 moduleCode, qint32 deviceCode);

} // namespace FcfTarget

#endif
