#ifndef HOST_APP_ARCHIVE_ARCHIVEDIALOG_H
#define HOST_APP_ARCHIVE_ARCHIVEDIALOG_H

#include "host/app/archive/ArchiveDestination.h"
#include "host/app/archive/ArchiveFormat.h"
#include "host/app/archive/ArchivePlan.h"

#include <OrvanticCore/Design.h>
#include <OrvanticCore/DesignArchiveOutputParserDialog.h>
#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QByteArray>
#include <QMessageBox>
#include <QPointer>

#include <functional>
#include <memory>

class ArchiveJob;
class QPushButton;

namespace Ui {
class ArchiveDialog;
}

/// The reference host's archive dialog.
///
/// It offers the plain archive and the types of the extensions in the object pool. The form of an
/// extension is shown while its type is chosen, and has no parent afterwards. Not owned. Each
/// extension has a pointer to the dialog as long as that exists.
class ArchiveDialog final : public OrvanticCore::DesignArchiveOutputParserDialog {
    Q_OBJECT

public:
    /// The design's description at the time of the archiving.
    struct Description {
        /// The name of the member in the archive. An empty one leaves the description out.
        QString name;
        std::function<QByteArray()> text;
    };

    /// \p design may be null or be deleted, and nothing can be archived then. Not owned.
    ArchiveDialog(OrvanticCore::Design* design, const Description& description,
                  QWidget* parent = nullptr);
    /// Cancels an archive that is being made.
    ~ArchiveDialog() override;

    QString currentExtension() const override;
    OrvanticCore::Design* design() const override;
    void setAppendVersionCheckboxVisible(bool visible) override;
    void setDestinationPathReadOnly(bool read_only) override;
    void setIncludedItemsGroupboxVisible(bool visible) override;

    /// The absolute path of the archive that was made; empty before.
    QString archivePath() const { return m_archivePath; }

    /// While an archive is made, cancels that and stays open.
    void reject() override;

private slots:
    /// Connected by its name to the signal of the chosen extension, too: the dialog knows no class
    /// of an extension.
    void showDestination(const QString& path);

private:
    using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;
    using Items = Extension::ArchiveItemFlags;

    void buildForm();
    void loadTypes();
    /// The extension of an entry in the list of types; null for the plain archive, and when it was
    /// deleted.
    QObject* extensionOf(int type) const;
    Extension* currentExtensionObject() const { return qobject_cast<Extension*>(m_extension); }
    void connectForm();

    /// Chooses what was chosen for the last archive.
    void recall();
    void remember() const;
    void showContents();
    void changeType();
    void enterType();
    void enterExtension(Extension* extension);
    void leaveType();
    /// Resizes the dialog to the controls of the chosen type.
    void fitHeight();
    void handleObjectRemoved(QObject* object);
    void changeFormat();
    void changeVersionSuffix(bool present);
    void browse();

    /// Shows a path that the user has chosen, and notifies the extension.
    void changeDestination(const QString& path);

    ArchiveFormat currentFormat() const;
    /// Not to be kept, since it does not notice when the design is deleted.
    ArchiveDestination destination() const;
    Items includedItems() const;
    void setIncludedItems(Items items);

    void archive();
    /// Whether the archive may get the name that the extension has built. Asks about an odd one.
    bool mayUseName();
    ArchivePlan plan() const;
    void handleJobFinished();
    void showError(const QString& reason);
    int showBox(QMessageBox::Icon icon, const QString& text, QMessageBox::StandardButtons buttons,
                QMessageBox::StandardButton defaultButton);
    void updateState();

    std::unique_ptr<Ui::ArchiveDialog> m_ui;
    QPushButton* m_archiveButton = nullptr;
    QString m_archivePath;
    QPointer<OrvanticCore::Design> m_design;
    Description m_description;
    /// Whether the plain archive is chosen. Else the extension of the chosen type, and its form.
    bool m_isPlain = true;
    QPointer<QObject> m_extension;
    QPointer<QWidget> m_extensionWidget;
    /// What the user left for the plain archive, while another type is chosen.
    QString m_plainDestination;
    Items m_plainItems;
    /// Null while no archive is made.
    std::unique_ptr<ArchiveJob> m_job;
};

/// Shows the dialog for \p design until the user is done with it, and then where the archive is.
///
/// For drivers: "ArchivedBox" with "ShowInFolderButton".
void archiveDesign(OrvanticCore::Design* design, const ArchiveDialog::Description& description,
                   QWidget* parent);

#endif
