#include "generator/GeneratorDriver.h"

#include "fcf/FcfWriter.h"
#include "generator/FunctionEntries.h"
#include "support/TestFile.h"

#include <QFile>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

using Qtilities::Logging::Logger;

GeneratorDriver::GeneratorDriver()
{
    connect(Logger::instance(), &Logger::newPriorityMessage, this,
            [this](Logger::MessageType type, const QString& text) {
                m_log << QString("%1 %2").arg(type).arg(text);
            });
    reopen();
}

void GeneratorDriver::reopen()
{
    m_window = std::make_unique<PelkFcfGenerator>();
    m_window->setClock([] { return QDateTime(QDate(2026, 11, 21), QTime(9, 5, 7)); });
    m_window->show();
    QApplication::setActiveWindow(m_window.get());
    if (!QTest::qWaitForWindowActive(m_window.get()))
        qFatal("The window does not become active");
    QTest::mouseClick(find<QWidget>("widgetFunctionDetailsHolder")->findChild<QToolButton*>(),
                      Qt::LeftButton);
}

QString GeneratorDriver::text(const char* name) const
{
    auto* const widget = find<QWidget>(name);
    if (auto* const memo = qobject_cast<QTextEdit*>(widget))
        return memo->toPlainText();
    return widget->property(qobject_cast<QComboBox*>(widget) ? "currentText" : "text").toString();
}

QStringList GeneratorDriver::editor() const
{
    return {text("EditFunctionName"), text("AuthorFunctions"), text("DescriptionMemoFunctions"),
            text("CiNumberEditBoxFunctions")};
}

QStringList GeneratorDriver::items(const char* comboBox) const
{
    auto* const box = find<QComboBox>(comboBox);
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items << box->itemText(i);
    return items;
}

void GeneratorDriver::click(const char* button)
{
    QTest::mouseClick(find<QAbstractButton>(button), Qt::LeftButton);
    compareLists(button);
}

void GeneratorDriver::type(const char* field, const QString& text)
{
    auto* const widget = find<QWidget>(field);
    widget->setFocus();
    QTest::keyClick(widget, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(widget, Qt::Key_Delete);
    for (const QString& letters : text.split('\n')) {
        if (&letters != &text && !this->text(field).isEmpty())
            QTest::keyClick(widget, Qt::Key_Return);
        // As an input method would: keys alone cannot type every script.
        QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_unknown, letters, Qt::NoModifier);
    }
    compareLists(field);
}

void GeneratorDriver::select(const char* comboBox, int index)
{
    auto* const box = find<QComboBox>(comboBox);
    QTest::keyClick(box, Qt::Key_Home);
    for (int i = 0; i < index; ++i)
        QTest::keyClick(box, Qt::Key_Down);
    compareLists(comboBox);
}

void GeneratorDriver::chooseFromFileMenu(const QString& entry)
{
    QMenuBar* const bar = m_window->menuBar();
    QAction* const file = bar->actions().first();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(file).center());
    QMenu* const menu = file->menu();
    for (QAction* action : menu->actions()) {
        if (action->text() == entry)
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    }
    compareLists(entry);
}

void GeneratorDriver::upload(const QString& name, const QString& author, const QString& description,
                             const QString& ciNumber)
{
    type("EditFunctionName", name);
    type("AuthorFunctions", author);
    type("DescriptionMemoFunctions", description);
    type("CiNumberEditBoxFunctions", ciNumber);
    click("UploadFunctionButton");
}

void GeneratorDriver::fillIn(const QString& binaryPath)
{
    m_dialogs.choose(binaryPath);
    click("btnLoad");
    type("AuthoEditBox", "R. Vos");
    type("CiNumEditBox", "CI-0042");
}

void GeneratorDriver::compareLists(const QString& action)
{
    const QString fault = FunctionEntries::fault(m_window.get());
    if (m_comparesLists && m_listFault.isEmpty() && !fault.isEmpty())
        m_listFault = action + ": " + fault;
}

QString GeneratorDriver::binary(const QString& name, int bytes) const
{
    QByteArray content(bytes, Qt::Uninitialized);
    for (int i = 0; i < bytes; ++i)
        content[i] = static_cast<char>(i * 7 + i / 256);
    return write(name, content);
}

QString GeneratorDriver::write(const QString& name, const QByteArray& bytes) const
{
    return TestFile::write(path(name), bytes);
}

QString GeneratorDriver::writeHeader(const QString& name, const FcfHeader& header) const
{
    const QByteArray text = FcfWriter().compose(header);
    return write(name, text + FcfWriter().fillerFor(text.size()));
}

QByteArray GeneratorDriver::content(const QString& filePath) const
{
    return TestFile::readIfPossible(filePath);
}

bool GeneratorDriver::exists(const QString& filePath) const { return QFile::exists(filePath); }

#include "moc_GeneratorDriver.cpp"
