#ifndef ORVANTICCORE_IDESIGNARCHIVEEXTENSION_H
#define ORVANTICCORE_IDESIGNARCHIVEEXTENSION_H

#include <OrvanticCore/ILinkedExtension.h>

#include <QtilitiesCore/IObjectBase.h>

#include <QString>
#include <QtPlugin>

class QWidget;

namespace OrvanticCore {

class DesignArchiveOutputParserDialog;

namespace Interfaces {

/// Adds a type of archive to the host's archive dialog.
///
/// Life cycle: registered in the object pool, where the dialog finds it by its identifier. Each
/// dialog passes itself by setArchiveDialogWidget() before it asks for anything else, shows the
/// extension's widget while the user has this type chosen, and passes null before it is
/// deleted. The extension and its widget stay their maker's: the dialog gives the widget back, with
/// no parent and hidden. GUI thread only.
/// In the table of its virtual operations the six of ILinkedExtension come before its own nine,
/// which the order of the bases sees to.
class IDesignArchiveExtension : virtual public ILinkedExtension,
                                virtual public Qtilities::Core::Interfaces::IObjectBase {
public:
    /// What goes into an archive.
    enum ArchiveItemFlag {
        /// Files of the design that no tool made.
        SourceFiles = 0x01,
        GeneratedFiles = 0x02,
        /// Files and folders outside the working folder, of either kind.
        ExternalFiles = 0x04,
        DesignFolders = 0x08,
        DesignDescription = 0x10
    };
    Q_DECLARE_FLAGS(ArchiveItemFlags, ArchiveItemFlag)

    IDesignArchiveExtension() {}
    virtual ~IDesignArchiveExtension() {}

    /// The form for this type, or null when it has none.
    virtual QWidget* extensionWidget() = 0;

    /// The name of the type, as the user reads it.
    virtual QString archiveType() const = 0;

protected:
    /// A signal of the implementing object, to which the dialog connects by name: the archive is to
    /// be written to \p new_destination_path.
    virtual void destinationPathChanged(const QString& new_destination_path) = 0;

public:
    /// The destination path to start with when the user chooses the type; empty for the host's.
    virtual QString destinationPathOnActivation() const = 0;

    /// Called when the user changes the destination path.
    virtual void handleDestinationPathChanged(const QString& new_destination_path) = 0;

    /// \p dialog stays the host's and is valid until the next call, which may bring null.
    virtual void setArchiveDialogWidget(DesignArchiveOutputParserDialog* dialog) = 0;

    /// Called when the user chooses the type, to hide or lock controls of the dialog.
    virtual void updateArchiveDialogWidget() = 0;

    virtual ArchiveItemFlags archiveDesignItems() const = 0;

    /// Whether the host's installer for designs goes into the archive too.
    virtual bool archiveIncludeInstaller() const = 0;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(IDesignArchiveExtension::ArchiveItemFlags)

} // namespace Interfaces
} // namespace OrvanticCore

Q_DECLARE_INTERFACE(OrvanticCore::Interfaces::IDesignArchiveExtension,
                    "com.Core.Interfaces.IDesignArchiveExtension/1.0")

#endif
