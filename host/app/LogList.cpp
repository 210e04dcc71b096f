#include "host/app/LogList.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QHeaderView>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTime>

using Qtilities::Logging::Logger;

namespace {

enum LogColumn { TimeColumn, KindColumn, MessageColumn };

enum LogRole {
    /// The image that a message links to.
    PathRole = Qt::UserRole,
    /// The kind of a message, as kindOf() has it.
    KindRole
};

struct LogListTexts {
    Q_DECLARE_TR_FUNCTIONS(LogList)
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

/// The kind that \p type is listed as.
Logger::MessageType kindOf(Logger::MessageType type)
{
    switch (type) {
    case Logger::Error:
    case Logger::Fatal:
        return Logger::Error;
    case Logger::Warning:
        return Logger::Warning;
    default:
        return Logger::Info;
    }
}

QString nameOf(Logger::MessageType type)
{
    switch (type) {
    case Logger::Error:
        return LogListTexts::tr("Error");
    case Logger::Fatal:
        return LogListTexts::tr("Fatal");
    case Logger::Warning:
        return LogListTexts::tr("Warning");
    default:
        return LogListTexts::tr("Info");
    }
}

/// Gives wrapped messages the height that they need in the width of their column: a tree asks for
/// the height of a row without saying how wide it is.
class WrappingDelegate : public QStyledItemDelegate {
public:
    explicit WrappingDelegate(QTreeView* view) : QStyledItemDelegate(view), m_view(view) {}

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyleOptionViewItem cell = option;
        if (m_view->wordWrap())
            cell.rect = QRect(0, 0, m_view->columnWidth(index.column()), 1);
        return QStyledItemDelegate::sizeHint(cell, index);
    }

private:
    const QTreeView* m_view;
};

} // namespace

LogList::LogList(QWidget* parent)
    : QTreeWidget(parent), m_shownKinds(Logger::Info | Logger::Warning | Logger::Error)
{
    setAccessibleName(tr("Log"));
    setHeaderLabels({tr("Time"), tr("Kind"), tr("Message")});
    setRootIsDecorated(false);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    header()->setSectionResizeMode(TimeColumn, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(KindColumn, QHeaderView::ResizeToContents);
    setItemDelegateForColumn(MessageColumn, new WrappingDelegate(this));
    setWrapped(false);

    // The heights of wrapped messages depend on the width.
    connect(header(), &QHeaderView::sectionResized, this, [this] {
        if (wordWrap())
            scheduleDelayedItemsLayout();
    });
    connect(this, &QTreeWidget::itemClicked, this, &LogList::follow);
    connect(this, &QTreeWidget::itemActivated, this, &LogList::follow);
    connect(Logger::instance(), &Logger::newPriorityMessage, this, &LogList::addMessage);
}

void LogList::removeAll()
{
    clear();
    emit changed();
}

void LogList::setShownKinds(int kinds)
{
    m_shownKinds = kinds;
    for (int row = 0; row < topLevelItemCount(); ++row)
        hideOrShow(topLevelItem(row));
    if (currentItem())
        scrollToItem(currentItem());
}

void LogList::hideOrShow(QTreeWidgetItem* item) const
{
    item->setHidden((item->data(KindColumn, KindRole).toInt() & m_shownKinds) == 0);
}

void LogList::setWrapped(bool wrapped)
{
    setWordWrap(wrapped);
    setUniformRowHeights(!wrapped);
    scheduleDelayedItemsLayout();
}

int LogList::errorCount() const
{
    int count = 0;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        if (topLevelItem(row)->data(KindColumn, KindRole) == Logger::Error)
            ++count;
    }
    return count;
}

QString LogList::text(Scope scope) const
{
    QString text;
    for (int row = 0; row < topLevelItemCount(); ++row) {
        const QTreeWidgetItem* const item = topLevelItem(row);
        if (item->isHidden() || (scope == Selected && !item->isSelected()))
            continue;
        text +=
            QStringList({item->text(TimeColumn), item->text(KindColumn), item->text(MessageColumn)})
                .join('\t') +
            '\n';
    }
    return text;
}

void LogList::copy() const
{
    const QString selected = text(Selected);
    QString copied = selected.isEmpty() ? text(Shown) : selected;
    // A line that is pasted does not bring a line feed along.
    copied.chop(1);
    QApplication::clipboard()->setText(copied);
}

QTreeWidgetItem* LogList::addMessage(Logger::MessageType type, const QString& text)
{
    if (topLevelItemCount() == MaximumMessages)
        delete topLevelItem(0);

    auto* const item =
        new QTreeWidgetItem(this, {QTime::currentTime().toString("HH:mm:ss"), nameOf(type), text});
    item->setIcon(KindColumn, style()->standardIcon(symbolOf(type)));
    item->setData(KindColumn, KindRole, kindOf(type));
    item->setToolTip(MessageColumn, text.toHtmlEscaped());
    hideOrShow(item);
    scrollToItem(item);
    emit changed();
    return item;
}

void LogList::addLink(Logger::MessageType type, const QString& text, const QString& path)
{
    QTreeWidgetItem* const item = addMessage(type, text);
    QFont underlined = font();
    underlined.setUnderline(true);
    item->setFont(MessageColumn, underlined);
    item->setForeground(MessageColumn, palette().link());
    item->setData(MessageColumn, PathRole, path);
}

void LogList::follow(const QTreeWidgetItem* item)
{
    const QString path = item->data(MessageColumn, PathRole).toString();
    if (!path.isEmpty())
        emit inspectionWanted(path);
}
