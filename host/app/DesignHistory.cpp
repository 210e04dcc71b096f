#include "host/app/DesignHistory.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QCoreApplication>
#include <QMap>
#include <QPair>
#include <QScopedValueRollback>
#include <QUndoStack>
#include <QVariant>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::DesignProperty;
using Qtilities::Core::QtilitiesCategory;

namespace {

struct DesignHistoryTexts {
    Q_DECLARE_TR_FUNCTIONS(DesignHistory)
};

enum Kind { File, Folder, Property, Version, Changes };
/// The path of a file or a folder, or the name of a property. The version and its changes have
/// none.
using Key = QPair<Kind, QString>;
/// What can be undone of a design: each item with what is noted about it.
using Snapshot = QMap<Key, QVariantList>;

/// Separates the levels of a category. Nobody can type it into one.
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

    items[{Version, QString()}] = {design.versionMajor(), design.versionMinor()};
    items[{Changes, QString()}] = {design.versionChanges()};
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
    } else if (key.first == Property) {
        design->setDesignProperty(key.second, noted.at(0),
                                  QtilitiesCategory(noted.at(2).toString(), Separator));
    } else if (key.first == Version) {
        design->setVersion(noted.at(0).toInt(), noted.at(1).toInt());
    } else {
        design->setVersionChanges(noted.at(0).toString());
    }
}

/// What the user reads of a step that led from \p before to \p after without a command of the host.
QString textOf(const Snapshot& before, const Snapshot& after)
{
    bool hasGenerated = false;
    for (const Key& key : after.keys()) {
        const bool isChanged = before.value(key) != after[key] || !before.contains(key);
        if (isChanged && key.first == Version)
            return DesignHistoryTexts::tr("Change Version");
        if (isChanged && key.first == Changes)
            return DesignHistoryTexts::tr("Change Text of Changes");
        hasGenerated =
            hasGenerated || (isChanged && key.first == File && after[key].at(1).toBool());
    }
    return hasGenerated ? DesignHistoryTexts::tr("Generate")
                        : DesignHistoryTexts::tr("Change of Design");
}

/// Follows a design: what changes without a command of the host, such as by the generator, becomes
/// a step of its own. The changes of one processing cycle are one step.
class History : public QUndoStack {
public:
    explicit History(Design* design)
        : QUndoStack(design), m_design(design), m_last(snapshotOf(*design))
    {
        const auto capture = [this] { push(QString()); };
        connect(design, &Design::filesChanged, this, capture);
        connect(design, &Design::filesRefreshed, this, capture);
        connect(design, &Design::propertiesChanged, this, capture);
        connect(design, &Design::versionChanged, this, capture);
    }

    void record(const QString& text, const std::function<void()>& change)
    {
        {
            const QScopedValueRollback<bool> own(m_isOwnChange, true);
            change();
        }
        push(text);
    }

    /// Takes what a step of the history itself changes.
    void follow(const std::function<void()>& change)
    {
        const QScopedValueRollback<bool> own(m_isOwnChange, true);
        change();
        m_last = snapshotOf(*m_design);
    }

private:
    void push(const QString& text);

    Design* m_design;
    /// The design after the last step.
    Snapshot m_last;
    bool m_isOwnChange = false;
};

class ChangeCommand : public QUndoCommand {
public:
    ChangeCommand(Design* design, History* history, const QString& text, const Snapshot& before,
                  const Snapshot& after)
        : QUndoCommand(text), m_design(design), m_history(history), m_before(before), m_after(after)
    {
    }

    void undo() override
    {
        m_history->follow([this] { apply(m_after, m_before); });
    }

    void redo() override
    {
        // The stack redoes a command when it is pushed, and then the change is there already.
        if (m_isMade)
            m_history->follow([this] { apply(m_before, m_after); });
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
    History* m_history;
    Snapshot m_before;
    Snapshot m_after;
    bool m_isMade = false;
};

void History::push(const QString& text)
{
    if (m_isOwnChange || m_design->tree()->isProcessingCycleActive())
        return;

    const Snapshot before = m_last;
    m_last = snapshotOf(*m_design);
    if (before != m_last)
        QUndoStack::push(new ChangeCommand(
            m_design, this, text.isEmpty() ? textOf(before, m_last) : text, before, m_last));
}

} // namespace

void DesignHistory::attach(Design* design) { new History(design); }

QUndoStack* DesignHistory::of(const Design* design)
{
    return design ? design->findChild<QUndoStack*>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
}

void DesignHistory::record(Design* design, const QString& text, const std::function<void()>& change)
{
    if (auto* const history = static_cast<History*>(of(design)))
        history->record(text, change);
    else
        change();
}
