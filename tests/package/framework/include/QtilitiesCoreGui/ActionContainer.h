#ifndef FRAMEWORK_ACTIONCONTAINER_H
#define FRAMEWORK_ACTIONCONTAINER_H

#include "QtilitiesCore_global.h"

#include <QMenu>
#include <QMenuBar>
#include <QObject>

namespace Qtilities {
namespace CoreGui {

class Command;

class QTILITIES_CORE_EXPORT ActionContainer : public QObject {
    Q_OBJECT

public:
    virtual QMenu* menu() const = 0;
    virtual void addAction(Command* command, const QString& before = QString()) = 0;
    virtual void addSeparator(const QString& before = QString()) = 0;
    virtual QMenuBar* menuBar() const { return nullptr; }
};

} // namespace CoreGui
} // namespace Qtilities

#endif
