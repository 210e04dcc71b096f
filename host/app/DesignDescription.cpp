#include "host/app/DesignDescription.h"

#include "host/app/JsonNode.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignFolder.h>
#include <OrvanticCore/DesignStructure.h>

#include <QtilitiesCoreGui/TreeNode.h>

#include <QCoreApplication>
#include <QDir>
#include <QMetaType>

#include <limits>

using OrvanticCore::Design;
using OrvanticCore::DesignFile;
using OrvanticCore::DesignFolder;
using OrvanticCore::DesignProperty;
using OrvanticCore::DesignStructure;
using OrvanticCore::FileAssociation;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::CoreGui::TreeNode;

namespace {

constexpr int MaximumNumber = std::numeric_limits<int>::max();

struct DesignDescriptionTexts {
    Q_DECLARE_TR_FUNCTIONS(DesignDescription)
};

QString storedPath(const Design& design, const QString& path)
{
    const QString relative = QDir(design.workingFolderPath()).relativeFilePath(path);
    return relative == ".." || relative.startsWith("../") ? path : relative;
}

QJsonObject writeFile(const Design& design, const DesignFile* file)
{
    QJsonObject object{{"path", storedPath(design, file->filePath())}};
    if (!file->customNode().isEmpty())
        object["node"] = file->customNode();
    if (file->isGenerated())
        object["generated"] = true;
    if (!file->versionAssociation().isEmpty())
        object["version"] = file->versionAssociation();
    return object;
}

QJsonValue writeValue(const QVariant& value)
{
    switch (static_cast<QMetaType::Type>(value.userType())) {
    case QMetaType::UnknownType:
        return QJsonValue::Null;
    case QMetaType::Bool:
        return value.toBool();
    case QMetaType::Int:
        return value.toInt();
    default:
        return value.toString();
    }
}

QJsonObject writeProperty(const DesignProperty& property)
{
    return {{"name", property.name},
            {"value", writeValue(property.value)},
            {"category", QJsonArray::fromStringList(property.category.toStringList())}};
}

QJsonArray writeNodes(const TreeNode* parent)
{
    QJsonArray nodes;
    for (int index = 0; index < parent->subjectCount(); ++index) {
        const auto* const node = qobject_cast<const TreeNode*>(parent->subjectAt(index));
        QJsonObject object{{"name", node->getName()}};
        if (node->subjectCount() > 0)
            object["nodes"] = writeNodes(node);
        nodes.append(object);
    }
    return nodes;
}

QJsonObject writeStructure(const DesignStructure& structure)
{
    QJsonArray associations;
    for (const FileAssociation* association : structure.fileAssociations()) {
        QJsonObject object{{"pattern", association->pattern()}};
        if (!association->designNode().isEmpty())
            object["node"] = association->designNode();
        if (!association->workingFolderPath().isEmpty())
            object["workingFolder"] = association->workingFolderPath();
        associations.append(object);
    }
    return {{"nodes", writeNodes(structure.rootNode())},
            {"associations", associations},
            {"unassignedNode", structure.unassignedFileAssociationsNode()}};
}

void readVersion(const JsonNode& description, Design* design)
{
    const JsonNode version = description["version"];
    version.expectEntries({"major", "minor", "changes"});
    design->setVersion(version["major"].number(0, MaximumNumber),
                       version["minor"].number(0, MaximumNumber));
    design->setVersionChanges(version["changes"].optionalText());
}

void readFile(const JsonNode& node, Design* design)
{
    node.expectEntries({"path", "node", "generated", "version"});
    const JsonNode path = node["path"];
    if (path.text().isEmpty())
        path.fail(DesignDescriptionTexts::tr("a path is expected"));
    if (design->fileAt(path.text()))
        path.fail(DesignDescriptionTexts::tr("\"%1\" is listed twice").arg(path.text()));

    DesignFile* const file = design->restoreFile(path.text());
    file->setCustomNode(node["node"].optionalText());
    file->setIsGenerated(node["generated"].optionalFlag());
    file->setVersionAssociation(node["version"].optionalText());
}

QVariant readValue(const JsonNode& node)
{
    const QJsonValue& value = node.value();
    if (value.isNull())
        return QVariant();
    if (value.isBool())
        return value.toBool();
    if (value.isDouble())
        return node.number(std::numeric_limits<int>::min(), MaximumNumber);
    return node.text();
}

void readProperty(const JsonNode& node, Design* design)
{
    node.expectEntries({"name", "value", "category"});
    QStringList levels;
    for (const JsonNode& level : node["category"].optionalList())
        levels << level.text();

    const JsonNode name = node["name"];
    if (name.text().isEmpty())
        name.fail(DesignDescriptionTexts::tr("a name is expected"));
    for (const DesignProperty& property : design->designProperties()) {
        if (property.name == name.text())
            name.fail(DesignDescriptionTexts::tr("\"%1\" is listed twice").arg(name.text()));
    }

    // Nobody can type this character into a level.
    const QString separator(QChar::Null);
    design->setDesignProperty(name.text(), readValue(node["value"]),
                              QtilitiesCategory(levels.join(separator), separator));
}

void readFolder(const JsonNode& path, Design* design)
{
    if (path.text().isEmpty())
        path.fail(DesignDescriptionTexts::tr("a path is expected"));
    const int before = design->folders().size();
    design->restoreFolder(path.text());
    if (design->folders().size() == before)
        path.fail(DesignDescriptionTexts::tr("\"%1\" is listed twice").arg(path.text()));
}

void readNodes(const std::vector<JsonNode>& nodes, TreeNode* parent)
{
    for (const JsonNode& node : nodes) {
        node.expectEntries({"name", "nodes"});
        readNodes(node["nodes"].optionalList(), parent->addNode(node["name"].text()));
    }
}

std::unique_ptr<DesignStructure> readStructure(const JsonNode& node)
{
    node.expectEntries({"nodes", "associations", "unassignedNode"});
    auto structure = std::make_unique<DesignStructure>();
    readNodes(node["nodes"].optionalList(), structure->rootNode());
    for (const JsonNode& rule : node["associations"].optionalList()) {
        rule.expectEntries({"pattern", "node", "workingFolder"});
        structure->addFileAssociation(rule["pattern"].text(), rule["node"].optionalText(),
                                      rule["workingFolder"].optionalText());
    }
    structure->setUnassignedFileAssociationsNode(node["unassignedNode"].optionalText());
    return structure;
}

} // namespace

QJsonObject DesignDescription::write(const Design& design)
{
    QJsonObject description{{"format", Format},
                            {"type", design.typeName()},
                            {"locked", design.isLocked()},
                            {"version", QJsonObject{{"major", design.versionMajor()},
                                                    {"minor", design.versionMinor()},
                                                    {"changes", design.versionChanges()}}}};
    QJsonArray files;
    for (const DesignFile* file : design.files())
        files.append(writeFile(design, file));
    description["files"] = files;

    QJsonArray folders;
    for (const DesignFolder* folder : design.folders())
        folders.append(storedPath(design, folder->folderPath()));
    description["folders"] = folders;

    QJsonArray properties;
    for (const DesignProperty& property : design.designProperties())
        properties.append(writeProperty(property));
    description["properties"] = properties;

    if (design.structure())
        description["structure"] = writeStructure(*design.structure());
    return description;
}

std::unique_ptr<Design> DesignDescription::read(const JsonNode& description, const QString& folder)
{
    // The format is read first, since a newer one may have entries that are not known here.
    const JsonNode format = description["format"];
    const int number = format.number(1, MaximumNumber);
    if (number > Format)
        format.fail(DesignDescriptionTexts::tr(
                        "format %1 is newer than format %2, the newest that can be read")
                        .arg(number)
                        .arg(Format));
    description.expectEntries(
        {"format", "type", "locked", "version", "files", "folders", "properties", "structure"});

    auto design = std::make_unique<Design>(folder, description["type"].text());
    readVersion(description, design.get());

    for (const JsonNode& file : description["files"].optionalList())
        readFile(file, design.get());
    for (const JsonNode& path : description["folders"].optionalList())
        readFolder(path, design.get());
    for (const JsonNode& property : description["properties"].optionalList())
        readProperty(property, design.get());

    if (!description["structure"].isMissing())
        design->setStructure(readStructure(description["structure"]).release());
    design->setLocked(description["locked"].optionalFlag());
    design->setModified(false);
    return design;
}
