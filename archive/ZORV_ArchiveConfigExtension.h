#ifndef ARCHIVE_ZORV_ARCHIVECONFIGEXTENSION_H
#define ARCHIVE_ZORV_ARCHIVECONFIGEXTENSION_H

#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QMap>
#include <QString>
#include <QWidget>

class Ui_ZORV_ArchiveConfigExtension;

namespace OrvanticCore {
class IDesign;
}

namespace ZORV_Plugin {

// By this name moc also has the interface's short name accepted in meta-casts.
using OrvanticCore::Interfaces::IDesignArchiveExtension;

/// The form in the host's archive dialog that names a configuration package, for example
/// 7010-GNRL-ELEC-FW-01-V-01_00: package code, project CM code, design code, kind code, sequence
/// number and revision.
///
/// The host may call it in any order; without a dialog or a design it does nothing. It does not
/// watch the dialog's lifetime: the host takes the dialog back by setting null.
class ZORV_ArchiveConfigExtension : public QWidget, public IDesignArchiveExtension {
    Q_OBJECT
    Q_INTERFACES(OrvanticCore::Interfaces::IDesignArchiveExtension)

public:
    /// Selects the package type that the host's settings file has, and writes it back: an empty
    /// text, with nothing selected, when that one is unknown.
    explicit ZORV_ArchiveConfigExtension(QWidget* parent = nullptr);
    ~ZORV_ArchiveConfigExtension() override;

    QObject* objectBase() override { return this; }
    const QObject* objectBase() const override { return this; }

    /// The form itself.
    QWidget* extensionWidget() override;
    QString archiveType() const override;

Q_SIGNALS:
    /// Sent whenever a package name was built, even the same as before.
    void destinationPathChanged(const QString& new_destination_path) override;

public:
    /// The path that was built last; null before the first one.
    QString destinationPathOnActivation() const override;

    /// Takes the revision from the design of \p dialog, where each number ends at 99, and builds a
    /// name. Not owned.
    void setArchiveDialogWidget(OrvanticCore::DesignArchiveOutputParserDialog* dialog) override;

    /// Keeps the user from changing what the package name and its content are made from.
    void updateArchiveDialogWidget() override;

    ArchiveItemFlags archiveDesignItems() const override;
    bool archiveIncludeInstaller() const override;

public Q_SLOTS:
    /// Ignored: the name comes from the form alone.
    void handleDestinationPathChanged(const QString& new_destination_path) override;

    /// Builds the destination path from the form and the dialog's design and format.
    void updatePackageName();

    /// Lists the design types of the selected package type, and remembers that one.
    void handlePackageTypeChange();

private:
    /// Codes by label.
    typedef QMap<QString, QString> DesignTypes;

    struct PackageType;
    static const PackageType PackageTypes[2];

    void connectNameFields();
    void fillDesignTypes();
    void restorePackageType();
    void savePackageType() const;
    const PackageType* selectedPackageType() const;
    void listDesignTypes(const DesignTypes& types);
    QString destinationFolder(const OrvanticCore::IDesign& design) const;

    Ui_ZORV_ArchiveConfigExtension* ui;
    /// Not owned.
    OrvanticCore::DesignArchiveOutputParserDialog* archiveDialog;
    QString destinationPath;
    DesignTypes firmwareDesignTypes;
    DesignTypes softwareDesignTypes;
};

} // namespace ZORV_Plugin

#endif
