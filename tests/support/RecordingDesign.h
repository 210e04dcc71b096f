#ifndef TESTS_SUPPORT_RECORDINGDESIGN_H
#define TESTS_SUPPORT_RECORDINGDESIGN_H

#include <OrvanticCore/DesignFile.h>
#include <OrvanticCore/DesignStructure.h>
#include <OrvanticCore/IDesign.h>
#include <QtilitiesCoreGui/TreeNode.h>

#include <QMap>
#include <QObject>
#include <QScopedPointer>
#include <QStringList>

#include <functional>

/// A file of a recording design, which tells it about each mark that it gets.
class RecordingFile : public OrvanticCore::DesignFile {
public:
    RecordingFile(const QString& path, OrvanticCore::IDesign* design, QStringList* trace);

    /// "VERSION/generated or not/NODE".
    QString marks() const;

protected:
    void handleLinkChanged() override;

private:
    QStringList* m_trace;
};

/// A design that does what it is asked for and adds a line to a trace for each of it. Lines between
/// the start and the end of a processing cycle begin with "cycle: ".
class RecordingDesign : public QObject, public OrvanticCore::IDesign {
    Q_OBJECT

public:
    /// \p trace is not owned.
    RecordingDesign(const QString& folder, QStringList* trace);
    ~RecordingDesign() override;

    QObject* objectBase() override { return this; }
    QString typeName() const override { return type; }
    int versionMajor() const override { return major; }
    int versionMinor() const override { return minor; }
    QString versionString(const QString& separator) const override;
    QVariant designProperty(const QString& name) const override;
    void setDesignProperty(const QString& name, const QVariant& value,
                           const Qtilities::Core::QtilitiesCategory& category) override;
    QString workingFolderPath() const override { return folder; }
    OrvanticCore::DesignStructure* structure() const override;
    Qtilities::CoreGui::TreeNode* tree() const override { return m_tree.data(); }
    OrvanticCore::DesignFile* fileAt(const QString& path) const override;
    OrvanticCore::DesignFile* addFile(const QString& path, QString* error) override;
    void refreshFiles(const QList<OrvanticCore::DesignFile*>& files) override;

    /// Adds a line in the state of the cycle.
    void note(const QString& line) const;

    /// The file at \p path without a line, made where there is none.
    RecordingFile* file(const QString& path);
    bool has(const QString& path) const { return known(path) != nullptr; }

    /// "PATH: MARKS" of each file, in the order in which they were added.
    QStringList files() const;

    QString type;
    int major;
    int minor;
    QString folder;
    QMap<QString, QVariant> properties;
    QScopedPointer<OrvanticCore::DesignStructure> ownStructure;
    /// Why no file can be added; empty when they can.
    QString refusal;
    /// Called at the end of each addFile() with the new file.
    std::function<void(OrvanticCore::DesignFile*)> onAdded;

private Q_SLOTS:
    void noteEndOfCycle(bool broadcast);

private:
    RecordingFile* known(const QString& path) const;

    QStringList* m_trace;
    QScopedPointer<Qtilities::CoreGui::TreeNode> m_tree;
};

#endif
