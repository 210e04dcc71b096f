#ifndef HOST_APP_COMMON_PLAINMESSAGEBOX_H
#define HOST_APP_COMMON_PLAINMESSAGEBOX_H

#include <QMessageBox>

/// A box whose text is shown as it is: nothing that a path looks like changes it.
class PlainMessageBox : public QMessageBox {
public:
    /// With NoButton for \p defaultButton the box chooses the one that Return presses.
    PlainMessageBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons,
                    StandardButton defaultButton, QWidget* parent)
        : QMessageBox(icon, title, QString(), buttons, parent)
    {
        setTextFormat(Qt::PlainText);
        setText(text);
        setDefaultButton(defaultButton);
    }
};

#endif
