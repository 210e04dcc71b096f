#include "host/app/image/PageView.h"

#include "host/app/image/PageBytesModel.h"
#include "host/app/image/PageBytesView.h"

#include <QBoxLayout>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStyle>
#include <QTreeWidget>

namespace {

enum PageColumn { FieldColumn, OffsetColumn, LengthColumn, ValueColumn };

/// In characters.
constexpr int FieldsWidth = 30;

} // namespace

PageView::PageView(QWidget* parent)
    : QWidget(parent), m_model(new PageBytesModel(this)), m_bytes(new PageBytesView(m_model, this)),
      m_fields(new QTreeWidget(this)),
      m_title(new QLabel(tr("Select an image or a companion."), this)),
      m_splitter(new QSplitter(this))
{
    build();
    useFixedFont();

    connect(m_bytes, &PageBytesView::currentOffsetChanged, this, [this](int offset) {
        m_fields->setCurrentItem(m_fields->topLevelItem(m_model->contents().fieldAt(offset)));
    });
    connect(m_fields, &QTreeWidget::currentItemChanged, this, &PageView::markCurrentField);
}

void PageView::build()
{
    m_title->setObjectName("PageTitle");
    m_title->setMargin(style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing) / 2);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    // A long reason is cut off instead of making the window wider.
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    m_bytes->setObjectName("PageBytes");
    m_bytes->setAccessibleName(tr("Bytes of the header page"));

    m_fields->setObjectName("PageFields");
    m_fields->setAccessibleName(tr("Fields of the header page"));
    m_fields->setHeaderLabels({tr("Field"), tr("Offset"), tr("Bytes"), tr("Value")});
    m_fields->setRootIsDecorated(false);
    m_fields->setUniformRowHeights(true);
    m_fields->setAlternatingRowColors(true);
    m_fields->setAllColumnsShowFocus(true);
    m_fields->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    m_splitter->addWidget(m_bytes);
    m_splitter->addWidget(m_fields);
    m_splitter->setStretchFactor(1, 1);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_title);
    layout->addWidget(m_splitter, 1);
}

void PageView::inspect(const QString& path)
{
    m_model->setContents(PageContents::of(path));
    showTitle(path);
    showFields();
}

void PageView::showTitle(const QString& path)
{
    const PageContents& contents = m_model->contents();
    const QString name = QFileInfo(path).fileName();
    m_title->setText(contents.problem.isEmpty()
                         ? tr("%1: header page of %2 bytes").arg(name).arg(contents.bytes.size())
                         : tr("%1: NOT VALID, %2").arg(name, contents.problem));
    m_title->setToolTip(
        (QDir::toNativeSeparators(path) + '\n' + contents.problem).trimmed().toHtmlEscaped());
}

void PageView::showFields()
{
    const QTreeWidgetItem* const before = m_fields->currentItem();
    const QString name = before ? before->text(FieldColumn) : QString();
    m_fields->clear();

    QTreeWidgetItem* current = nullptr;
    for (const PageField& field : m_model->contents().fields) {
        auto* const item =
            new QTreeWidgetItem(m_fields, {field.name, QString::number(field.offset),
                                           QString::number(field.length), field.value});
        for (const int column : {OffsetColumn, LengthColumn})
            item->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
        item->setToolTip(ValueColumn, field.value.toHtmlEscaped());
        if (!field.problems.isEmpty()) {
            item->setIcon(FieldColumn, style()->standardIcon(QStyle::SP_MessageBoxWarning));
            item->setToolTip(FieldColumn, field.problems.join('\n').toHtmlEscaped());
            item->setData(FieldColumn, Qt::AccessibleDescriptionRole, field.problems.join('\n'));
        }
        if (!current || field.name == name)
            current = item;
    }
    m_fields->setCurrentItem(current);
}

void PageView::markCurrentField()
{
    const int row = m_fields->indexOfTopLevelItem(m_fields->currentItem());
    if (row < 0)
        return;

    const PageField& field = m_model->contents().fields.at(row);
    m_bytes->mark(field.offset, field.length);
    if (m_model->contents().fieldAt(m_bytes->currentOffset()) != row)
        m_bytes->setCurrentOffset(field.offset);
}

void PageView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        useFixedFont();
}

/// Uses the fixed font of the desktop in the size of the other texts.
void PageView::useFixedFont()
{
    // However wide the bytes are, the fields can be read.
    m_fields->setMinimumWidth(FieldsWidth * fontMetrics().averageCharWidth());
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setPointSizeF(QFontInfo(font()).pointSizeF());
    m_bytes->setFont(fixed);
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_splitter->setOrientation(width() > height() ? Qt::Horizontal : Qt::Vertical);
}
