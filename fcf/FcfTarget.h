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

/// In the order in which a form offers them.
QStringList modules();

/// The devices of \p module, in the order in which a form offers them; none for an unknown one.
QStringList devicesOf(const QString& module);

/// What FcfHeader::moduleCode is for \p module. Only "DFE" has a code of its own.
qint32 moduleCode(const QString& module);

/// What FcfHeader::deviceCode is for \p device when \p module is selected: a single bit, or
/// \p without for a device that has no code.
qint32 deviceCode(const QString& module, const QString& device, qint32 without);

struct Target {
    QString module;
    QString device;
};

/// Finds the one module and device with these codes, a device without a code counting as 0.
/// Returns false, and leaves \p target alone, when there is none.
bool find(qint32 moduleCode, qint32 deviceCode, Target* target);

} // namespace FcfTarget

#endif
