#include "host/app/archive/ArchiveContents.h"

#include "host/app/archive/ArchiveError.h"
#include "host/app/archive/ArchivePlan.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QTreeWidget>

namespace {

/// On a small screen; otherwise there is more room.
constexpr int LeastRows = 4;

} // namespace

ArchiveContents::ArchiveContents(QWidget* parent)
    : QWidget(parent), m_list(new QTreeWidget(this)), m_total(new QLabel(this))
{
    m_list->setObjectName("contentsList");
    m_list->setAccessibleName(tr("Contents of the archive"));
    m_list->setHeaderLabels({tr("Contents"), tr("Size")});
    m_list->header()->setStretchLastSection(false);
    m_list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_list->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setMinimumHeight(fontMetrics().lineSpacing() * LeastRows);
    m_list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_total->setObjectName("contentsTotal");
    m_total->setTextFormat(Qt::PlainText);
    m_total->setWordWrap(true);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list, 1);
    layout->addWidget(m_total);
}

void ArchiveContents::show(const ArchivePlan& plan)
{
    clear();
    qint64 total = 0;
    int files = 0;
    try {
        for (const ArchiveMember& member : plan.members()) {
            const qint64 size = member.kind == ArchiveMember::Text
                                    ? member.text.size()
                                    : QFileInfo(member.source).size();
            auto* const item = new QTreeWidgetItem(m_list, {member.name});
            if (member.kind == ArchiveMember::Folder)
                continue;
            item->setText(1, QLocale().formattedDataSize(size));
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
            total += size;
            ++files;
        }
        const QString count = files == 1 ? tr("1 file") : tr("%1 files").arg(files);
        m_total->setText(tr("%1, %2").arg(count, QLocale().formattedDataSize(total)));
    } catch (const ArchiveError& error) {
        m_total->setText(error.text());
    }
}

void ArchiveContents::clear()
{
    m_list->clear();
    m_total->clear();
}
