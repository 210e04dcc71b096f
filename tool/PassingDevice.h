#ifndef TOOL_PASSINGDEVICE_H
#define TOOL_PASSINGDEVICE_H

#include <QIODevice>

/// Hands bytes from or to another device, and shows them to a subclass on the way.
class PassingDevice : public QIODevice {
public:
    /// \p device does not become its own.
    PassingDevice(QIODevice* device, OpenMode mode);

    bool isSequential() const override { return true; }

protected:
    /// Called for what was read or written.
    virtual void passed(const char* data, qint64 bytes) = 0;

    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    qint64 pass(const char* data, qint64 count);

    QIODevice* m_device;
};

#endif
