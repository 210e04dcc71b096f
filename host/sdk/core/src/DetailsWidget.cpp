#include <QtCreatorUtilities/DetailsWidget.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace QtCreatorUtilities {

DetailsWidget::DetailsWidget(QWidget* parent)
    : QWidget(parent), m_header(new QWidget(this)), m_arrow(new QToolButton(m_header)),
      m_summary(new QLabel(m_header)), m_layout(new QVBoxLayout(this)), m_body(nullptr),
      m_state(Collapsed)
{
    m_arrow->setObjectName(QLatin1String("arrow"));
    m_arrow->setAutoRaise(true);
    m_arrow->setCheckable(true);
    m_arrow->setToolTip(tr("Show or hide the details"));
    connect(m_arrow, SIGNAL(clicked(bool)), this, SLOT(setExpanded(bool)));

    m_summary->setObjectName(QLatin1String("summary"));

    m_header->setCursor(Qt::PointingHandCursor);
    m_header->installEventFilter(this);
    QHBoxLayout* const headerLayout = new QHBoxLayout(m_header);
    headerLayout->setContentsMargins(0, 0, 0, 0);
    headerLayout->addWidget(m_arrow);
    headerLayout->addWidget(m_summary, 1);

    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->addWidget(m_header);
    showState();
}

DetailsWidget::~DetailsWidget() {}

void DetailsWidget::setWidget(QWidget* widget)
{
    if (m_body == widget)
        return;
    delete m_body;
    m_body = widget;
    if (m_body)
        m_layout->addWidget(m_body);
    showState();
}

QWidget* DetailsWidget::widget() const { return m_body; }

void DetailsWidget::setSummaryText(const QString& text)
{
    m_summary->setText(text);
    m_arrow->setAccessibleName(text);
}

QString DetailsWidget::summaryText() const { return m_summary->text(); }

void DetailsWidget::setState(State state)
{
    m_state = state;
    showState();
}

DetailsWidget::State DetailsWidget::state() const { return m_state; }

bool DetailsWidget::eventFilter(QObject* watched, QEvent* event)
{
    // The whole line folds and unfolds, not the small arrow alone.
    if (watched == m_header && event->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        setExpanded(m_state == Collapsed);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void DetailsWidget::setExpanded(bool expanded) { setState(expanded ? Expanded : Collapsed); }

void DetailsWidget::showState()
{
    m_header->setVisible(m_state != NoSummary);
    m_arrow->setChecked(m_state == Expanded);
    m_arrow->setArrowType(m_state == Expanded ? Qt::DownArrow : Qt::RightArrow);
    if (m_body)
        m_body->setVisible(m_state != Collapsed);
}

} // namespace QtCreatorUtilities
