#include "host/app/RemakeHost.h"

#include "host/app/SampleImage.h"

#include "fcf/FcfExactReader.h"

#include <OrvanticCore/DesignManager.h>

#include <QBuffer>
#include <QtTest>

using OrvanticCore::Design;
using OrvanticCore::DesignManager;

namespace {

const char Description[] = R"({
    "format": 1, "type": "Firmware Design",
    "version": { "major": 1, "minor": 0, "changes": "Not the text of the image" },
    "files": [ %1 ], "properties": [ %2 ],
    "structure": { "nodes": [ { "name": "Bit-streams" }, { "name": "Other" } ],
                   "associations": [ { "pattern": "*.bit", "node": "Bit-streams" } ],
                   "unassignedNode": "Other" } })";

} // namespace

const char RemakeHost::Target[] =
    R"({ "name": "ZORV Pelk Module", "value": "GPM", "category": ["Pelk"] },
    { "name": "ZORV Pelk Device", "value": "Processing_FPGA_2", "category": ["Pelk"] },
    { "name": "ZORV Pelk Config Number", "value": 3, "category": ["Pelk"] })";

FcfHeader RemakeHost::headerOf(const QString& name) { return SampleImage::header(name, 1, 0); }

void RemakeHost::closeIfOpen(QWidget* dialog)
{
    if (dialog->isVisible())
        QTest::keyClick(dialog, Qt::Key_Escape);
}

void RemakeHost::addImage(const QString& name, const FcfHeader& header, const QByteArray& payload)
{
    const QByteArray image = SampleImage::image(header, payload);
    writeFile("radar/" + name + ".bin", payload);
    writeFile("radar/" + name + ".fcf", image);
    writeFile("radar/" + name + ".txt", image.left(image.size() - payload.size()));
    m_files << QString(R"({ "path": "%1.bin" })").arg(name)
            << QString(R"({ "path": "%1.fcf", "generated": true, "version": "1.0" })").arg(name);
}

Design* RemakeHost::open(const QString& properties)
{
    const QString text = QString(Description).arg(m_files.join(","), properties);
    writeFile("radar/design.json", text.toUtf8());
    window()->openDesign(path("radar"));
    activate();
    return dynamic_cast<Design*>(DesignManager::instance()->designs().last());
}

FcfHeader RemakeHost::header(const QString& name) const
{
    QByteArray bytes = bytesOf("radar/" + name);
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const FcfExactReading reading = FcfExactReader::read(&buffer);
    return reading.outcome == FcfExactReading::Complete ? reading.header : FcfHeader();
}
