#ifndef ORVANTICCORE_ILINKEDEXTENSION_H
#define ORVANTICCORE_ILINKEDEXTENSION_H

#include <QStringList>
#include <QtGlobal>

namespace OrvanticCore {
namespace Interfaces {

/// For which designs an extension is meant. An empty list, the default, means all designs; an
/// inversed one for all but those in it.
class ILinkedExtension {
public:
    ILinkedExtension() {}
    virtual ~ILinkedExtension() {}

    virtual QStringList designStructureIDs() const { return QStringList(); }
    virtual bool isDesignStructureIDsInversed() const { return false; }
    virtual QStringList designStructureOriginNames() const { return QStringList(); }
    virtual bool isDesignStructureOriginNamesInversed() const { return false; }
    virtual QStringList designTypeNames() const { return QStringList(); }
    virtual bool isDesignTypeNamesInversed() const { return false; }

private:
    Q_DISABLE_COPY(ILinkedExtension)
};

} // namespace Interfaces
} // namespace OrvanticCore

#endif
