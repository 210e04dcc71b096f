#include "host/app/archive/ArchivePlan.h"

#include "host/app/common/FileProblem.h"
#include "host/app/common/HostError.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QDir>
#include <QFileInfo>

#include <map>
#include <utility>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::Interfaces::IDesignArchiveExtension;

namespace {

constexpr int ShownProblems = 10;

bool isInside(const QString& folder, const QString& path)
{
    return path.startsWith(folder.endsWith('/') ? folder : folder + '/');
}

IDesignArchiveExtension::ArchiveItemFlag kindOf(const DesignFile& file, const QString& folder)
{
    if (!isInside(folder, file.filePath()))
        return IDesignArchiveExtension::ExternalFiles;
    return file.isGenerated() ? IDesignArchiveExtension::GeneratedFiles
                              : IDesignArchiveExtension::SourceFiles;
}

} // namespace

qint64 ArchiveMember::size() const { return kind == File ? QFileInfo(source).size() : text.size(); }

/// The members found so far, by the bytes of their names.
class ArchivePlan::Listing {
public:
    explicit Listing(const ArchivePlan& plan) : m_plan(plan) {}

    void addDescription(const ArchiveMember& description)
    {
        if (!description.name.isEmpty())
            m_members.emplace(description.name.toUtf8(), description);
    }

    void addFile(const QString& path)
    {
        if (QFileInfo(path).isDir())
            note(path, tr("It is a folder."));
        else
            addEntry(nameOf(path), QFileInfo(path));
    }

    void addFolder(const QString& path) { addEntry(nameOf(path), QFileInfo(path)); }

    std::vector<ArchiveMember> members() const
    {
        if (!m_problems.isEmpty())
            throw HostError(problemText());
        std::vector<ArchiveMember> members;
        for (const auto& [name, member] : m_members)
            members.push_back(member);
        return members;
    }

private:
    /// The path in the archive. An external one gets a folder with a number when another one has
    /// its name already.
    QString nameOf(const QString& path) const
    {
        if (isInside(m_plan.m_folder, path))
            return path.mid(m_plan.m_folder.size())
                .remove(0, m_plan.m_folder.endsWith('/') ? 0 : 1);
        const QString baseName = QFileInfo(path).fileName();
        QString name = "external/" + baseName;
        for (int number = 2; m_members.count(name.toUtf8()) != 0; ++number)
            name = QString("external/%1/%2").arg(number).arg(baseName);
        return name;
    }

    void addEntry(const QString& name, const QFileInfo& entry)
    {
        const QString path = entry.absoluteFilePath();
        if (!entry.exists())
            note(path, tr("It does not exist."));
        else if (entry.isDir())
            addContent(name, entry);
        else if (entry.isFile())
            m_members.emplace(name.toUtf8(), ArchiveMember{ArchiveMember::File, name, path, {}});
        else
            note(path, tr("It is neither a file nor a folder."));
    }

    void addContent(const QString& name, const QFileInfo& folder)
    {
        const QDir dir(folder.absoluteFilePath());
        const QString path = folder.canonicalFilePath();
        if (m_above.contains(path)) {
            note(dir.path(), tr("The link leads back to a folder that it lies in."));
            return;
        }
        if (!dir.isReadable()) {
            note(dir.path(), tr("The folder cannot be read."));
            return;
        }

        m_members.emplace(name.toUtf8(), ArchiveMember{ArchiveMember::Folder, name, {}, {}});
        m_above << path;
        for (const QFileInfo& entry : dir.entryInfoList(QDir::AllEntries | QDir::Hidden |
                                                        QDir::System | QDir::NoDotAndDotDot)) {
            if (entry.absoluteFilePath() != m_plan.m_leftOut)
                addEntry(name + '/' + entry.fileName(), entry);
        }
        m_above.removeLast();
    }

    void note(const QString& path, const QString& problem)
    {
        m_problems << fileProblem(path, problem);
    }

    QString problemText() const
    {
        QStringList shown = m_problems.mid(0, ShownProblems);
        if (m_problems.size() > ShownProblems)
            shown << tr("and %1 more").arg(m_problems.size() - ShownProblems);
        return shown.join('\n');
    }

    const ArchivePlan& m_plan;
    std::map<QByteArray, ArchiveMember> m_members;
    /// The folders around the one that is looked at.
    QStringList m_above;
    QStringList m_problems;
};

ArchivePlan::ArchivePlan(const Design& design, Items items) : m_folder(design.workingFolderPath())
{
    for (const DesignFile* file : design.files()) {
        if (items.testFlag(kindOf(*file, m_folder)))
            m_files << file->filePath();
    }

    if (!items.testFlag(IDesignArchiveExtension::DesignFolders))
        return;
    for (const DesignFolder* folder : design.folders()) {
        if (isInside(m_folder, folder->folderPath()) ||
            items.testFlag(IDesignArchiveExtension::ExternalFiles))
            m_folders << folder->folderPath();
    }
}

void ArchivePlan::setDescription(const QString& name, const QByteArray& text)
{
    m_description.name = name;
    m_description.text = text;
}

std::vector<ArchiveMember> ArchivePlan::members() const
{
    Listing listing(*this);
    listing.addDescription(m_description);

    // What lies in the working folder comes first, so that it has its names for itself.
    for (const bool inside : {true, false}) {
        for (const QString& file : m_files) {
            if (isInside(m_folder, file) == inside)
                listing.addFile(file);
        }
        for (const QString& folder : m_folders) {
            if (isInside(m_folder, folder) == inside)
                listing.addFolder(folder);
        }
    }

    return listing.members();
}
