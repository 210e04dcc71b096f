#ifndef ORVANTICCORE_IDESIGN_H
#define ORVANTICCORE_IDESIGN_H

#include <OrvanticCore/OrvanticCoreGlobal.h>

#include <QtilitiesCore/QtilitiesCategory.h>

#include <QList>
#include <QString>
#include <QVariant>

class QObject;

namespace Qtilities {
namespace CoreGui {
class TreeNode;
}
} // namespace Qtilities

namespace OrvanticCore {

class DesignFile;
class DesignStructure;

/// A design, as extensions see it. It belongs to the host, which may close it whenever the event
/// loop runs. What it returns is not owned by the caller. GUI thread only.
class ORVANTICCORE_SHARED_EXPORT IDesign {
public:
    IDesign() {}
    virtual ~IDesign();

    /// The design itself; never null. It has the shared property "CurrentVersionChanges", a text,
    /// when the changes of the current version have been written down.
    virtual QObject* objectBase() = 0;

    /// For example "Firmware Design".
    virtual QString typeName() const = 0;

    virtual int versionMajor() const = 0;
    virtual int versionMinor() const = 0;

    /// The numbers of the version, with \p separator between them.
    virtual QString versionString(const QString& separator) const = 0;

    /// Invalid when the design has no property of that name.
    virtual QVariant designProperty(const QString& name) const = 0;

    /// Adds the property or replaces its value and category.
    virtual void setDesignProperty(const QString& name, const QVariant& value,
                                   const Qtilities::Core::QtilitiesCategory& category) = 0;

    /// The absolute path of the folder in which the design lies.
    virtual QString workingFolderPath() const = 0;

    /// Null when the design orders its files by none.
    virtual DesignStructure* structure() const = 0;

    /// Has the files of the design in it; never null. Many changes in a row are made in a
    /// processing cycle of this node.
    virtual Qtilities::CoreGui::TreeNode* tree() const = 0;

    /// The file of the design at \p path, absolute or relative to the working folder, or null.
    virtual DesignFile* fileAt(const QString& path) const = 0;

    /// Adds the file at \p path. When the design cannot take it, returns null and sets \p error,
    /// unless that is null, to the reason.
    virtual DesignFile* addFile(const QString& path, QString* error) = 0;

    /// Looks at \p files on the disk again and shows them to the user.
    virtual void refreshFiles(const QList<DesignFile*>& files) = 0;

private:
    Q_DISABLE_COPY(IDesign)
};

} // namespace OrvanticCore

#endif
