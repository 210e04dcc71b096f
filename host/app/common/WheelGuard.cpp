#include "host/app/common/WheelGuard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

namespace {

class WheelGuard : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* const box = static_cast<QWidget*>(watched);
        if (event->type() != QEvent::Wheel || box->hasFocus())
            return false;

        // An event that is ignored goes on to the parent.
        event->ignore();
        return true;
    }
};

} // namespace

void guardWheel(QWidget* form)
{
    auto* const guard = new WheelGuard(form);
    for (QWidget* box : form->findChildren<QWidget*>()) {
        if (!qobject_cast<QAbstractSpinBox*>(box) && !qobject_cast<QComboBox*>(box))
            continue;

        // The wheel is not to give the focus either.
        box->setFocusPolicy(Qt::StrongFocus);
        box->installEventFilter(guard);
    }
}
