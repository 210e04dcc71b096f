#include "host/app/LogPane.h"

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

    connect(Logger::instance(), &Logger::newPriorityMessage, this, &LogPane::addMessage);
}

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
