#include "host/app/LogPane.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QHeaderView>
#include <QStyle>
#include <QTime>

using Qtilities::Logging::Logger;

namespace {

enum Column { TimeColumn, KindColumn, MessageColumn };

/// The image that a message links to.
constexpr int PathRole = Qt::UserRole;

struct LogPaneTexts {
    Q_DECLARE_TR_FUNCTIONS(LogPane)
};

/// Enough to look back over a day's work. Older messages are removed.
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
    switch (type) {
    case Logger::Error:
        return LogPaneTexts::tr("Error");
    case Logger::Fatal:
        return LogPaneTexts::tr("Fatal");
    case Logger::Warning:
        return LogPaneTexts::tr("Warning");
    default:
        return LogPaneTexts::tr("Info");
    }
}

} // namespace

LogPane::LogPane(QWidget* parent) : QTreeWidget(parent)
{
    setAccessibleName(tr("Log"));
    setHeaderLabels({tr("Time"), tr("Kind"), tr("Message")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    setContextMenuPolicy(Qt::ActionsContextMenu);
    QAction* const copyAction = addMenuAction(tr("&Copy"));
    copyAction->setShortcut(QKeySequence::Copy);
    copyAction->setShortcutContext(Qt::WidgetShortcut);
    connect(copyAction, &QAction::triggered, this, &LogPane::copy);
    connect(addMenuAction(tr("C&lear Log")), &QAction::triggered, this, &QTreeWidget::clear);

    connect(this, &QTreeWidget::itemClicked, this, &LogPane::follow);
    connect(this, &QTreeWidget::itemActivated, this, &LogPane::follow);
    connect(Logger::instance(), &Logger::newPriorityMessage, this, &LogPane::addMessage);
}

QAction* LogPane::addMenuAction(const QString& text)
{
    auto* const action = new QAction(text, this);
    addAction(action);
    return action;
}

void LogPane::copy()
{
    QStringList lines;
    const bool all = selectedItems().isEmpty();
    for (int row = 0; row < topLevelItemCount(); ++row) {
        const QTreeWidgetItem* const item = topLevelItem(row);
        if (all || item->isSelected())
            lines << QStringList({item->text(0), item->text(1), item->text(2)}).join('\t');
    }
    QApplication::clipboard()->setText(lines.join('\n'));
}

QTreeWidgetItem* LogPane::addMessage(Logger::MessageType type, const QString& text)
{
    if (topLevelItemCount() == MaximumMessages)
        delete topLevelItem(0);
    auto* const item =
        new QTreeWidgetItem(this, {QTime::currentTime().toString("HH:mm:ss"), nameOf(type), text});
    item->setIcon(1, style()->standardIcon(symbolOf(type)));
    item->setToolTip(2, text.toHtmlEscaped());
    scrollToItem(item);
    return item;
}

void LogPane::addLink(Logger::MessageType type, const QString& text, const QString& path)
{
    QTreeWidgetItem* const item = addMessage(type, text);
    QFont underlined = font();
    underlined.setUnderline(true);
    item->setFont(MessageColumn, underlined);
    item->setForeground(MessageColumn, palette().link());
    item->setData(MessageColumn, PathRole, path);
}

void LogPane::follow(const QTreeWidgetItem* item)
{
    const QString path = item->data(MessageColumn, PathRole).toString();
    if (!path.isEmpty())
        emit inspectionWanted(path);
}
