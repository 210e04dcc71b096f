// What is done while a box, a file dialog or a signal is open, by the model and in the window.

#include "generator/model/GeneratorRun.h"

#include "generator/model/GeneratorWindow.h"
#include "generator/PelkFcfGenerator.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

namespace {

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
        m_model.setModule(moduleOf(m_step.b));
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
        m_window->setModule(moduleOf(m_step.b));
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
