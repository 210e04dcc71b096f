#include "host/app/DesignRows.h"

#include "host/app/DesignStorage.h"
#include "host/app/FileIcons.h"
#include "host/app/image/FileState.h"
#include "host/app/ViewExtensions.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMap>

#include <algorithm>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::Interfaces::IDesignViewExtensions;
using Qtilities::CoreGui::TreeNode;

namespace {

struct DesignRowsTexts {
    Q_DECLARE_TR_FUNCTIONS(DesignRows)
};

DesignRows::Row makeRow(const QString& name, const QIcon& icon, const QString& key)
{
    DesignRows::Row row;
    for (int column = 0; column < DesignModel::ColumnCount; ++column) {
        row << new QStandardItem;
        row.last()->setEditable(false);
    }
    row.first()->setText(name);
    row.first()->setIcon(icon);
    row.first()->setData(key, DesignModel::KeyRole);
    return row;
}

void setSubject(const DesignRows::Row& row, QObject* subject)
{
    row.first()->setData(QVariant::fromValue(QPointer<QObject>(subject)), DesignModel::SubjectRole);
}

/// Lets extensions replace what the host itself shows in the first column.
template <class Ask>
void applyRoleData(QStandardItem* item, const Ask& ask)
{
    for (const int role : {Qt::DisplayRole, Qt::DecorationRole, Qt::ToolTipRole, Qt::FontRole,
                           Qt::ForegroundRole, Qt::BackgroundRole}) {
        for (IDesignViewExtensions* extension : ViewExtensions::all()) {
            const QVariant data = ask(extension, role);
            if (data.isValid())
                item->setData(data, role);
        }
    }
}

/// Path, size, date and reasons, as rich text.
QString toolTipOf(const DesignFile& file, const FileState& state)
{
    const QFileInfo info(file.filePath());
    QStringList lines{QDir::toNativeSeparators(file.filePath()).toHtmlEscaped()};
    if (state.isMissing)
        lines << DesignRowsTexts::tr("There is no such file on the disk.");
    else
        lines << DesignRowsTexts::tr("%1, changed %2")
                     .arg(QLocale().formattedDataSize(info.size()),
                          QLocale().toString(info.lastModified(), QLocale::ShortFormat));

    if (!state.invalid.isEmpty())
        lines << DesignRowsTexts::tr("<b>Invalid</b>: %1").arg(state.invalid.toHtmlEscaped());
    if (!state.outdated.isEmpty())
        lines << DesignRowsTexts::tr("<b>Outdated</b>: %1. Make it again.")
                     .arg(state.outdated.join("; ").toHtmlEscaped());
    if (state.isOutside)
        lines << DesignRowsTexts::tr(
            "<b>External</b>: the file is outside of the folder of the design.");
    return "<p style='white-space:pre'>" + lines.join("<br>") + "</p>";
}

/// The colour beside the words: red for what cannot be used, yellow for what is outdated.
QIcon iconOf(const FileState& state)
{
    if (state.isMissing || !state.invalid.isEmpty())
        return FileIcons::forInvalid();
    return state.outdated.isEmpty() ? QIcon() : FileIcons::forOutdated();
}

DesignRows::Row makeFileRow(DesignFile* file)
{
    DesignRows::Row row = makeRow(file->fileName(), QIcon(), DesignRows::keyOf(*file));
    setSubject(row, file);
    DesignRows::refresh(row, *file);
    return row;
}

void appendNodes(QStandardItem* parent, const TreeNode* node, QMap<QString, QStandardItem*>* nodes)
{
    for (int index = 0; index < node->subjectCount(); ++index) {
        const auto* const below = qobject_cast<const TreeNode*>(node->subjectAt(index));
        const QString key = parent->data(DesignModel::KeyRole).toString() + "::" + below->getName();

        const DesignRows::Row row = makeRow(below->getName(), FileIcons::forNode(), key);
        applyRoleData(row.first(), [below](IDesignViewExtensions* extension, int role) {
            return extension->customDesignFileNodeRoleData(const_cast<TreeNode*>(below), role);
        });
        row.first()->setData(below->getName(), DesignModel::NodeRole);
        parent->appendRow(row);

        if (!nodes->contains(below->getName()))
            nodes->insert(below->getName(), row.first());
        appendNodes(row.first(), below, nodes);
    }
}

} // namespace

DesignRows::Row DesignRows::forDesign(Design* design)
{
    QIcon icon(":/icons/radar_22x22.png");
    for (IDesignViewExtensions* extension : ViewExtensions::all()) {
        const QIcon own = extension->designTypeIcon(design->typeName());
        icon = own.isNull() ? icon : own;
    }
    const Row row = makeRow(design->name(), icon, keyOf(*design));
    setSubject(row, design);
    row.first()->setToolTip(QDir::toNativeSeparators(design->workingFolderPath()));
    refresh(row, *design);
    return row;
}

void DesignRows::refresh(const Row& row, const Design& design)
{
    QStringList states;
    if (design.isLocked())
        states << DesignRowsTexts::tr("Locked");
    if (design.isReadOnly())
        states << DesignRowsTexts::tr("Read-only");
    if (DesignStorage::isChangedOnDisk(design))
        states << DesignRowsTexts::tr("Changed on disk");

    row.first()->setText(design.isModified()
                             ? DesignRowsTexts::tr("%1 (modified)").arg(design.name())
                             : design.name());
    row.at(DesignModel::StateColumn)->setText(states.join(", "));
    row.at(DesignModel::VersionColumn)->setText(design.versionString("."));
}

void DesignRows::refresh(const Row& row, const DesignFile& file)
{
    const FileState fileState = FileState::of(file);
    const QString state = fileState.words().join(", ");
    const QString toolTip = toolTipOf(file, fileState);
    QStandardItem* const stateItem = row.at(DesignModel::StateColumn);
    QStandardItem* const versionItem = row.at(DesignModel::VersionColumn);

    // This is called twice a second, so that what is as it was is not painted again.
    if (stateItem->text() == state && stateItem->toolTip() == toolTip &&
        versionItem->text() == file.versionAssociation())
        return;

    const QFileInfo info(file.filePath());
    row.first()->setIcon(info.exists() ? FileIcons::forFile(file.fileName())
                                       : FileIcons::forMissing());
    stateItem->setText(state);
    stateItem->setIcon(iconOf(fileState));
    versionItem->setText(file.versionAssociation());
    row.at(DesignModel::SizeColumn)
        ->setText(info.exists() ? QLocale().formattedDataSize(info.size()) : QString());
    row.at(DesignModel::SizeColumn)->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.at(DesignModel::DateColumn)
        ->setText(info.exists() ? info.lastModified().toString("yyyy-MM-dd HH:mm") : QString());

    for (QStandardItem* item : row)
        item->setToolTip(toolTip);
    applyRoleData(row.first(), [&file](IDesignViewExtensions* extension, int role) {
        return extension->customItemRoleData(const_cast<DesignFile*>(&file), role);
    });
}

void DesignRows::refresh(const Row& row, const DesignFolder& folder)
{
    const bool exists = QDir(folder.folderPath()).exists();
    const QString state =
        exists ? DesignRowsTexts::tr("Folder") : DesignRowsTexts::tr("Folder, Missing");
    if (row.at(DesignModel::StateColumn)->text() == state)
        return;
    row.first()->setIcon(exists ? FileIcons::forFolder() : FileIcons::forMissing());
    row.at(DesignModel::StateColumn)->setText(state);
}

void DesignRows::fill(QStandardItem* top, const Design& design)
{
    QMap<QString, QStandardItem*> nodes;
    if (design.structure())
        appendNodes(top, design.structure()->rootNode(), &nodes);

    QList<DesignFile*> files = design.files();
    std::sort(files.begin(), files.end(), [](const DesignFile* left, const DesignFile* right) {
        return left->fileName().localeAwareCompare(right->fileName()) < 0;
    });
    for (DesignFile* file : files)
        nodes.value(design.nodeOf(file), top)->appendRow(makeFileRow(file));

    for (DesignFolder* folder : design.folders()) {
        const Row row = makeRow(folder->getName(), FileIcons::forFolder(), folder->folderPath());
        setSubject(row, folder);
        row.first()->setToolTip(QDir::toNativeSeparators(folder->folderPath()));
        refresh(row, *folder);
        top->appendRow(row);
    }
}

QStringList DesignRows::nodeNames(const TreeNode* node)
{
    QStringList names;
    for (int index = 0; index < node->subjectCount(); ++index) {
        const auto* const below = qobject_cast<const TreeNode*>(node->subjectAt(index));
        names << below->getName() << nodeNames(below);
    }
    return names;
}

QString DesignRows::keyOf(const Design& design) { return design.workingFolderPath() + "::"; }

QString DesignRows::keyOf(const DesignFile& file)
{
    const auto* const design = dynamic_cast<const Design*>(file.design());
    return (design ? keyOf(*design) : QString()) + file.filePath();
}
