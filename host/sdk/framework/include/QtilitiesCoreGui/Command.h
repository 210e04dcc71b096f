#ifndef QTILITIESCOREGUI_COMMAND_H
#define QTILITIESCOREGUI_COMMAND_H

#include <QtilitiesCore/QtilitiesGlobal.h>

#include <QAction>
#include <QObject>

namespace Qtilities {
namespace CoreGui {

/// A named action of the application. Owned by the action manager.
class QTILITIES_SHARED_EXPORT Command : public QObject {
    Q_OBJECT

public:
    explicit Command(QObject* parent = nullptr) : QObject(parent) {}
    ~Command() override;

    /// Never null. Not owned.
    virtual QAction* action() const = 0;
    virtual QString text() const = 0;
};

} // namespace CoreGui
} // namespace Qtilities

#endif
