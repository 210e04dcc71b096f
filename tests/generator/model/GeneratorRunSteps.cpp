// Each step, by the model and in the window.

#include "generator/model/GeneratorRun.h"

#include "generator/model/GeneratorWindow.h"
#include "generator/PelkFcfGenerator.h"

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QtTest>

template <typename Rule, typename Operation, typename... Values>
void GeneratorRun::both(Rule rule, Operation operation, const Values&... values)
{
    (m_model.*rule)(values...);
    (m_window.data()->*operation)(values...);
}

void GeneratorRun::takeOfPerson()
{
    if (m_step.action <= FitPage)
        takeTyping();
    else if (m_step.action <= ClickItsMe)
        takeClick();
    else
        takeChoice();
}

void GeneratorRun::takeTyping()
{
    static const WidgetName Edits[] = {AuthoEditBox,
                                       CiNumEditBox,
                                       EditFunctionName,
                                       AuthorFunctions,
                                       DescriptionMemoFunctions,
                                       CiNumberEditBoxFunctions,
                                       DescriptionMemo,
                                       MajorVerEditBox,
                                       MinorVerEditBox};
    if (m_step.action == TypePath) {
        enter(txtInputFile, absolutePath(m_step.a));
        return;
    }
    if (m_step.action == FitPage) {
        fitPage(qAbs(m_step.a) % 17 - 8);
        return;
    }
    const WidgetName name = Edits[qAbs(m_step.a) % 9];
    enter(name, textOf(m_step.b, name != DescriptionMemo && name != DescriptionMemoFunctions));
}

void GeneratorRun::takeClick()
{
    switch (m_step.action) {
    case ClickLoad:
        press(btnLoad, &GeneratorModel::openFileDialog);
        break;
    case MenuLoad:
        trigger("actionLoad", &GeneratorModel::fileOpenAccept);
        break;
    case MenuClear:
        trigger("actionNew", &GeneratorModel::addNew);
        break;
    case ClickGenerate:
        press(GenerateButton, &GeneratorModel::generateButtonClick);
        break;
    case ClickCancel:
        press(btnCancel, &GeneratorModel::on_btnCancel_clicked);
        break;
    case ClickUpload:
        press(UploadFunctionButton, &GeneratorModel::uploadFunctionButtonClick);
        break;
    case ClickRemove:
        press(btnRemove, &GeneratorModel::btnRemove_clicked);
        break;
    case ClickClearParameters:
        press(AddNewFunction, &GeneratorModel::addNewFuction);
        break;
    case ClickModify:
        press(ModifyFunctionCheckBox, &GeneratorModel::tick);
        break;
    default:
        press(btnItsMe, &GeneratorModel::on_btnItsMe_clicked);
    }
}

void GeneratorRun::takeChoice()
{
    switch (m_step.action) {
    case ChooseModule:
        choose(ModuleComboBox, m_step.a);
        break;
    case ChooseDevice:
        choose(FpgaComboBox, m_step.a);
        break;
    case ConfigNumber:
        choose(ConfigComboBox, m_step.a);
        break;
    case ChooseFunction:
        choose(FunctionComboBox, m_step.a);
        break;
    case FoldFunctions:
        reachWindow();
        foldFunctions();
        break;
    case ShowAgain:
        showAgain();
        break;
    default:
        open(m_step.a % 2 != 0);
    }
}

void GeneratorRun::takeOfProgram()
{
    switch (m_step.action) {
    case SetBinFile:
    case SetTxtFile:
    case ReplaceByTxtFile:
    case ReadConfigFile:
    case DisplayConfigFileInfo:
    case DisplayBinFileSizeInfo:
    case SaveToFile:
        takeFileCall(m_step.b % 2 == 0 ? path(m_step.a) : absolutePath(m_step.a));
        break;
    case ClearScreen:
        both(&GeneratorModel::clearScreen, &PelkFcfGenerator::clearScreen);
        break;
    case UpdateConfigData:
        both(&GeneratorModel::updateConfigData, &PelkFcfGenerator::updateConfigData);
        break;
    case DisplayFunctionInfo:
        both(&GeneratorModel::displayFunctionInfo, &PelkFcfGenerator::displayFunctionInfo,
             qAbs(m_step.a) % 6 - 1);
        break;
    case CheckFunction:
        both(&GeneratorModel::checkFunction, &PelkFcfGenerator::checkFunction);
        break;
    case AddFunction:
        both(&GeneratorModel::addFunction, &PelkFcfGenerator::addFunction);
        break;
    case UpdateComboBoxFpga:
        both(&GeneratorModel::updateComboBoxFPGA, &PelkFcfGenerator::updateComboBoxFPGA);
        break;
    default:
        takeSetter();
    }
}

void GeneratorRun::takeSetter()
{
    const QString text = textOf(m_step.b, m_step.action != SetDescription);
    switch (m_step.action) {
    case SetModule:
        both(&GeneratorModel::setModule, &PelkFcfGenerator::setModule, moduleOf(m_step.a));
        break;
    case SetDevice:
        both(&GeneratorModel::setDevice, &PelkFcfGenerator::setDevice, deviceOf(m_step.a));
        break;
    case SetConfigNum:
        both(&GeneratorModel::setConfigNum, &PelkFcfGenerator::setConfigNum, m_step.a % 13);
        break;
    case SetVersion:
        both(&GeneratorModel::setVersion, &PelkFcfGenerator::setVersion, m_step.a, m_step.b);
        break;
    case SetAuthor:
        both(&GeneratorModel::setAuthor, &PelkFcfGenerator::setAuthor, text);
        break;
    case SetCINumber:
        both(&GeneratorModel::setCINumber, &PelkFcfGenerator::setCINumber, text);
        break;
    default:
        both(&GeneratorModel::setDescription, &PelkFcfGenerator::setDescription, text);
    }
}

void GeneratorRun::takeFileCall(const QString& file)
{
    // How large a folder is depends on the file system.
    if (m_model.disk.isFolder(file))
        return;

    switch (m_step.action) {
    case SetBinFile:
        both(&GeneratorModel::setBinFile, &PelkFcfGenerator::setBinFile, file);
        break;
    case SetTxtFile:
        both(&GeneratorModel::setTxtFile, &PelkFcfGenerator::setTxtFile, file);
        break;
    case ReplaceByTxtFile:
        both(&GeneratorModel::replaceByTxtFile, &PelkFcfGenerator::replaceByTxtFile, file);
        break;
    case ReadConfigFile:
        both(&GeneratorModel::readConfigFile, &PelkFcfGenerator::readConfigFile, file);
        break;
    case DisplayConfigFileInfo:
        both(&GeneratorModel::displayConfigFileInfo, &PelkFcfGenerator::displayConfigFileInfo,
             file);
        break;
    case DisplayBinFileSizeInfo:
        both(&GeneratorModel::displayBinFileSizeInfo, &PelkFcfGenerator::displayBinFileSizeInfo,
             file);
        break;
    default:
        both(&GeneratorModel::saveTofile, &PelkFcfGenerator::saveTofile, file);
    }
}

void GeneratorRun::takeOfDisk()
{
    const QString file = path(m_step.a);
    DiskModel& disk = m_model.disk;
    switch (m_step.action) {
    case MakeBinary:
        writeFile(file, binaryOf(m_step.b));
        break;
    case MakeCompanion:
        writeFile(file, companionOf(m_step.b));
        break;
    case CutFile: {
        QByteArray bytes = disk.bytes(file);
        int left = static_cast<int>(qint64(bytes.size()) * (qAbs(m_step.b) % 1000) / 1000);
        // Not inside a character, which has no promised form.
        while (left > 0 && (static_cast<uchar>(bytes.at(left)) & 0xC0) == 0x80)
            --left;
        if (disk.isFile(file))
            writeFile(file, bytes.left(left));
        break;
    }
    case MakeFolder:
        if (disk.add(file, DiskEntry(DiskEntry::Folder)))
            QDir().mkdir(file);
        break;
    case MakePipe:
        if (disk.add(file, DiskEntry(DiskEntry::Pipe)))
            WorkingFolder::makePipe(file);
        break;
    case MakeLink:
        // Only to a file, so that no link leads to another one.
        if (disk.isFile(path(m_step.b)) &&
            disk.entries.value(path(m_step.b)).kind == DiskEntry::File &&
            disk.add(file, DiskEntry(DiskEntry::Link, absolutePath(m_step.b).toUtf8())))
            QFile::link(absolutePath(m_step.b), file);
        break;
    default:
        if (disk.exists(file) && !disk.isFolder(file)) {
            disk.remove(file);
            QFile::remove(file);
        }
    }
}

void GeneratorRun::open(bool deletesItself)
{
    delete m_window;
    m_model.construct(deletesItself);
    m_window = new PelkFcfGenerator;
    m_window->setAttribute(Qt::WA_DeleteOnClose, deletesItself);
    m_window->setClock([this] { return momentOf(m_windowReadings++); });
    connect(m_window, SIGNAL(newFilesCreated(QStringList)), SLOT(noteFiles(QStringList)));
}

void GeneratorRun::showAgain()
{
    both(&GeneratorModel::show, &PelkFcfGenerator::show);
    leaveWidgets();
}

void GeneratorRun::leaveWidgets()
{
    m_model.form.focus = btnCancel;
    GeneratorWindow::focus(m_window);
}

void GeneratorRun::foldFunctions()
{
    m_model.toggleFunctions();
    GeneratorWindow(m_window).foldFunctions();
}

void GeneratorRun::reachWindow()
{
    if (!m_model.form.isVisible)
        showAgain();
}

bool GeneratorRun::reach(WidgetName name)
{
    reachWindow();
    if (!m_model.form[name].isVisible)
        foldFunctions();
    return m_model.form[name].isEnabled;
}

void GeneratorRun::press(WidgetName name, void (GeneratorModel::*rule)())
{
    if (!reach(name))
        return;
    m_model.form.focus = name;
    (m_model.*rule)();
    QTest::mouseClick(GeneratorWindow(m_window).widget(name), Qt::LeftButton);
}

void GeneratorRun::enter(WidgetName name, const QString& text)
{
    if (!reach(name))
        return;
    m_model.form.focus = name;
    m_model.setText(name, text);
    GeneratorWindow(m_window).enter(name, text);
}

void GeneratorRun::choose(WidgetName name, int row)
{
    if (!reach(name))
        return;
    const int count = m_model.form[name].items.size();
    const int index = qMin(qAbs(row) % 10, count - 1);
    if (index >= 0) {
        m_model.select(name, 0);
        m_model.select(name, index);
    }
    GeneratorWindow(m_window).choose(name, index);
}

void GeneratorRun::fitPage(int excess)
{
    if (!reach(CiNumEditBox))
        return;
    const QString image = QString(m_model.form[txtInputFile].text)
                              .replace(QLatin1String(".bin"), QLatin1String(".fcf"));
    m_model.setText(CiNumEditBox, QString());
    const int missing =
        2112 + excess - m_model.headerBytes(QFileInfo(image).fileName(), momentOf(m_modelReadings));
    enter(CiNumEditBox, QString(qBound(1, missing, 2200), QLatin1Char('c')));
}

void GeneratorRun::trigger(const char* action, void (GeneratorModel::*rule)())
{
    reachWindow();
    (m_model.*rule)();
    m_window->findChild<QAction*>(QLatin1String(action))->trigger();
}

QString GeneratorRun::path(int number) const { return m_model.disk.key(pathOf(number)); }

QString GeneratorRun::absolutePath(int number) const
{
    const QString relative = pathOf(number);
    return relative.trimmed().isEmpty() ? relative
                                        : m_model.disk.root + QLatin1Char('/') + path(number);
}

void GeneratorRun::writeFile(const QString& file, const QByteArray& bytes)
{
    if (m_model.disk.replace(file, bytes))
        WorkingFolder::write(file, bytes);
}
