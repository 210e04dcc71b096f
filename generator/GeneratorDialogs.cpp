#include "GeneratorDialogs.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QMessageBox>

GeneratorDialogs::~GeneratorDialogs() {}

namespace {

void prepare(QMessageBox* box, QMessageBox::Icon icon, const QString& text)
{
    box->setWindowTitle(QCoreApplication::translate("PelkFcfGenerator", "Pelk FCF Generator"));
    box->setIcon(icon);
    box->setText(text);
}

} // namespace

void DesktopDialogs::tell(const QString& text)
{
    QMessageBox box;
    prepare(&box, QMessageBox::Warning, text);
    box.exec();
}

GeneratorDialogs::Answer DesktopDialogs::ask(const QString& text, DefaultButton defaultButton)
{
    QMessageBox box;
    prepare(&box, QMessageBox::Question, text);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
    if (defaultButton == DefaultsToNo)
        box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes ? Yes : No;
}

QString DesktopDialogs::chooseFile(QWidget* parent, const QString& caption, const QString& start,
                                   const QString& filter)
{
    return QFileDialog::getOpenFileName(parent, caption, start, filter);
}
