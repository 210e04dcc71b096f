#include "generator/model/GeneratorRun.h"

#include "generator/model/GeneratorWindow.h"
#include "generator/model/Watchdog.h"
#include "generator/PelkFcfGenerator.h"

#include <OrvanticCore/DesignManager.h>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <algorithm>

using OrvanticCore::DesignManager;

namespace {

const char* const Modules[] = {"DFE", "DFE2", "GPM", "dfe", ""};
const char* const Devices[] = {"Interface_FPGA",    "Processing_FPGA_1",   "Processing_FPGA_2",
                               "Processing_FPGA_3", "Clock_Master_Device", "Processing_FPGA",
                               "interface_fpga"};

template <int Count>
QString oneOf(const char* const (&texts)[Count], int number)
{
    return QString::fromLatin1(texts[qAbs(number) % Count]);
}

/// The field that is edited while a box is open.
WidgetName fieldOf(Reaction::Deed deed)
{
    static const WidgetName Fields[] = {AuthoEditBox,
                                        EditFunctionName,
                                        AuthorFunctions,
                                        DescriptionMemoFunctions,
                                        CiNumberEditBoxFunctions,
                                        txtInputFile,
                                        MajorVerEditBox};
    return Fields[deed - Reaction::EditAuthor];
}

/// What is put into it, another text each time.
QString sideText(Reaction::Deed deed, int number)
{
    if (deed == Reaction::EditMajorVersion)
        return QString::number(700 + number);
    return QString::fromLatin1(deed == Reaction::EditInputFile ? "side%1.bin" : "side%1")
        .arg(number);
}

} // namespace

QDateTime momentOf(int number)
{
    // Days that some locales write longer or shorter than the day behind them.
    static const int Days[][2] = {{9, 10}, {31, 10}, {29, 9}, {31, 12}};
    const int pair = number / 2;
    const int* const day = Days[pair % 4];
    const QDate date(2026 + pair / 4, day[1], day[0]);
    // Two of three builds go on past midnight.
    const QTime time = pair % 3 == 2 ? QTime(12, 34, pair % 60) : QTime(23, 59, 58);
    return QDateTime(date, time).addSecs(number % 2 * 3);
}

GeneratorRun::GeneratorRun()
    : m_step(), m_modelReactions(0), m_windowReactions(0), m_modelReadings(0), m_windowReadings(0)
{
    m_model.clock = [this] { return momentOf(m_modelReadings++); };
    m_model.observe = [this](const QString& event) { expect(event); };
    m_model.answer = [this](const QString& box) { return answerBox(box); };
    m_model.choose = [this](const QString& dialog) { return chooseFile(dialog); };
    m_model.currentUserName = DesignManager::instance()->currentUserName();
    qApp->installEventFilter(this);
    connect(Logger::instance(), SIGNAL(newPriorityMessage(Logger::MessageType, QString)),
            SLOT(noteMessage(Logger::MessageType, QString)));
}

GeneratorRun::~GeneratorRun() { qApp->removeEventFilter(this); }

QString GeneratorRun::play(const QVector<Step>& steps)
{
    begin();
    QString found;
    for (int i = 0; i < steps.size() && found.isEmpty(); ++i) {
        const Watchdog watchdog(steps, i);
        found = take(steps.at(i));
        if (!found.isEmpty())
            found = QString::fromLatin1("step %1 ").arg(i + 1) +
                    QString::fromLatin1(printed(steps.at(i)).trimmed()) + QLatin1Char('\n') + found;
    }
    end();
    return found;
}

void GeneratorRun::begin()
{
    m_model.disk = DiskModel();
    m_model.disk.root = WorkingFolder::make();
    QDir::setCurrent(m_model.disk.root);
    m_model.exists = false;
    m_model.form = GeneratorState();
    m_modelReadings = 0;
    m_windowReadings = 0;
    makeInitialFiles();
}

void GeneratorRun::end()
{
    delete m_window;
    QDir::setCurrent(QDir::rootPath());
    WorkingFolder::remove(m_model.disk.root);
}

void GeneratorRun::makeInitialFiles()
{
    for (const char* folder : {"a.bin.d", "a.fcf.d", "a.txt.d", "b.bin.d"}) {
        m_model.disk.add(QLatin1String(folder), DiskEntry(DiskEntry::Folder));
        QDir().mkdir(QLatin1String(folder));
    }
    for (int number = 0; number < 11; ++number)
        writeFile(path(number), binaryOf(BinaryKinds * (number + 3) - 2));
    writeFile(QLatin1String("old.txt"), companionOf(32));
    writeFile(QLatin1String("older.txt.fcf"), companionOf(55));
}

QString GeneratorRun::take(const Step& step)
{
    m_step = step;
    m_expected.clear();
    m_seen.clear();
    m_choices.clear();
    m_modelReactions = 0;
    m_windowReactions = 0;

    if (step.action >= MakeBinary) {
        takeOfDisk();
    } else {
        if (!m_model.exists && step.action != NewWindow) {
            open(false);
            showAgain();
            foldFunctions();
        }
        if (m_model.exists && m_model.form.isVisible)
            leaveWidgets();
        if (step.action < SetModule)
            takeOfPerson();
        else
            takeOfProgram();
    }
    m_model.endAction();
    deletePosted();
    expect(QLatin1String("afterwards"));
    see(QLatin1String("afterwards"));
    countBranches();
    return difference();
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
        m_model.clearScreen();
        m_window->clearScreen();
        break;
    case UpdateConfigData:
        m_model.updateConfigData();
        m_window->updateConfigData();
        break;
    case DisplayFunctionInfo:
        m_model.displayFunctionInfo(qAbs(m_step.a) % 6 - 1);
        m_window->displayFunctionInfo(qAbs(m_step.a) % 6 - 1);
        break;
    case CheckFunction:
        m_model.checkFunction();
        m_window->checkFunction();
        break;
    case AddFunction:
        m_model.addFunction();
        m_window->addFunction();
        break;
    case UpdateComboBoxFpga:
        m_model.updateComboBoxFPGA();
        m_window->updateComboBoxFPGA();
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
        m_model.setModule(oneOf(Modules, m_step.a));
        m_window->setModule(oneOf(Modules, m_step.a));
        break;
    case SetDevice:
        m_model.setDevice(oneOf(Devices, m_step.a));
        m_window->setDevice(oneOf(Devices, m_step.a));
        break;
    case SetConfigNum:
        m_model.setConfigNum(m_step.a % 13);
        m_window->setConfigNum(m_step.a % 13);
        break;
    case SetVersion:
        m_model.setVersion(m_step.a, m_step.b);
        m_window->setVersion(m_step.a, m_step.b);
        break;
    case SetAuthor:
        m_model.setAuthor(text);
        m_window->setAuthor(text);
        break;
    case SetCINumber:
        m_model.setCINumber(text);
        m_window->setCINumber(text);
        break;
    default:
        m_model.setDescription(text);
        m_window->setDescription(text);
    }
}

void GeneratorRun::takeFileCall(const QString& file)
{
    // How large a folder is depends on the file system.
    if (m_model.disk.isFolder(file))
        return;

    switch (m_step.action) {
    case SetBinFile:
        m_model.setBinFile(file);
        m_window->setBinFile(file);
        break;
    case SetTxtFile:
        m_model.setTxtFile(file);
        m_window->setTxtFile(file);
        break;
    case ReplaceByTxtFile:
        m_model.replaceByTxtFile(file);
        m_window->replaceByTxtFile(file);
        break;
    case ReadConfigFile:
        m_model.readConfigFile(file);
        m_window->readConfigFile(file);
        break;
    case DisplayConfigFileInfo:
        m_model.displayConfigFileInfo(file);
        m_window->displayConfigFileInfo(file);
        break;
    case DisplayBinFileSizeInfo:
        m_model.displayBinFileSizeInfo(file);
        m_window->displayBinFileSizeInfo(file);
        break;
    default:
        m_model.saveTofile(file);
        m_window->saveTofile(file);
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

void GeneratorRun::expect(const QString& event)
{
    Observation observation;
    observation.event = event;
    if (m_model.exists)
        observation.state = m_model.form;
    if (!m_model.form.isVisible)
        observation.state.focus = NoWidget;
    for (auto entry = m_model.disk.entries.constBegin(); entry != m_model.disk.entries.constEnd();
         ++entry)
        observation.files.insert(entry.key(), WorkingFolder::stateOf(entry.value()));
    m_expected << observation;
    if (event.startsWith(QLatin1String("signal")))
        reactOnModel(Reaction(m_step.plan, m_modelReactions++).deed);
}

GeneratorModel::Answer GeneratorRun::answerBox(const QString& box)
{
    expect(box);
    const Reaction reaction(m_step.plan, m_modelReactions++);
    reactOnModel(reaction.deed);
    const bool hasDefault = !box.contains(QLatin1String("default none"));
    return reaction.answer == Reaction::ClickYes ||
                   (reaction.answer == Reaction::PressEnter && !hasDefault)
               ? GeneratorModel::Yes
               : GeneratorModel::No;
}

QString GeneratorRun::chooseFile(const QString& dialog)
{
    expect(dialog);
    const Reaction reaction(m_step.plan, m_modelReactions++);
    reactOnModel(reaction.deed);
    const bool isCancelled =
        reaction.answer == Reaction::ClickNo || reaction.answer == Reaction::PressEscape;
    m_choices << (isCancelled || !m_model.disk.isFile(path(m_step.a)) ? QString()
                                                                      : absolutePath(m_step.a));
    return m_choices.last();
}

void GeneratorRun::reactOnModel(Reaction::Deed deed)
{
    const int number = m_modelReactions;
    const QString binary = m_model.form[txtInputFile].text;
    switch (deed) {
    case Reaction::Nothing:
    case Reaction::DeedCount:
        break;
    case Reaction::EditAuthor:
    case Reaction::RenameFunction:
    case Reaction::EditFunctionAuthor:
    case Reaction::EditFunctionDescription:
    case Reaction::EditFunctionNumber:
    case Reaction::EditInputFile:
    case Reaction::EditMajorVersion:
        m_model.setText(fieldOf(deed), sideText(deed, number));
        break;
    case Reaction::ChangeSlot:
        m_model.setConfigNum(1 + m_step.b % 10);
        break;
    case Reaction::ChangeModule:
        m_model.setModule(oneOf(Modules, m_step.b));
        break;
    case Reaction::CloseWindow:
        m_model.close();
        break;
    case Reaction::DeleteWindow:
        m_model.deleteLater();
        break;
    case Reaction::RemoveBinary:
        if (m_model.disk.isFile(binary))
            m_model.disk.remove(binary);
        break;
    case Reaction::BlockCompanion:
        m_model.disk.add(QString(binary).replace(QLatin1String(".bin"), QLatin1String(".txt")),
                         DiskEntry(DiskEntry::Folder));
        break;
    case Reaction::ReplaceBinary:
        m_model.disk.replace(binary, binaryOf(m_step.b));
        break;
    }
}

void GeneratorRun::reactOnWindow(Reaction::Deed deed)
{
    const int number = m_windowReactions;
    GeneratorWindow window(m_window);
    const QString binary = window.lineEdit(txtInputFile)->text();
    // By the disk as it was when the model did the same.
    const bool isFile = QFileInfo(binary).isFile();
    switch (deed) {
    case Reaction::Nothing:
    case Reaction::DeedCount:
        break;
    case Reaction::EditAuthor:
    case Reaction::RenameFunction:
    case Reaction::EditFunctionAuthor:
    case Reaction::EditFunctionDescription:
    case Reaction::EditFunctionNumber:
    case Reaction::EditInputFile:
    case Reaction::EditMajorVersion:
        window.setText(fieldOf(deed), sideText(deed, number));
        break;
    case Reaction::ChangeSlot:
        m_window->setConfigNum(1 + m_step.b % 10);
        break;
    case Reaction::ChangeModule:
        m_window->setModule(oneOf(Modules, m_step.b));
        break;
    case Reaction::CloseWindow:
        m_window->close();
        break;
    case Reaction::DeleteWindow:
        m_window->deleteLater();
        break;
    case Reaction::RemoveBinary:
        if (isFile)
            QFile::remove(binary);
        break;
    case Reaction::BlockCompanion: {
        const QString companion =
            QString(binary).replace(QLatin1String(".bin"), QLatin1String(".txt"));
        if (!companion.isEmpty())
            QDir().mkdir(companion);
        break;
    }
    case Reaction::ReplaceBinary:
        if (isFile || (!binary.isEmpty() && !QFileInfo(binary).exists() &&
                       QFileInfo(QFileInfo(binary).path()).isDir()))
            WorkingFolder::write(binary, binaryOf(m_step.b));
        break;
    }
    deletePosted();
}

void GeneratorRun::see(const QString& event)
{
    Observation observation;
    observation.event = event;
    if (m_window)
        observation.state = GeneratorWindow(m_window).state();
    observation.files = WorkingFolder::files(m_model.disk.root);
    m_seen << observation;
}

bool GeneratorRun::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && qobject_cast<QDialog*>(watched) && watched != m_dialog) {
        m_dialog = static_cast<QDialog*>(watched);
        QTimer::singleShot(0, this, SLOT(answerDialog()));
    }
    return QObject::eventFilter(watched, event);
}

void GeneratorRun::answerDialog()
{
    if (!m_dialog)
        return;
    see(GeneratorWindow::description(m_dialog, m_window));
    const Reaction reaction(m_step.plan, m_windowReactions++);
    reactOnWindow(reaction.deed);
    if (!m_dialog)
        return;
    QFileDialog* const files = qobject_cast<QFileDialog*>(m_dialog.data());
    if (!files) {
        answerBox(reaction.answer);
        return;
    }
    const QString choice = m_choices.isEmpty() ? QString() : m_choices.takeFirst();
    if (!choice.isEmpty()) {
        // What the dialog has selected itself would be taken before what is typed.
        for (QAbstractItemView* view : files->findChildren<QAbstractItemView*>())
            view->clearSelection();
        files->findChild<QLineEdit*>(QLatin1String("fileNameEdit"))->setText(choice);
    }
    // Its button is disabled until Qt has read the folder, some time later.
    QMetaObject::invokeMethod(files, choice.isEmpty() ? "reject" : "accept");
}

void GeneratorRun::answerBox(Reaction::Answer answer)
{
    QMessageBox* const box = qobject_cast<QMessageBox*>(m_dialog.data());
    if (!box)
        return;
    const bool isQuestion = box->button(QMessageBox::Yes);
    if (answer == Reaction::PressEscape) {
        QTest::keyClick(box, Qt::Key_Escape);
    } else if (answer == Reaction::PressEnter && (!isQuestion || box->defaultButton())) {
        QTest::keyClick(box, Qt::Key_Return);
    } else {
        const bool isNo = answer == Reaction::ClickNo;
        QTest::mouseClick(
            box->button(isQuestion ? (isNo ? QMessageBox::No : QMessageBox::Yes) : QMessageBox::Ok),
            Qt::LeftButton);
    }
}

void GeneratorRun::noteFiles(const QStringList& files)
{
    see(QString::fromLatin1("signal newFilesCreated(%1)").arg(files.join(QLatin1String(", "))));
    reactOnWindow(Reaction(m_step.plan, m_windowReactions++).deed);
}

void GeneratorRun::noteMessage(Logger::MessageType type, const QString& text)
{
    see(QString::fromLatin1("log %1 \"%2\"").arg(type).arg(text));
}

void GeneratorRun::deletePosted()
{
    // As the event loop does that is running: of this window alone, or of all that is left.
    for (int round = 0; round < 3; ++round)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
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
    m_model.show();
    m_window->show();
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

QString GeneratorRun::difference()
{
    for (int i = 0; i < qMax(m_expected.size(), m_seen.size()); ++i) {
        const Observation expected = i < m_expected.size() ? m_expected.at(i) : Observation();
        Observation seen = i < m_seen.size() ? m_seen.at(i) : Observation();
        // Where a dialog starts without a file is not promised.
        if (expected.event.endsWith(QLatin1String(" at ?")))
            seen.event = seen.event.section(QLatin1String(" at "), 0, -2) + QLatin1String(" at ?");
        const QString moment = QString::fromLatin1("at %1\n").arg(expected.event);
        if (expected.event != seen.event)
            return QString::fromLatin1("expected %1\n   found %2\n")
                .arg(expected.event, seen.event);
        const QString files = WorkingFolder::difference(expected.files, seen.files);
        if (!(expected.state == seen.state)) {
            QString text = moment;
            const QStringList left = expected.state.lines();
            const QStringList right = seen.state.lines();
            for (int line = 0; line < left.size(); ++line) {
                if (left.at(line) != right.at(line))
                    text += QString::fromLatin1("expected %1\n   found %2\n")
                                .arg(left.at(line), right.at(line));
            }
            return text + files;
        }
        if (!files.isEmpty())
            return moment + files;
    }
    return m_model.exists == !m_window.isNull() ? QString()
                                                : QString::fromLatin1("the window lives or not\n");
}

void GeneratorRun::countBranches()
{
    for (const Observation& observation : m_expected) {
        QString event = observation.event;
        if (event == QLatin1String("afterwards")) {
            // By its status line.
            event = m_model.exists ? m_model.form[StatusBar].text : QString::fromLatin1("gone");
        }
        // Without what differs between runs.
        event.remove(m_model.disk.root + QLatin1Char('/'));
        for (QChar& letter : event) {
            if (letter.isDigit())
                letter = QLatin1Char('#');
        }
        m_reached[event] += 1;
    }
}
