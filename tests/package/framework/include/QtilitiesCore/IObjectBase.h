#ifndef FRAMEWORK_IOBJECTBASE_H
#define FRAMEWORK_IOBJECTBASE_H

#include <QObject>

namespace Qtilities {
namespace Core {
namespace Interfaces {

class IObjectBase {
public:
    IObjectBase() : m_reserved(nullptr) {}
    virtual ~IObjectBase() {}
    virtual QObject* objectBase() = 0;
    virtual const QObject* objectBase() const = 0;
    virtual QString reserved() const { return QString(); }

private:
    void* m_reserved;
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

Q_DECLARE_INTERFACE(Qtilities::Core::Interfaces::IObjectBase, "com.Qtilities.Core.IObjectBase/1.0")

#endif
