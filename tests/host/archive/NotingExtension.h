#ifndef TESTS_HOST_ARCHIVE_NOTINGEXTENSION_H
#define TESTS_HOST_ARCHIVE_NOTINGEXTENSION_H

#include <OrvanticCore/DesignArchiveOutputParserDialog.h>
#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QLineEdit>
#include <QStringList>

/// An archive extension whose answers a test chooses. It notes the host's calls and registers
/// itself in the object pool. Its widget is a line edit: what is entered is the destination.
class NotingExtension : public QLineEdit, public OrvanticCore::Interfaces::IDesignArchiveExtension {
    Q_OBJECT
    Q_INTERFACES(OrvanticCore::Interfaces::IDesignArchiveExtension)

public:
    explicit NotingExtension(const QString& type = "Noting Package");

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }
    QStringList designTypeNames() const override { return typeNames; }
    bool isDesignTypeNamesInversed() const override { return typeNamesInversed; }
    QStringList designStructureIDs() const override { return structureIds; }

    QWidget* extensionWidget() override { return hasWidget ? this : nullptr; }
    QString archiveType() const override { return m_type; }
    QString destinationPathOnActivation() const override { return pathOnActivation; }
    void setArchiveDialogWidget(OrvanticCore::DesignArchiveOutputParserDialog* widget) override;
    void updateArchiveDialogWidget() override;
    ArchiveItemFlags archiveDesignItems() const override { return items; }
    bool archiveIncludeInstaller() const override { return false; }
    void handleDestinationPathChanged(const QString& new_destination_path) override;

    OrvanticCore::DesignArchiveOutputParserDialog* dialog = nullptr;
    bool hasWidget = true;
    bool hidesAndLocks = false;
    QString pathOnActivation;
    ArchiveItemFlags items = ArchiveItemFlags(SourceFiles) | DesignDescription;
    QStringList typeNames;
    bool typeNamesInversed = false;
    QStringList structureIds;
    /// For example "dialog", "no dialog", "update", "path /designs/radar.zip".
    QStringList calls;

Q_SIGNALS:
    void destinationPathChanged(const QString& new_destination_path) override;

private:
    QString m_type;
};

#endif
