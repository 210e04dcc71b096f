#ifndef FRAMEWORK_ICONTEXTMANAGER_H
#define FRAMEWORK_ICONTEXTMANAGER_H

#include "QtilitiesCore_global.h"

#include <QObject>
#include <QString>

namespace Qtilities {
namespace Core {
namespace Interfaces {

class QTILITIES_CORE_EXPORT IContextManager : public QObject {
public:
    virtual int contextID(const QString& context) = 0;
    virtual int contextCount() const = 0;
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

#endif
