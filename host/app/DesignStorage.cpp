#include "host/app/DesignStorage.h"

#include "host/app/common/FileProblem.h"
#include "host/app/common/FileReplacement.h"
#include "host/app/common/HostError.h"
#include "host/app/DesignDescription.h"
#include "host/app/JsonNode.h"

#include <OrvanticCore/Design.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>

using OrvanticCore::Design;

namespace {

struct DesignStorageTexts {
    Q_DECLARE_TR_FUNCTIONS(DesignStorage)
};

/// The most that a description may have, which is enough for many thousands of files. A larger file
/// is no description, and would take up the memory.
constexpr qint64 MaximumBytes = qint64(16) * 1024 * 1024;

/// Where a design keeps the bytes of its description as they were last seen on the disk.
const char SeenProperty[] = "host.description";

/// Line and column from 1, the column in characters.
QString placeOf(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    const int lineStart = before.lastIndexOf('\n') + 1;
    return DesignStorageTexts::tr("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(QString::fromUtf8(before.mid(lineStart)).size() + 1);
}

QByteArray readDescription(const QString& path)
{
    const QFileInfo info(path);
    // A pipe would block the host until another program writes to it.
    if (info.exists() && !info.isFile())
        throw HostError(fileProblem(path, DesignStorageTexts::tr("it is not a file")));
    if (info.size() > MaximumBytes)
        throw HostError(fileProblem(
            path, DesignStorageTexts::tr("it is too large: %1 bytes").arg(info.size())));

    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw HostError(fileProblem(path, file.errorString()));
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        throw HostError(fileProblem(path, file.errorString()));
    return bytes;
}

/// The outermost value of \p bytes.
QJsonValue parse(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        throw HostError(QString("%1: %2").arg(placeOf(bytes, error.offset), error.errorString()));

    if (document.isObject())
        return document.object();
    return document.array();
}

} // namespace

QString DesignStorage::descriptionPath(const QString& folder)
{
    return QDir(folder).absoluteFilePath("design.json");
}

bool DesignStorage::hasDescription(const QString& folder)
{
    return QFileInfo::exists(descriptionPath(folder));
}

std::unique_ptr<Design> DesignStorage::load(const QString& folder)
{
    const QByteArray bytes = readDescription(descriptionPath(folder));

    std::unique_ptr<Design> design;
    try {
        design = DesignDescription::read(JsonNode(parse(bytes)), folder);
    } catch (const HostError& wrong) {
        throw HostError(fileProblem(descriptionPath(folder), wrong.text()));
    }

    refreshReadOnly(design.get());
    design->setProperty(SeenProperty, bytes);
    return design;
}

QByteArray DesignStorage::text(const Design& design)
{
    return QJsonDocument(DesignDescription::write(design)).toJson();
}

void DesignStorage::save(Design* design)
{
    const QByteArray bytes = text(*design);

    FileReplacement file(descriptionPath(design->workingFolderPath()));
    file.write(bytes);
    file.sync();
    file.commit();

    design->setProperty(SeenProperty, bytes);
    design->setModified(false);
}

bool DesignStorage::isChangedOnDisk(const Design& design)
{
    QFile file(descriptionPath(design.workingFolderPath()));
    // A description that is gone cannot be lost.
    if (!QFileInfo(file).isFile())
        return false;

    const QByteArray seen = design.property(SeenProperty).toByteArray();
    return file.size() != seen.size() || !file.open(QIODevice::ReadOnly) || file.readAll() != seen;
}

void DesignStorage::refreshReadOnly(Design* design)
{
    const QFileInfo folder(design->workingFolderPath());
    const QFileInfo description(descriptionPath(design->workingFolderPath()));
    // The description is replaced by a new file, for which the folder must be writable as well.
    design->setReadOnly(!folder.isWritable() ||
                        (description.exists() && !description.isWritable()));
}
