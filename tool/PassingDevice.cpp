#include "PassingDevice.h"

PassingDevice::PassingDevice(QIODevice* device, OpenMode mode) : m_device(device)
{
    open(mode | QIODevice::Unbuffered);
}

qint64 PassingDevice::readData(char* data, qint64 maxSize)
{
    return pass(data, m_device->read(data, maxSize));
}

qint64 PassingDevice::writeData(const char* data, qint64 maxSize)
{
    return pass(data, m_device->write(data, maxSize));
}

qint64 PassingDevice::pass(const char* data, qint64 count)
{
    if (count < 0)
        setErrorString(m_device->errorString());
    else
        passed(data, count);
    return count;
}
