#ifndef HOST_APP_ARCHIVE_ARCHIVETYPES_H
#define HOST_APP_ARCHIVE_ARCHIVETYPES_H

#include <OrvanticCore/IDesignArchiveExtension.h>

#include <QPointer>
#include <QString>

#include <vector>

namespace OrvanticCore {
class IDesign;
}

/// A type of archive that the dialog offers: the host's own or that of an extension, which may be
/// deleted at any time.
class ArchiveType {
public:
    using Extension = OrvanticCore::Interfaces::IDesignArchiveExtension;

    /// The host's plain archive.
    ArchiveType() : m_plain(true) {}
    /// That of \p extension, which has the archive extension's interface.
    explicit ArchiveType(QObject* extension) : m_object(extension), m_plain(false) {}

    /// For the user. The extension is asked for it, which must not have been deleted.
    QString name() const;
    bool isPlain() const { return m_plain; }

    /// The extension, as what it is and by its interface; null for the plain archive and when it
    /// was deleted.
    QObject* object() const { return m_object; }
    Extension* extension() const { return qobject_cast<Extension*>(m_object.data()); }

private:
    QPointer<QObject> m_object;
    bool m_plain;
};

/// The host's own type, then that of each extension in the object pool that is meant for
/// \p design, in the order of their registration.
std::vector<ArchiveType> archiveTypesFor(const OrvanticCore::IDesign* design);

/// Whether \p extension names the type of \p design, or leaves the types open. Designs of this host
/// have neither the identifiers nor the origins that structures have elsewhere; so one that asks
/// for some is not meant.
bool isMeantFor(const OrvanticCore::Interfaces::ILinkedExtension& extension,
                const OrvanticCore::IDesign* design);

#endif
