#include "host/app/DesignHistory.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QMap>
#include <QPair>
#include <QUndoStack>
#include <QVariant>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::DesignProperty;
using Qtilities::Core::QtilitiesCategory;

namespace {

enum Kind { File, Folder, Property };
/// The path of a file or a folder, the name of a property.
using Key = QPair<Kind, QString>;
/// What can be undone of a design: each item with what is noted about it.
using Snapshot = QMap<Key, QVariantList>;

/// Stands between the levels of a category. Nobody can type it into one.
const QString Separator(QChar::Null);

Snapshot snapshotOf(const Design& design)
{
    Snapshot items;
    for (const DesignFile* file : design.files())
        items[{File, file->filePath()}] = {file->customNode(), file->isGenerated(),
                                           file->versionAssociation()};
    for (const DesignFolder* folder : design.folders())
        items[{Folder, folder->folderPath()}] = {};
    // An empty value and no value are equal, but not the same.
    for (const DesignProperty& property : design.designProperties())
        items[{Property, property.name}] = {property.value, property.value.isValid(),
                                            property.category.toString(Separator)};
    return items;
}

void remove(Design* design, const Key& key)
{
    if (key.first == File)
        design->removeFile(design->fileAt(key.second));
    if (key.first == Property)
        design->removeDesignProperty(key.second);
    for (DesignFolder* folder : design->folders()) {
        if (key == Key(Folder, folder->folderPath()))
            design->removeFolder(folder);
    }
}

void restore(Design* design, const Key& key, const QVariantList& noted)
{
    if (key.first == File) {
        DesignFile* const file = design->restoreFile(key.second);
        file->setCustomNode(noted.at(0).toString());
        file->setIsGenerated(noted.at(1).toBool());
        file->setVersionAssociation(noted.at(2).toString());
    } else if (key.first == Folder) {
        design->restoreFolder(key.second);
    } else {
        design->setDesignProperty(key.second, noted.at(0),
                                  QtilitiesCategory(noted.at(2).toString(), Separator));
    }
}

class ChangeCommand : public QUndoCommand {
public:
    ChangeCommand(Design* design, const QString& text, const Snapshot& before,
                  const Snapshot& after)
        : QUndoCommand(text), m_design(design), m_before(before), m_after(after)
    {
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
        for (const Key& key : from.keys()) {
            if (!to.contains(key))
                remove(m_design, key);
        }
        for (const Key& key : to.keys()) {
            if (!from.contains(key) || from[key] != to[key])
                restore(m_design, key, to[key]);
        }
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
    const Snapshot after = snapshotOf(*design);
    QUndoStack* const history = of(design);
    if (history && before != after)
        history->push(new ChangeCommand(design, text, before, after));
}
