#ifndef FCF_FCFDEVICE_H
#define FCF_FCFDEVICE_H

#include <QCoreApplication>
#include <QString>

class QByteArray;
class QIODevice;

/// Writing to any device, whole or with a reason.
class FcfDevice {
    Q_DECLARE_TR_FUNCTIONS(FcfDevice)

public:
    /// Writes all of \p bytes. Returns false when \p device did not take every byte, with the
    /// reason in \p error if that is not null.
    static bool writeAll(QIODevice* device, const QByteArray& bytes, QString* error);
};

#endif
