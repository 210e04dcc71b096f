#include "host/app/LogPane.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMetaEnum>
#include <QStandardItemModel>
#include <QStyle>
#include <QTime>

using Qtilities::Logging::Logger;

namespace {

/// Enough to look back over a day's work; older messages make room.
constexpr int MaximumMessages = 5000;

QStyle::StandardPixmap symbolOf(Logger::MessageType type)
{
    switch (type) {
    case Logger::Error:
    case Logger::Fatal:
        return QStyle::SP_MessageBoxCritical;
    case Logger::Warning:
        return QStyle::SP_MessageBoxWarning;
    default:
        return QStyle::SP_MessageBoxInformation;
    }
}

QString nameOf(Logger::MessageType type)
{
    const QMetaObject& meta = Logger::staticMetaObject;
    return meta.enumerator(meta.indexOfEnumerator("MessageType")).valueToKey(type);
}

} // namespace

LogPane::LogPane(QWidget* parent)
    : QTreeView(parent), m_messages(new QStandardItemModel(0, 3, this))
{
    setObjectName("LogPane");
    m_messages->setHorizontalHeaderLabels({tr("Time"), tr("Kind"), tr("Message")});
    setModel(m_messages);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAllColumnsShowFocus(true);
    setColumnWidth(0, 90);
    setColumnWidth(1, 100);
    header()->setStretchLastSection(true);

    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setAccessibleName(tr("Log"));
    addAction(tr("&Copy"), QKeySequence::Copy, &LogPane::copy);
    addAction(tr("C&lear Log"), QKeySequence(), &LogPane::clear);
    setContextMenuPolicy(Qt::ActionsContextMenu);

    connect(Logger::instance(), &Logger::newPriorityMessage, this, &LogPane::addMessage);
}

void LogPane::addAction(const QString& text, const QKeySequence& shortcut, void (LogPane::*slot)())
{
    auto* const action = new QAction(text, this);
    action->setShortcut(shortcut);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, slot);
    QWidget::addAction(action);
}

QString LogPane::text() const
{
    QStringList lines;
    for (int row = 0; row < m_messages->rowCount(); ++row) {
        if (selectionModel()->hasSelection() &&
            !selectionModel()->isRowSelected(row, QModelIndex()))
            continue;
        QStringList columns;
        for (int column = 0; column < m_messages->columnCount(); ++column)
            columns << m_messages->index(row, column).data().toString();
        lines << columns.join('\t');
    }
    return lines.join('\n');
}

void LogPane::copy() { QApplication::clipboard()->setText(text()); }

void LogPane::clear() { m_messages->removeRows(0, m_messages->rowCount()); }

void LogPane::addMessage(Logger::MessageType type, const QString& text)
{
    if (m_messages->rowCount() == MaximumMessages)
        m_messages->removeRow(0);

    auto* const time = new QStandardItem(QTime::currentTime().toString("HH:mm:ss"));
    auto* const kind = new QStandardItem(style()->standardIcon(symbolOf(type)), nameOf(type));
    auto* const message = new QStandardItem(text);
    message->setToolTip(text.toHtmlEscaped());
    m_messages->appendRow({time, kind, message});
    scrollToBottom();
}
