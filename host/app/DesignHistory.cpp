#include "host/app/DesignHistory.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QMap>
#include <QStringList>
#include <QUndoStack>

#include <algorithm>
#include <memory>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::DesignProperty;

namespace {

struct FileRecord {
    QString node;
    bool isGenerated = false;
    QString version;

    bool operator==(const FileRecord& other) const
    {
        return node == other.node && isGenerated == other.isGenerated && version == other.version;
    }
};

bool isSame(const DesignProperty& left, const DesignProperty& right)
{
    return left.value == right.value && left.value.isValid() == right.value.isValid() &&
           left.category == right.category;
}

struct Snapshot {
    QMap<QString, FileRecord> files;
    QStringList folders;
    QMap<QString, DesignProperty> properties;
};

Snapshot snapshotOf(const Design& design)
{
    Snapshot snapshot;
    for (const DesignFile* file : design.files())
        snapshot.files[file->filePath()] = {file->customNode(), file->isGenerated(),
                                            file->versionAssociation()};
    for (const DesignFolder* folder : design.folders())
        snapshot.folders << folder->folderPath();
    for (const DesignProperty& property : design.designProperties())
        snapshot.properties[property.name] = property;
    return snapshot;
}

DesignFolder* folderAt(const Design& design, const QString& path)
{
    for (DesignFolder* folder : design.folders()) {
        if (folder->folderPath() == path)
            return folder;
    }
    return nullptr;
}

void applyFiles(Design* design, const Snapshot& from, const Snapshot& to)
{
    for (const QString& path : from.files.keys()) {
        if (!to.files.contains(path))
            design->removeFile(design->fileAt(path));
    }
    for (const QString& path : to.files.keys()) {
        const FileRecord wanted = to.files[path];
        if (from.files.contains(path) && from.files[path] == wanted)
            continue;
        DesignFile* const file = design->restoreFile(path);
        file->setCustomNode(wanted.node);
        file->setIsGenerated(wanted.isGenerated);
        file->setVersionAssociation(wanted.version);
    }
    for (const QString& path : from.folders) {
        if (!to.folders.contains(path))
            design->removeFolder(folderAt(*design, path));
    }
    for (const QString& path : to.folders) {
        if (!from.folders.contains(path))
            design->restoreFolder(path);
    }
}

void applyProperties(Design* design, const Snapshot& from, const Snapshot& to)
{
    for (const QString& name : from.properties.keys()) {
        if (!to.properties.contains(name))
            design->removeDesignProperty(name);
    }
    for (const DesignProperty& wanted : to.properties) {
        if (!from.properties.contains(wanted.name) || !isSame(from.properties[wanted.name], wanted))
            design->setDesignProperty(wanted.name, wanted.value, wanted.category);
    }
}

class ChangeCommand : public QUndoCommand {
public:
    ChangeCommand(Design* design, const QString& text, const Snapshot& before,
                  const Snapshot& after)
        : QUndoCommand(text), m_design(design), m_before(before), m_after(after)
    {
    }

    bool changesNothing() const
    {
        return m_before.files == m_after.files && m_before.folders == m_after.folders &&
               std::equal(m_before.properties.begin(), m_before.properties.end(),
                          m_after.properties.begin(), m_after.properties.end(),
                          [](const DesignProperty& left, const DesignProperty& right) {
                              return left.name == right.name && isSame(left, right);
                          });
    }

    void undo() override { apply(m_after, m_before); }
    void redo() override
    {
        // The stack redoes a command when it is pushed, and then the change is there already.
        if (m_isMade)
            apply(m_before, m_after);
        m_isMade = true;
    }

private:
    void apply(const Snapshot& from, const Snapshot& to)
    {
        m_design->tree()->startProcessingCycle();
        applyFiles(m_design, from, to);
        applyProperties(m_design, from, to);
        m_design->tree()->endProcessingCycle();
    }

    Design* m_design;
    Snapshot m_before;
    Snapshot m_after;
    bool m_isMade = false;
};

} // namespace

void DesignHistory::attach(Design* design) { new QUndoStack(design); }

QUndoStack* DesignHistory::of(const Design* design)
{
    return design ? design->findChild<QUndoStack*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void DesignHistory::record(Design* design, const QString& text, const std::function<void()>& change)
{
    const Snapshot before = snapshotOf(*design);
    change();
    QUndoStack* const history = of(design);
    auto command = std::make_unique<ChangeCommand>(design, text, before, snapshotOf(*design));
    if (history && !command->changesNothing())
        history->push(command.release());
}
