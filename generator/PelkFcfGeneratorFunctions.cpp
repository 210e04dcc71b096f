// The function list of the generator window and its editor.

#include "generator/PelkFcfGenerator.h"

#include "fcf/FormLimits.h"
#include "generator/GeneratorDialogs.h"
#include "generator/WordWrap.h"

#include "ui_PelkFcfGenerator.h"

#include <OrvanticCore/DesignManager.h>

namespace {

/// The place of each text among the entries that a function has in the flat list.
enum Entry { NameEntry, AuthorEntry, DescriptionEntry, CiNumberEntry, EntryCount };

const char* const DefaultText = "0000";

void setDefault(QLineEdit* field)
{
    if (field->text().isEmpty())
        field->setText(QLatin1String(DefaultText));
}

void setDefault(QTextEdit* field)
{
    if (field->toPlainText().isEmpty())
        field->setPlainText(QLatin1String(DefaultText));
}

} // namespace

void PelkFcfGenerator::functionsFieldSetEditable() { setFunctionFieldsEnabled(true); }

void PelkFcfGenerator::functionsFieldSetNotEditable() { setFunctionFieldsEnabled(false); }

void PelkFcfGenerator::setFunctionFieldsEnabled(bool enabled)
{
    ui->EditFunctionName->setEnabled(enabled);
    ui->AuthorFunctions->setEnabled(enabled);
    ui->DescriptionMemoFunctions->setEnabled(enabled);
    ui->CiNumberEditBoxFunctions->setEnabled(enabled);
    ui->AddNewFunction->setEnabled(enabled);
    ui->UploadFunctionButton->setEnabled(enabled);
    ui->btnItsMe->setEnabled(enabled);
}

void PelkFcfGenerator::modifyFunctionsCheckBoxClick()
{
    setFunctionFieldsEnabled(ui->ModifyFunctionCheckBox->isChecked());
}

FcfFunction PelkFcfGenerator::editedFunction() const
{
    FcfFunction function;
    function.name = ui->EditFunctionName->text();
    function.author = ui->AuthorFunctions->text();
    function.description = ui->DescriptionMemoFunctions->toPlainText();
    function.ciNumber = ui->CiNumberEditBoxFunctions->text();
    return function;
}

void PelkFcfGenerator::editFunction(const FcfFunction& function)
{
    ui->EditFunctionName->setText(function.name);
    ui->AuthorFunctions->setText(function.author);
    ui->CiNumberEditBoxFunctions->setText(function.ciNumber);
    // The text of before may be endless, and is not laid out once more in the mode of the next one.
    ui->DescriptionMemoFunctions->clear();
    ui->DescriptionMemoFunctions->setWordWrapMode(WordWrap::modeFor(function.description));
    ui->DescriptionMemoFunctions->setPlainText(function.description);
}

FcfFunction PelkFcfGenerator::functionAt(int index) const
{
    const int first = index * EntryCount;
    FcfFunction function;
    function.name = functions.value(first + NameEntry);
    function.author = functions.value(first + AuthorEntry);
    function.description = functions.value(first + DescriptionEntry);
    function.ciNumber = functions.value(first + CiNumberEntry);
    return function;
}

void PelkFcfGenerator::clearFunctionFields() { editFunction(FcfFunction()); }

void PelkFcfGenerator::addNewFuction()
{
    clearFunctionFields();
    functionsFieldSetEditable();
}

void PelkFcfGenerator::addNew()
{
    clearScreen();
    functionsFieldSetEditable();
    functions.clear();
}

void PelkFcfGenerator::displayFunctionInfo(int new_selection)
{
    clearFunctionFields();
    if (new_selection < 0)
        return;
    editFunction(functionAt(new_selection));
    ui->btnRemove->setEnabled(ui->FunctionComboBox->count() > 0);
}

bool PelkFcfGenerator::checkFunction()
{
    if (ui->EditFunctionName->text().isEmpty()) {
        GeneratorDialogs::inform(
            this, tr("Please enter a Function Name before uploading Function field is empty"));
        ui->EditFunctionName->setFocus();
        // A warning, not a refusal: the function is added without a name.
        return false;
    }

    setDefault(ui->CiNumberEditBoxFunctions);
    setDefault(ui->AuthorFunctions);
    setDefault(ui->DescriptionMemoFunctions);

    ui->btnRemove->setEnabled(ui->FunctionComboBox->count() > 0);
    const int index = ui->FunctionComboBox->findText(ui->EditFunctionName->text(),
                                                     Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index < 0)
        return false;

    const QMessageBox::StandardButton answer = GeneratorDialogs::ask(
        this, tr("The Function already exists, click Yes to override it and No to cancel"),
        QMessageBox::No);
    if (answer != QMessageBox::No) {
        // As the editor has it now: the host may have changed it while the question was open.
        const FcfFunction function = editedFunction();
        const int first = index * EntryCount;
        // Shorter than the combo box after a load into a window that listed functions already.
        functions.resize(qMax(functions.size(), first + EntryCount));
        functions[first + NameEntry] = function.name;
        functions[first + AuthorEntry] = function.author;
        functions[first + DescriptionEntry] = function.description;
        functions[first + CiNumberEntry] = function.ciNumber;
    }
    return true;
}

void PelkFcfGenerator::addFunction()
{
    const FcfFunction function = editedFunction();
    functions << function.name << function.author << function.description << function.ciNumber;
}

void PelkFcfGenerator::uploadFunctionButtonClick()
{
    if (checkFunction())
        return;
    addFunction();
    ui->FunctionComboBox->addItem(ui->EditFunctionName->text());
    clearFunctionFields();
    ui->btnRemove->setEnabled(true);
}

void PelkFcfGenerator::btnRemove_clicked()
{
    if (ui->FunctionComboBox->count() == 0)
        return;
    const int index = ui->FunctionComboBox->currentIndex();
    // The index goes into the build's author whatever the answer; users know the window so.
    ui->AuthoEditBox->setText(QString::number(index));
    const QMessageBox::StandardButton answer = GeneratorDialogs::ask(
        this, tr("Are you sure you want to remove the function?, click Yes to remove it and No to "
                 "cancel"));
    if (answer != QMessageBox::Yes)
        return;

    // This shows the next function from a list that still has the removed one; hence the clearing.
    ui->FunctionComboBox->removeItem(index);
    clearFunctionFields();
    if (index >= 0 && functions.size() >= (index + 1) * EntryCount)
        functions.remove(index * EntryCount, EntryCount);
}

void PelkFcfGenerator::on_btnItsMe_clicked()
{
    ui->AuthorFunctions->setText(OrvanticCore::DesignManager::instance()->currentUserName());
}

void PelkFcfGenerator::DescriptionMemoExit()
{
    const QString description = ui->DescriptionMemo->toPlainText();
    if (description.length() <= FormLimits::DescriptionLength)
        return;

    const int place = ui->DescriptionMemo->textCursor().position();
    ui->DescriptionMemo->setPlainText(description.left(FormLimits::DescriptionLength));
    // The cursor would be at the start, where the next letter would be put.
    QTextCursor cursor = ui->DescriptionMemo->textCursor();
    cursor.setPosition(qMin(place, FormLimits::DescriptionLength));
    ui->DescriptionMemo->setTextCursor(cursor);
    ui->DescriptionMemo->setFocus();
    GeneratorDialogs::inform(
        this, tr("The Description can not be more 1000 characters long The description is "
                 "too long"));
}
