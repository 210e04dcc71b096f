#include "host/app/SampleImage.h"

#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"

QByteArray SampleImage::binary(int bytes, char fill)
{
    return QByteArray(16, '\xff') + QByteArray::fromHex("aa995566") + QByteArray(bytes - 20, fill);
}

FcfHeader SampleImage::header(const QString& name, int major, int minor)
{
    FcfHeader header;
    header.moduleCode = 2;
    header.deviceCode = 4;
    header.configNumber = 3;
    header.versionMajor = major;
    header.versionMinor = minor;
    header.fileName = name;
    header.author = "R. Vos";
    header.ciNumber = "CI-77: second board";
    header.description = "First line\nRev: B: final";
    header.date = "7 Mar 1999";
    header.time = "01:02:03";
    for (const char* function : {"Doppler", "Pulse", "Beam", "Clutter"})
        header.functions << FcfFunction{function, QString("Author of ") + function,
                                        QString("F-") + function[0],
                                        QString("What it does: ") + function};
    return header;
}

QByteArray SampleImage::image(FcfHeader header, const QByteArray& payload)
{
    header.setSizes(PelkFcfGeneratorFileInfo().measure(payload.size()));
    const FcfWriter writer;
    const QByteArray page = writer.compose(header);
    return page + writer.fillerFor(page.size()) + payload;
}
