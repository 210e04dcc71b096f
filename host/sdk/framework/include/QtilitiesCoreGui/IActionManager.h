#ifndef QTILITIESCOREGUI_IACTIONMANAGER_H
#define QTILITIESCOREGUI_IACTIONMANAGER_H

#include <QtilitiesCore/QtilitiesGlobal.h>
#include <QtilitiesCoreGui/ActionContainer.h>
#include <QtilitiesCoreGui/Command.h>

#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QObject>

namespace Qtilities {
namespace CoreGui {
namespace Interfaces {

/// Menus and commands of the application, by identifier.
///
/// Life cycle: made on first use after the application object, deleted with it. What it returns
/// is not owned by the caller. GUI thread only.
class QTILITIES_SHARED_EXPORT IActionManager : public QObject {
    Q_OBJECT

public:
    explicit IActionManager(QObject* parent = nullptr) : QObject(parent) {}
    ~IActionManager() override;

    /// The menu named \p id, made when there is none; \p existed is whether there was one. Never
    /// null.
    virtual ActionContainer* createMenu(const QString& id, bool& existed) = 0;

    /// The menu named \p id, or null.
    virtual ActionContainer* menu(const QString& id) = 0;

    /// The command named \p id, made when there is none. Never null. It is enabled while one of the
    /// contexts numbered in \p context is active; an empty list means the standard context.
    virtual Command* registerActionPlaceHolder(const QString& id, const QString& user_text,
                                               const QKeySequence& shortcut = QKeySequence(),
                                               const QList<int>& context = QList<int>(),
                                               const QIcon& icon = QIcon()) = 0;

    /// The command named \p id, or null.
    virtual Command* command(const QString& id) = 0;
};

} // namespace Interfaces
} // namespace CoreGui
} // namespace Qtilities

#endif
