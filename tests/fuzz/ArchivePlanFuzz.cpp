// Whatever files and folders a design lists, the members of its archive have names of their own
// that lead nowhere out of it.
//
// The input is a list of paths, one a line: the first byte of a line chooses a file, a generated
// file or a folder. Paths are relative to a working folder that has a few entries.

#include "fuzz/FuzzTarget.h"

#include "host/app/archive/ArchivePlan.h"
#include "host/app/common/HostError.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::Interfaces::IDesignArchiveExtension;

namespace {

/// A working folder beside files that lie outside of it.
class Disk {
public:
    Disk()
    {
        for (const char* folder : {"work/src", "work/doc/more", "out/src"})
            QDir(m_root.path()).mkpath(folder);
        for (const char* file : {"work/top.bin", "work/src/a.vhd", "work/doc/more/b.pdf",
                                 "out/top.bin", "out/src/top.bin", "work/design.json"}) {
            QFile created(m_root.filePath(file));
            require(created.open(QIODevice::WriteOnly), "cannot create a file");
        }
        QFile::link("..", m_root.filePath("work/doc/up"));
    }

    QString workingFolder() const { return m_root.filePath("work"); }

private:
    QTemporaryDir m_root;
};

void add(Design* design, const QByteArray& line)
{
    const QString path =
        QDir::cleanPath(QDir(design->workingFolderPath()).filePath(QString::fromUtf8(line.mid(1))));
    // Outside of the two folders there is more than a test may read.
    const QString root = QFileInfo(design->workingFolderPath()).path();
    if (line.size() < 2 || !path.startsWith(root + '/') || path.contains(QChar(QChar::Null)))
        return;
    QString error;
    if (line[0] == 'd') {
        design->addFolder(path, &error);
        return;
    }
    DesignFile* const file = design->addFile(path, &error);
    if (file)
        file->setIsGenerated(line[0] == 'g');
}

void check(const std::vector<ArchiveMember>& members)
{
    QSet<QString> names;
    for (const ArchiveMember& member : members) {
        require(!names.contains(member.name), "a name is there twice");
        names.insert(member.name);
        require(!member.name.isEmpty() && !QDir::isAbsolutePath(member.name) &&
                    QDir::cleanPath(member.name) == member.name && member.name != ".." &&
                    !member.name.startsWith("../"),
                "a name leads out of the archive");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const Disk disk;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    Design design(disk.workingFolder(), QStringLiteral("Firmware Design"));
    for (const QByteArray& line : bytes.mid(1).split('\n'))
        add(&design, line);
    const auto items = static_cast<IDesignArchiveExtension::ArchiveItemFlags>(
        bytes.isEmpty() ? 0 : bytes.at(0) & 0x1f);
    ArchivePlan plan(design, items);
    if (items.testFlag(IDesignArchiveExtension::DesignDescription))
        plan.setDescription("design.json", "{}");
    try {
        check(plan.members());
    } catch (const HostError& error) {
        require(error.what()[0] != '\0', "refused without a reason");
    }
    return 0;
}
