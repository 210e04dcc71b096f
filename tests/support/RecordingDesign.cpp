#include "support/RecordingDesign.h"

using OrvanticCore::DesignFile;
using OrvanticCore::DesignStructure;
using OrvanticCore::IDesign;
using Qtilities::Core::QtilitiesCategory;
using Qtilities::CoreGui::TreeNode;

RecordingFile::RecordingFile(const QString& path, IDesign* design, QStringList* trace)
    : DesignFile(path, design), m_trace(trace)
{
}

QString RecordingFile::marks() const
{
    return QString::fromLatin1("%1/%2/%3")
        .arg(versionAssociation(), QLatin1String(isGenerated() ? "generated" : "-"), customNode());
}

void RecordingFile::handleLinkChanged()
{
    DesignFile::handleLinkChanged();
    const RecordingDesign* const owner = dynamic_cast<RecordingDesign*>(design());
    const QString line = QString::fromLatin1("mark %1: %2").arg(fileName(), marks());
    if (owner)
        owner->note(line);
    else
        *m_trace << line;
}

RecordingDesign::RecordingDesign(const QString& folder_path, QStringList* trace)
    : major(0), minor(0), folder(folder_path), m_trace(trace), m_tree(new TreeNode)
{
    connect(m_tree.data(), SIGNAL(processingCycleEnded(bool)), SLOT(noteEndOfCycle(bool)));
}

RecordingDesign::~RecordingDesign() {}

void RecordingDesign::note(const QString& line) const
{
    *m_trace << QLatin1String(m_tree->isProcessingCycleActive() ? "cycle: " : "") + line;
}

void RecordingDesign::noteEndOfCycle(bool broadcast)
{
    note(QString::fromLatin1("end of the cycle %1").arg(broadcast));
}

QString RecordingDesign::versionString(const QString& separator) const
{
    return QString::number(major) + separator + QString::number(minor);
}

QVariant RecordingDesign::designProperty(const QString& name) const
{
    note(QLatin1String("read ") + name);
    return properties.value(name);
}

void RecordingDesign::setDesignProperty(const QString& name, const QVariant& value,
                                        const QtilitiesCategory& category)
{
    properties[name] = value;
    note(QString::fromLatin1("set %1 = %2 \"%3\" in %4")
             .arg(name, QLatin1String(value.typeName()), value.toString(), category.toString()));
}

DesignStructure* RecordingDesign::structure() const
{
    note(QLatin1String("structure"));
    return ownStructure.data();
}

DesignFile* RecordingDesign::fileAt(const QString& path) const
{
    note(QLatin1String("find ") + path);
    return known(path);
}

DesignFile* RecordingDesign::addFile(const QString& path, QString* error)
{
    note(QString::fromLatin1("add %1 with error \"%2\"")
             .arg(path, error ? *error : QLatin1String("(null)")));
    if (!refusal.isNull()) {
        if (error)
            *error = refusal;
        return nullptr;
    }
    DesignFile* const added = file(path);
    if (onAdded)
        onAdded(added);
    return added;
}

void RecordingDesign::refreshFiles(const QList<DesignFile*>& files)
{
    QStringList names;
    foreach (const DesignFile* file, files)
        names << file->fileName();
    note(QLatin1String("refresh ") + names.join(QLatin1String(", ")));
}

RecordingFile* RecordingDesign::file(const QString& path)
{
    if (RecordingFile* const present = known(path))
        return present;
    RecordingFile* const added = new RecordingFile(path, this, m_trace);
    m_tree->addItem(added);
    return added;
}

QStringList RecordingDesign::files() const
{
    QStringList lines;
    for (int index = 0; index < m_tree->subjectCount(); ++index) {
        if (const RecordingFile* const file =
                dynamic_cast<RecordingFile*>(m_tree->subjectAt(index)))
            lines << file->filePath() + QLatin1String(": ") + file->marks();
    }
    return lines;
}

RecordingFile* RecordingDesign::known(const QString& path) const
{
    for (int index = 0; index < m_tree->subjectCount(); ++index) {
        RecordingFile* const file = dynamic_cast<RecordingFile*>(m_tree->subjectAt(index));
        if (file && file->filePath() == path)
            return file;
    }
    return nullptr;
}

#include "moc_RecordingDesign.cpp"
