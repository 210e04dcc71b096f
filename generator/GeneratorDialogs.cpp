#include "generator/GeneratorDialogs.h"

#include "generator/DeletionHold.h"

#include <QCoreApplication>

namespace {

void prepare(QMessageBox* box, QMessageBox::Icon icon, const QString& text)
{
    box->setWindowTitle(QCoreApplication::translate("PelkFcfGenerator", "Pelk FCF Generator"));
    box->setIcon(icon);
    box->setText(text);
}

} // namespace

void GeneratorDialogs::inform(QObject* window, const QString& text)
{
    const DeletionHold hold(window);
    QMessageBox box;
    prepare(&box, QMessageBox::Warning, text);
    box.exec();
}

QMessageBox::StandardButton GeneratorDialogs::ask(QObject* window, const QString& text,
                                                  QMessageBox::StandardButton defaultButton)
{
    const DeletionHold hold(window);
    QMessageBox box;
    prepare(&box, QMessageBox::Question, text);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    if (defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}
