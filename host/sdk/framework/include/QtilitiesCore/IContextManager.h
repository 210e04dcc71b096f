#ifndef QTILITIESCORE_ICONTEXTMANAGER_H
#define QTILITIESCORE_ICONTEXTMANAGER_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QString>

namespace Qtilities {
namespace Core {
namespace Interfaces {

/// Numbers the contexts in which commands are active.
///
/// "qti.def.Context.Standard" is always active. Life cycle: made on first use, lives until the
/// process ends; callers never delete it.
class QTILITIES_SHARED_EXPORT IContextManager {
public:
    IContextManager() {}
    virtual ~IContextManager();

    /// The number of \p context, or -1 when there is no such context.
    virtual int contextID(const QString& context) = 0;

private:
    Q_DISABLE_COPY(IContextManager)
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

#endif
