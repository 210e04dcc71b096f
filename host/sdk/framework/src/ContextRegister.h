#ifndef FRAMEWORK_CONTEXTREGISTER_H
#define FRAMEWORK_CONTEXTREGISTER_H

#include <QtilitiesCore/IContextManager.h>

#include <QList>

namespace Qtilities {
namespace Core {

/// Knows one context, the standard one, which is always active.
class ContextRegister : public Interfaces::IContextManager {
public:
    static ContextRegister* instance();

    int contextID(const QString& context) override;

    /// Whether one of the contexts numbered in \p ids is active; an empty list means the
    /// standard context.
    bool isAnyActive(const QList<int>& ids) const;

private:
    ContextRegister() {}
};

} // namespace Core
} // namespace Qtilities

#endif
