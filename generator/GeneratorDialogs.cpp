#include "generator/GeneratorDialogs.h"

#include <QCoreApplication>

namespace {

void prepare(QMessageBox* box, QMessageBox::Icon icon, const QString& text)
{
    box->setWindowTitle(QCoreApplication::translate("PelkFcfGenerator", "Pelk FCF Generator"));
    box->setIcon(icon);
    box->setText(text);
}

} // namespace

void GeneratorDialogs::inform(const QString& text)
{
    QMessageBox box;
    prepare(&box, QMessageBox::Warning, text);
    box.exec();
}

QMessageBox::StandardButton GeneratorDialogs::ask(const QString& text,
                                                  QMessageBox::StandardButton defaultButton)
{
    QMessageBox box;
    prepare(&box, QMessageBox::Question, text);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    if (defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}
