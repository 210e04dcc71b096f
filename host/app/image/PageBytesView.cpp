#include "host/app/image/PageBytesView.h"

#include "host/app/image/PageBytesModel.h"

#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {

constexpr int RowBytes = PageBytesModel::RowBytes;

/// Paints a cell without the margins of a style, which are wider than a character.
class ByteDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override
    {
        QStyleOptionViewItem cell = option;
        initStyleOption(&cell, index);
        const QString text = cell.text;
        cell.text.clear();
        const QStyle* const style = cell.widget->style();
        style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

        const bool isMarked = cell.state & QStyle::State_Selected;
        painter->setFont(cell.font);
        style->drawItemText(painter, cell.rect, Qt::AlignCenter, cell.palette, true, text,
                            isMarked ? QPalette::HighlightedText : QPalette::Text);
    }
};

} // namespace

PageBytesView::PageBytesView(PageBytesModel* model, QWidget* parent)
    : QTableView(parent), m_model(model)
{
    setModel(model);
    setItemDelegate(new ByteDelegate(this));
    // What is marked follows from the field of the current byte, and never from the mouse.
    setSelectionMode(NoSelection);
    setShowGrid(false);
    setCornerButtonEnabled(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    horizontalHeader()->hide();
    for (QHeaderView* header : {horizontalHeader(), verticalHeader()}) {
        header->setMinimumSectionSize(1);
        header->setSectionResizeMode(QHeaderView::Fixed);
        header->setSectionsClickable(false);
        header->setHighlightSections(false);
    }
    resizeCells();
    connect(model, &QAbstractItemModel::modelReset, this, &PageBytesView::resizeCells);
}

int PageBytesView::currentOffset() const
{
    return currentIndex().isValid() ? PageBytesModel::offsetOf(currentIndex()) : -1;
}

void PageBytesView::setCurrentOffset(int offset)
{
    const int last = static_cast<int>(m_model->contents().bytes.size()) - 1;
    setCurrentIndex(m_model->indexOf(qBound(0, offset, last)));
}

void PageBytesView::mark(int offset, int length)
{
    QItemSelection marked;
    for (int from = offset; from < offset + length;) {
        const int to = qMin(offset + length, (from / RowBytes + 1) * RowBytes) - 1;
        for (const auto half : {PageBytesModel::Numbers, PageBytesModel::Characters})
            marked.select(m_model->indexOf(from, half), m_model->indexOf(to, half));
        from = to + 1;
    }
    selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
}

QSize PageBytesView::sizeHint() const
{
    const int width = verticalHeader()->sizeHint().width() + horizontalHeader()->length() +
                      verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    return QSize(width, QTableView::sizeHint().height());
}

void PageBytesView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        resizeCells();
}

void PageBytesView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTableView::currentChanged(current, previous);
    if (current.isValid())
        emit currentOffsetChanged(currentOffset());
}

QModelIndex PageBytesView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (!currentIndex().isValid() || (action != MoveLeft && action != MoveRight))
        return QTableView::moveCursor(action, modifiers);

    const int offset = currentOffset() + (action == MoveRight ? 1 : -1);
    const auto half =
        currentIndex().column() < RowBytes ? PageBytesModel::Numbers : PageBytesModel::Characters;
    const bool isThere = offset >= 0 && offset < m_model->contents().bytes.size();
    return isThere ? m_model->indexOf(offset, half) : currentIndex();
}

void PageBytesView::resizeCells()
{
    const QFontMetrics metrics(font());
    const int width = metrics.horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < RowBytes; ++column) {
        setColumnWidth(column, 3 * width);
        setColumnWidth(column + RowBytes, width + 2);
    }
    verticalHeader()->setDefaultSectionSize(metrics.height() + 2);
    updateGeometry();
}
