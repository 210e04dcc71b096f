#ifndef FRAMEWORK_COMMAND_H
#define FRAMEWORK_COMMAND_H

#include "QtilitiesCore_global.h"

#include <QAction>
#include <QObject>

namespace Qtilities {
namespace CoreGui {

class QTILITIES_CORE_EXPORT Command : public QObject {
    Q_OBJECT

public:
    virtual QAction* action() const = 0;
    virtual QString text() const = 0;
    virtual QString defaultText() const { return QString(); }
};

} // namespace CoreGui
} // namespace Qtilities

#endif
