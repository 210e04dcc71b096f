#include "host/app/LogPane.h"

#include "host/app/common/FileReplacement.h"
#include "host/app/common/HostError.h"
#include "host/app/common/PlainMessageBox.h"
#include "host/app/LogList.h"

#include <QAction>
#include <QBoxLayout>
#include <QDir>
#include <QFileDialog>
#include <QToolButton>

using Qtilities::Logging::Logger;

LogPane::LogPane(QWidget* parent) : QWidget(parent), m_buttons(new QHBoxLayout)
{
    addKind("ShowInformationButton", Logger::Info, tr("&Information"), tr("Show information"));
    addKind("ShowWarningsButton", Logger::Warning, tr("&Warnings"), tr("Show warnings"));
    addKind("ShowErrorsButton", Logger::Error, tr("&Errors"), tr("Show errors"));
    m_buttons->addStretch();
    const QAction* const wrap =
        addChoice("WrapLogButton", tr("W&rap"), tr("Show long messages on several lines"));
    QAction* const save = addAction(tr("&Save..."), tr("Save the messages that are shown"));
    addButton("SaveLogButton", save);
    QAction* const copy = addAction(tr("&Copy"), QString());
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    const QAction* const clear = addAction(tr("C&lear Log"), QString());

    // Behind the buttons in the order of the key Tab, too.
    m_list = new LogList(this);
    m_list->setObjectName("logMessages");
    m_list->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_list->addActions(actions());
    setFocusProxy(m_list);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(m_buttons);
    layout->addWidget(m_list);

    connect(wrap, &QAction::toggled, m_list, &LogList::setWrapped);
    connect(save, &QAction::triggered, this, &LogPane::save);
    connect(copy, &QAction::triggered, m_list, &LogList::copy);
    connect(clear, &QAction::triggered, m_list, &LogList::removeAll);
    for (const QAction* kind : m_kinds)
        connect(kind, &QAction::toggled, this, &LogPane::showChosenKinds);
    connect(m_list, &LogList::changed, this,
            [this] { emit errorCountChanged(m_list->errorCount()); });
}

QAction* LogPane::addAction(const QString& text, const QString& toolTip)
{
    auto* const action = new QAction(text, this);
    action->setToolTip(toolTip);
    QWidget::addAction(action);
    return action;
}

QAction* LogPane::addChoice(const char* button, const QString& text, const QString& toolTip)
{
    QAction* const action = addAction(text, toolTip);
    action->setCheckable(true);
    addButton(button, action);
    return action;
}

void LogPane::addButton(const char* name, QAction* action)
{
    auto* const button = new QToolButton(this);
    button->setObjectName(name);
    button->setDefaultAction(action);
    button->setAutoRaise(true);
    m_buttons->addWidget(button);
}

void LogPane::addKind(const char* button, Logger::MessageType kind, const QString& text,
                      const QString& toolTip)
{
    QAction* const action = addChoice(button, text, toolTip);
    action->setData(kind);
    action->setChecked(true);
    m_kinds << action;
}

void LogPane::showChosenKinds()
{
    int kinds = 0;
    for (const QAction* action : m_kinds) {
        if (action->isChecked())
            kinds |= action->data().toInt();
    }
    m_list->setShownKinds(kinds);
}

void LogPane::showErrors()
{
    for (QAction* action : m_kinds)
        action->setChecked(action->data() == Logger::Error);
    for (int row = m_list->topLevelItemCount() - 1; row >= 0; --row) {
        if (!m_list->topLevelItem(row)->isHidden()) {
            m_list->setCurrentItem(m_list->topLevelItem(row));
            break;
        }
    }
    m_list->setFocus();
}

void LogPane::save()
{
    const QString title = tr("Save Log");
    const QString path = QFileDialog::getSaveFileName(
        this, title, QDir::home().filePath("pelk-host-log.txt"), tr("Text files (*.txt)"));
    if (path.isEmpty())
        return;

    try {
        FileReplacement file(path);
        file.write(m_list->text(LogList::Shown).toUtf8());
        file.sync();
        file.commit();
    } catch (const HostError& error) {
        PlainMessageBox(QMessageBox::Warning, title,
                        tr("The log is not saved.\n%1").arg(error.text()), QMessageBox::Ok,
                        QMessageBox::Ok, this)
            .exec();
    }
}
