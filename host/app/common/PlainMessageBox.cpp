#include "host/app/common/PlainMessageBox.h"

PlainMessageBox::PlainMessageBox(Icon icon, const QString& title, const QString& text,
                                 StandardButtons buttons, StandardButton defaultButton,
                                 QWidget* parent)
    : QMessageBox(icon, title, QString(), buttons, parent)
{
    setTextFormat(Qt::PlainText);
    setText(text);
    setDefaultButton(defaultButton);
}
