#include "fcf/FcfDevice.h"

#include <QByteArray>
#include <QIODevice>

namespace {

bool fail(QString* error, const QString& reason)
{
    if (error)
        *error = reason;
    return false;
}

} // namespace

bool FcfDevice::writeAll(QIODevice* device, const QByteArray& bytes, QString* error)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = device->write(bytes.constData() + written, bytes.size() - written);
        if (count < 0)
            return fail(error, device->errorString());
        if (count == 0)
            return fail(error, tr("the device takes no more bytes"));
        written += count;
    }
    return true;
}
