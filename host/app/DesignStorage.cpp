#include "host/app/DesignStorage.h"

#include "fcf/FcfDevice.h"
#include "host/app/common/FileProblem.h"
#include "host/app/DesignDescription.h"
#include "host/app/JsonNode.h"

#include <OrvanticCore/Design.h>

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

using OrvanticCore::Design;

namespace {

struct Texts {
    Q_DECLARE_TR_FUNCTIONS(DesignStorage)
};

/// Of a description: many thousands of files. A larger one is none, and would take the memory.
constexpr qint64 MaximumBytes = qint64(16) * 1024 * 1024;

/// Where a design keeps the bytes of its description as they were last seen on the disk.
const char SeenProperty[] = "host.description";

/// Line and column from 1, the column in characters.
QString placeOf(const QByteArray& bytes, int offset)
{
    const QByteArray before = bytes.left(offset);
    const int lineStart = before.lastIndexOf('\n') + 1;
    return Texts::tr("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(QString::fromUtf8(before.mid(lineStart)).size() + 1);
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

std::unique_ptr<Design> DesignStorage::load(const QString& folder, QString* error)
{
    const QString path = descriptionPath(folder);
    const QFileInfo info(path);
    // To open a pipe would wait for another program, and the host with it.
    if (info.exists() && !info.isFile()) {
        *error = fileProblem(path, Texts::tr("it is not a file"));
        return nullptr;
    }
    if (info.size() > MaximumBytes) {
        *error = fileProblem(path, Texts::tr("it is too large: %1 bytes").arg(info.size()));
        return nullptr;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = fileProblem(path, file.errorString());
        return nullptr;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        *error = fileProblem(path, file.errorString());
        return nullptr;
    }

    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = fileProblem(path, QString("%1: %2").arg(placeOf(bytes, parseError.offset),
                                                         parseError.errorString()));
        return nullptr;
    }
    try {
        const QJsonValue value =
            document.isObject() ? QJsonValue(document.object()) : QJsonValue(document.array());
        std::unique_ptr<Design> design = DesignDescription::read(JsonNode(value), folder);
        refreshReadOnly(design.get());
        design->setProperty(SeenProperty, bytes);
        return design;
    } catch (const JsonError& wrong) {
        *error = fileProblem(path, wrong.text());
        return nullptr;
    }
}

QByteArray DesignStorage::text(const Design& design)
{
    return QJsonDocument(DesignDescription::write(design)).toJson();
}

bool DesignStorage::save(Design* design, QString* error)
{
    const QString path = descriptionPath(design->workingFolderPath());
    const QByteArray bytes = text(*design);
    const QFileInfo present(path);
    // Through a link, a device of the system would be replaced.
    if (present.exists() && !present.isFile()) {
        *error = fileProblem(path, Texts::tr("it is not a file"));
        return false;
    }
    QSaveFile file(path);
    // Unbuffered: QSaveFile would not notice when the last of its buffer cannot be written.
    QString problem;
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) ||
        !FcfDevice::writeAll(&file, bytes, &problem) || !file.commit()) {
        *error = fileProblem(path, problem.isEmpty() ? file.errorString() : problem);
        return false;
    }
    design->setProperty(SeenProperty, bytes);
    design->setModified(false);
    return true;
}

bool DesignStorage::isChangedOnDisk(const Design& design)
{
    QFile file(descriptionPath(design.workingFolderPath()));
    // In place of a description that is gone nothing can be lost.
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
