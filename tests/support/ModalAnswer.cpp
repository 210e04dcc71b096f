#include "support/ModalAnswer.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

namespace {

constexpr int LookIntervalMs = 1;

QString textOf(const QWidget* dialog)
{
    const auto* const box = qobject_cast<const QMessageBox*>(dialog);
    return box ? box->text() : dialog->windowTitle();
}

void clickButton(QWidget* dialog, QDialogButtonBox::StandardButton button)
{
    auto* const buttons = dialog->findChild<QDialogButtonBox*>();
    QTest::mouseClick(buttons->button(button), Qt::LeftButton);
}

} // namespace

ModalAnswer::ModalAnswer(QObject* parent) : QObject(parent)
{
    connect(&m_timer, SIGNAL(timeout()), SLOT(lookForDialog()));
    m_timer.start(LookIntervalMs);
}

void ModalAnswer::click(QMessageBox::StandardButton button)
{
    m_answers.push_back([button](QWidget* dialog) {
        QTest::mouseClick(qobject_cast<QMessageBox*>(dialog)->button(button), Qt::LeftButton);
    });
}

void ModalAnswer::press(Qt::Key key)
{
    m_answers.push_back([key](QWidget* dialog) { QTest::keyClick(dialog, key); });
}

void ModalAnswer::choose(const QString& path)
{
    m_answers.push_back([path](QWidget* dialog) {
        // In one go: typed letter by letter, the dialog's completion would compete for the keys.
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText(path);
        const auto* const files = qobject_cast<const QFileDialog*>(dialog);
        const bool saves = files && files->acceptMode() == QFileDialog::AcceptSave;
        clickButton(dialog, saves ? QDialogButtonBox::Save : QDialogButtonBox::Open);
    });
}

void ModalAnswer::cancel()
{
    m_answers.push_back([](QWidget* dialog) { clickButton(dialog, QDialogButtonBox::Cancel); });
}

void ModalAnswer::leaveTo(std::function<void(QWidget*)> answer)
{
    m_answers.push_back(std::move(answer));
}

void ModalAnswer::inspect(std::function<void(QWidget*)> look) { m_inspect = std::move(look); }

void ModalAnswer::clear()
{
    m_answers.clear();
    m_texts.clear();
    m_unexpected.clear();
}

void ModalAnswer::lookForDialog()
{
    QWidget* const dialog = QApplication::activeModalWidget();
    if (!dialog || !dialog->isVisible() || dialog == m_answered)
        return;
    m_answered = dialog;
    m_texts << textOf(dialog);
    Answer look;
    look.swap(m_inspect);
    if (look)
        look(dialog);
    if (m_answers.empty()) {
        m_unexpected << textOf(dialog);
        dialog->close();
        return;
    }
    const Answer answer = m_answers.front();
    m_answers.pop_front();
    answer(dialog);
}

#include "moc_ModalAnswer.cpp"
