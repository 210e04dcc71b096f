// The form and the function list; see GeneratorModelLoad.cpp and GeneratorModelGenerate.cpp.

#include "generator/model/GeneratorModel.h"

#include <cmath>

namespace {

const int BlockPages = 64;
const int DescriptionLength = 1000;
const QLatin1String DefaultText("0000");

const WidgetName EditorFields[] = {EditFunctionName, AuthorFunctions, DescriptionMemoFunctions,
                                   CiNumberEditBoxFunctions};
const WidgetName EditorWidgets[] = {EditFunctionName,
                                    AuthorFunctions,
                                    DescriptionMemoFunctions,
                                    CiNumberEditBoxFunctions,
                                    AddNewFunction,
                                    UploadFunctionButton,
                                    btnItsMe};

QStringList devicesOf(const QString& module)
{
    if (module == QLatin1String("DFE"))
        return QString::fromLatin1("Interface_FPGA,Processing_FPGA_1,Clock_Master_Device")
            .split(QLatin1Char(','));
    if (module == QLatin1String("DFE2"))
        return QStringList(QLatin1String("Processing_FPGA"));
    if (module == QLatin1String("GPM"))
        return QString::fromLatin1(
                   "Interface_FPGA,Processing_FPGA_1,Processing_FPGA_2,Processing_FPGA_3")
            .split(QLatin1Char(','));
    return QStringList();
}

qint32 pagesInAll(qint32 bytes)
{
    return static_cast<qint32>(std::ceil(static_cast<double>(bytes) / PageBytes));
}

qint32 blocks(qint32 bytes)
{
    return pagesInAll(bytes) <= BlockPages ? 0 : pagesInAll(bytes) / BlockPages;
}

qint32 pages(qint32 bytes) { return pagesInAll(bytes) - BlockPages * blocks(bytes); }

bool isMemo(WidgetName name) { return name == DescriptionMemo || name == DescriptionMemoFunctions; }

int longestText(WidgetName name)
{
    if (name == AuthoEditBox)
        return 20;
    return name == MajorVerEditBox || name == MinorVerEditBox ? 3 : -1;
}

/// What Qt's text edit makes of a text.
QString plainTextOf(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
    text.replace(QChar(QChar::ParagraphSeparator), QLatin1Char('\n'));
    return text.replace(QChar(QChar::Nbsp), QLatin1Char(' '));
}

} // namespace

GeneratorModel::GeneratorModel()
    : exists(false), isUnfolded(false), m_deletesItself(false), m_isDoomed(false)
{
}

void GeneratorModel::construct(bool deletesItself)
{
    form = GeneratorState();
    exists = true;
    isUnfolded = false;
    m_deletesItself = deletesItself;
    m_isDoomed = false;

    form[BinFileSize].text = QLatin1String("size");
    form[BinFilePages].text = QLatin1String("pages");
    form[BinFileBlocks].text = QLatin1String("file blocks");
    form[btnLoad].text = QLatin1String("Load");
    form[ModifyFunctionCheckBox].text = QLatin1String("Modify");
    form[btnRemove].text = QLatin1String("Remove Function");
    form[AddNewFunction].text = QLatin1String("Clear Function Parameters");
    form[UploadFunctionButton].text = QLatin1String("Upload Function");
    form[btnItsMe].text = QLatin1String("It's Me");
    form[btnCancel].text = QLatin1String("Cancel");
    form[GenerateButton].text = QLatin1String("Generate");
    form[ModifyFunctionCheckBox].isEnabled = false;
    form[btnRemove].isEnabled = false;
    for (const char* module : {"DFE", "DFE2", "GPM"})
        addItem(ModuleComboBox, QLatin1String(module));
    for (int number = 1; number <= 10; ++number)
        addItem(ConfigComboBox, QString::number(number));
}

void GeneratorModel::show()
{
    form.isVisible = true;
    updateVisible();
}

void GeneratorModel::toggleFunctions()
{
    isUnfolded = !isUnfolded;
    updateVisible();
}

void GeneratorModel::updateVisible()
{
    for (int name = 0; name < WidgetCount; ++name) {
        const bool isOfFunctions = name >= FunctionComboBox && name <= CiNumberEditBoxFunctions;
        form.widgets[name].isVisible = form.isVisible && (isUnfolded || !isOfFunctions);
    }
}

void GeneratorModel::close()
{
    form.isVisible = false;
    updateVisible();
    m_isDoomed = m_isDoomed || m_deletesItself;
}

void GeneratorModel::endAction()
{
    if (m_isDoomed)
        exists = false;
}

void GeneratorModel::setText(WidgetName name, const QString& text)
{
    form[name].text = isMemo(name) ? plainTextOf(text) : text.left(longestText(name));
    if (name == DescriptionMemo)
        descriptionMemoExit();
}

void GeneratorModel::select(WidgetName box, int index)
{
    WidgetState& state = form[box];
    const int selected = index >= 0 && index < state.items.size() ? index : -1;
    if (selected == state.index)
        return;
    state.index = selected;
    state.text = state.items.value(selected);
    if (box == ModuleComboBox)
        updateComboBoxFPGA();
    if (box == FunctionComboBox)
        displayFunctionInfo(selected);
}

void GeneratorModel::addItem(WidgetName box, const QString& text)
{
    form[box].items << text;
    if (form[box].items.size() == 1)
        select(box, 0);
}

void GeneratorModel::clearItems(WidgetName box)
{
    form[box].items.clear();
    select(box, -1);
}

void GeneratorModel::tick()
{
    form[ModifyFunctionCheckBox].isChecked = !form[ModifyFunctionCheckBox].isChecked;
    modifyFunctionsCheckBoxClick();
}

void GeneratorModel::giveFocus(WidgetName name)
{
    if (form[name].isEnabled)
        form.focus = name;
}

GeneratorModel::Answer GeneratorModel::inform(const QString& text)
{
    return answer(QString::fromLatin1("box \"%1\" titled \"Pelk FCF Generator\" with OK, default "
                                      "none, parent none")
                      .arg(text));
}

GeneratorModel::Answer GeneratorModel::ask(const QString& text, bool hasDefault)
{
    return answer(QString::fromLatin1("box \"%1\" titled \"Pelk FCF Generator\" with Yes No, "
                                      "default %2, parent none")
                      .arg(text, QLatin1String(hasDefault ? "No" : "none")));
}

void GeneratorModel::setStatus(const QString& text, bool isPlain)
{
    form[StatusBar].text = text;
    form.statusIsPlain = isPlain;
}

void GeneratorModel::log(int kind, const QString& text)
{
    observe(QString::fromLatin1("log %1 \"Pelk FCF Generator: %2\"").arg(kind).arg(text));
}

void GeneratorModel::setModule(const QString& module)
{
    const int index = form[ModuleComboBox].items.indexOf(module);
    if (index >= 0)
        select(ModuleComboBox, index);
}

void GeneratorModel::setDevice(const QString& device)
{
    const int index = form[FpgaComboBox].items.indexOf(device);
    if (index >= 0)
        select(FpgaComboBox, index);
}

void GeneratorModel::setConfigNum(int number)
{
    const int index = form[ConfigComboBox].items.indexOf(QString::number(number));
    if (index >= 0)
        select(ConfigComboBox, index);
}

void GeneratorModel::setVersion(int major, int minor)
{
    setText(MajorVerEditBox, QString::number(major));
    setText(MinorVerEditBox, QString::number(minor));
}

void GeneratorModel::setBinFile(const QString& path)
{
    setText(txtInputFile, path);
    displayBinFileSizeInfo(path);
}

void GeneratorModel::displayBinFileSizeInfo(const QString& path)
{
    const qint64 size = disk.size(path);
    form.binFileSize = static_cast<qint32>(size);
    form[BinFileSize].text = QString::number(size) + QLatin1String("  Bytes");
    form.binPages = pages(form.binFileSize);
    form[BinFilePages].text = QString::number(form.binPages) + QLatin1String(" Pages");
    form.binBlocks = blocks(form.binFileSize);
    form[BinFileBlocks].text = QString::number(form.binBlocks) + QLatin1String(" blocks");
    form.totalSize = form.binFileSize + PageBytes;
    form.totalPages = pages(form.totalSize);
    form.totalBlocks = blocks(form.totalSize);
}

void GeneratorModel::updateComboBoxFPGA()
{
    clearItems(FpgaComboBox);
    for (const QString& device : devicesOf(form[ModuleComboBox].text))
        addItem(FpgaComboBox, device);
}

void GeneratorModel::clearScreen()
{
    for (WidgetName name : {txtInputFile, AuthoEditBox, CiNumEditBox, MajorVerEditBox,
                            MinorVerEditBox, DescriptionMemo})
        setText(name, QString());
    clearItems(FunctionComboBox);
    clearFunctionFields();
    setStatus(QString());
    for (WidgetName label :
         {BinFileSize, BinFilePages, BinFileBlocks, finalPages, finalBlocks, finalSize})
        form[label].text.clear();
}

void GeneratorModel::setEditable(bool editable)
{
    for (WidgetName name : EditorWidgets)
        form[name].isEnabled = editable;
}

void GeneratorModel::modifyFunctionsCheckBoxClick()
{
    setEditable(form[ModifyFunctionCheckBox].isChecked);
}

void GeneratorModel::clearFunctionFields()
{
    for (WidgetName name : EditorFields)
        setText(name, QString());
}

void GeneratorModel::addNewFuction()
{
    clearFunctionFields();
    setEditable(true);
}

void GeneratorModel::addNew()
{
    clearScreen();
    setEditable(true);
    form.functions.clear();
}

QString GeneratorModel::entry(int index) const { return form.functions.value(index); }

void GeneratorModel::displayFunctionInfo(int index)
{
    clearFunctionFields();
    if (index == -1)
        return;
    if (4 * index + 2 < form.functions.size()) {
        setText(EditFunctionName, entry(4 * index));
        setText(AuthorFunctions, entry(4 * index + 1));
        setText(DescriptionMemoFunctions, entry(4 * index + 2));
        setText(CiNumberEditBoxFunctions, entry(4 * index + 3));
    }
    form[btnRemove].isEnabled = !form[FunctionComboBox].items.isEmpty();
}

bool GeneratorModel::checkFunction()
{
    if (form[EditFunctionName].text.isEmpty()) {
        inform(
            QLatin1String("Please enter a Function Name before uploading Function field is empty"));
        giveFocus(EditFunctionName);
        return false;
    }
    for (WidgetName name : {CiNumberEditBoxFunctions, AuthorFunctions, DescriptionMemoFunctions}) {
        if (form[name].text.isEmpty())
            setText(name, DefaultText);
    }

    const int count = form[FunctionComboBox].items.size();
    form[btnRemove].isEnabled = count >= 1;
    const int match = form[FunctionComboBox].items.indexOf(form[EditFunctionName].text);
    if (match < 0)
        return false;
    if (ask(QLatin1String("The Function already exists, click Yes to override it and No to cancel"),
            true) == No)
        return true;
    // A list that a program has shortened gets the entries that it lacks.
    form.functions.resize(qMax(form.functions.size(), 4 * match + 4));
    for (int part = 0; part < 4; ++part)
        form.functions[4 * match + part] = form[EditorFields[part]].text;
    return true;
}

void GeneratorModel::addFunction()
{
    for (WidgetName name : EditorFields)
        form.functions << form[name].text;
}

void GeneratorModel::uploadFunctionButtonClick()
{
    if (checkFunction())
        return;
    addFunction();
    addItem(FunctionComboBox, form[EditFunctionName].text);
    clearFunctionFields();
    form[btnRemove].isEnabled = true;
}

void GeneratorModel::btnRemove_clicked()
{
    WidgetState& list = form[FunctionComboBox];
    if (list.items.isEmpty())
        return;
    const int index = list.index;
    setText(AuthoEditBox, QString::number(index));
    if (ask(QLatin1String("Are you sure you want to remove the function?, click Yes to remove it "
                          "and No to cancel"),
            false) != Yes)
        return;

    list.items.removeAt(index);
    // Qt goes to the item behind, and at the end to the one before.
    list.index = qMin(index, list.items.size() - 1);
    list.text = list.items.value(list.index);
    displayFunctionInfo(list.index);
    clearFunctionFields();
    if (4 * index + 4 <= form.functions.size())
        form.functions.remove(4 * index, 4);
}

void GeneratorModel::on_btnItsMe_clicked() { setText(AuthorFunctions, currentUserName); }

void GeneratorModel::descriptionMemoExit()
{
    WidgetState& memo = form[DescriptionMemo];
    if (memo.text.size() <= DescriptionLength)
        return;
    memo.text = memo.text.left(DescriptionLength);
    giveFocus(DescriptionMemo);
    inform(QLatin1String(
        "The Description can not be more 1000 characters long The description is too long"));
}
