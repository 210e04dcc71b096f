#ifndef FRAMEWORK_IACTIONMANAGER_H
#define FRAMEWORK_IACTIONMANAGER_H

#include <ActionContainer.h>
#include <Command.h>

#include <QIcon>
#include <QKeySequence>
#include <QList>

namespace Qtilities {
namespace CoreGui {
namespace Interfaces {

class QTILITIES_CORE_EXPORT IActionManager : public QObject {
    Q_OBJECT

public:
    virtual ActionContainer* createMenu(const QString& id, bool& existed) = 0;
    virtual ActionContainer* menu(const QString& id) = 0;
    virtual Command* registerActionPlaceHolder(const QString& id, const QString& user_text,
                                               const QKeySequence& shortcut = QKeySequence(),
                                               const QList<int>& context = QList<int>(),
                                               const QIcon& icon = QIcon()) = 0;
    virtual Command* command(const QString& id) = 0;
    virtual QList<Command*> commands() const = 0;

Q_SIGNALS:
    void numberOfCommandsChanged();
};

} // namespace Interfaces
} // namespace CoreGui
} // namespace Qtilities

#endif
