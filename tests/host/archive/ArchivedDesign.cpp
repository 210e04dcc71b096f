#include "host/archive/ArchivedDesign.h"

#include "support/TestFile.h"

#include <OrvanticCore/DesignFile.h>

#include <QDir>
#include <QFileInfo>

namespace {

QByteArray incompressible(int size)
{
    QByteArray bytes;
    quint32 state = 1;
    while (bytes.size() < size) {
        state = state * 1664525u + 1013904223u;
        bytes += static_cast<char>(state >> 24);
    }
    return bytes;
}

} // namespace

ArchivedDesign::ArchivedDesign() : m_design(m_folder.filePath("radar"), "Firmware Design")
{
    const QDir root(m_folder.path());
    if (!m_folder.isValid() || !root.mkpath("radar/source") ||
        !root.mkpath("radar/constraints/empty"))
        qFatal("no folder for the design");
    write(path("top.bin"), incompressible(200000));
    write(path("source/rx chain.vhd"), "entity rx_chain is\nend entity;\n");
    write(path(QString::fromUtf8("Überblick.txt")), "Empfänger\n");
    write(path("top.fcf"), "image");
    write(path("constraints/pins.xdc"), "set_property LOC A1\n");
    write(path("constraints/.hidden"), "");
    write(path("notes.txt"), "not of the design");
    write(outside("shared.vhd"), "package shared is\n");

    m_design.setVersion(1, 0);
    for (const QString& name :
         {QString("top.bin"), QString("source/rx chain.vhd"), QString::fromUtf8("Überblick.txt")})
        m_design.restoreFile(name);
    m_design.restoreFile("top.fcf")->setIsGenerated(true);
    m_design.restoreFile(outside("shared.vhd"));
    m_design.restoreFolder("constraints");
}

QString ArchivedDesign::path(const QString& name) const
{
    return m_folder.filePath("radar/" + name);
}

QString ArchivedDesign::write(const QString& path, const QByteArray& content)
{
    return TestFile::write(path, content);
}

QByteArray ArchivedDesign::read(const QString& path) { return TestFile::read(path); }

QStringList ArchivedDesign::filesBeside(const QString& path)
{
    return QFileInfo(path).dir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                                           QDir::Name);
}

QMap<QString, QByteArray> ArchivedDesign::configMembers() const
{
    QMap<QString, QByteArray> members{{"design.json", "description"}};
    for (const QString& name : {QString("top.bin"), QString("source/rx chain.vhd"),
                                QString::fromUtf8("Überblick.txt"), QString("top.fcf")})
        members[name] = read(path(name));
    return members;
}

QMap<QString, QByteArray> ArchivedDesign::membersWithFolders() const
{
    QMap<QString, QByteArray> members = configMembers();
    members["constraints/"] = {};
    members["constraints/empty/"] = {};
    for (const QString& name : {QString("constraints/pins.xdc"), QString("constraints/.hidden")})
        members[name] = read(path(name));
    return members;
}
