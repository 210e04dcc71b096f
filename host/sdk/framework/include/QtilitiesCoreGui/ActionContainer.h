#ifndef QTILITIESCOREGUI_ACTIONCONTAINER_H
#define QTILITIESCOREGUI_ACTIONCONTAINER_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QMenu>
#include <QObject>

namespace Qtilities {
namespace CoreGui {

class Command;

/// A menu that plug-ins add commands to. Owned by the action manager.
class QTILITIES_SHARED_EXPORT ActionContainer : public QObject {
    Q_OBJECT

public:
    explicit ActionContainer(QObject* parent = nullptr) : QObject(parent) {}
    ~ActionContainer() override;

    /// Never null. Not owned.
    virtual QMenu* menu() const = 0;

    /// Puts \p command before the command named \p before, or at the end when that is empty or not
    /// in this menu. The command stays the action manager's.
    virtual void addAction(Command* command, const QString& before = QString()) = 0;

    /// Places a separator by the same rule.
    virtual void addSeparator(const QString& before = QString()) = 0;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
