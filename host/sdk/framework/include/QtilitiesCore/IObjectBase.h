#ifndef QTILITIESCORE_IOBJECTBASE_H
#define QTILITIESCORE_IOBJECTBASE_H

#include <QObject>

namespace Qtilities {
namespace Core {
namespace Interfaces {

/// The way from an interface back to the QObject that implements it.
///
/// Interfaces inherit it virtually, so that an object with several interfaces has one answer.
class IObjectBase {
public:
    IObjectBase() {}
    virtual ~IObjectBase() {}

    /// The implementing object itself; never null. Not owned.
    virtual QObject* objectBase() = 0;
    virtual const QObject* objectBase() const = 0;

private:
    Q_DISABLE_COPY(IObjectBase)
};

} // namespace Interfaces
} // namespace Core
} // namespace Qtilities

Q_DECLARE_INTERFACE(Qtilities::Core::Interfaces::IObjectBase, "com.Qtilities.Core.IObjectBase/1.0")

#endif
