#include "host/app/image/RemakeDialog.h"

#include "host/app/common/HostError.h"
#include "host/app/common/WindowPlace.h"
#include "ui_RemakeDialog.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QPushButton>
#include <QStyle>
#include <QTimer>

namespace {

enum Column { ImageColumn, ReasonColumn, ResultColumn };

/// All lines of a result, of which the list shows the first one.
constexpr int LinesRole = Qt::UserRole;

} // namespace

RemakeDialog::RemakeDialog(const QList<Item>& items, QWidget* parent)
    : QDialog(parent), m_ui(new Ui::RemakeDialog), m_items(items)
{
    m_ui->setupUi(this);
    m_startButton = m_ui->buttonBox->addButton(tr("&Make Again"), QDialogButtonBox::AcceptRole);
    m_startButton->setObjectName("RemakeStartButton");
    m_startButton->setDefault(true);

    m_ui->RemakeSummary->setText(items.count() == 1
                                     ? tr("1 image is to be made again.")
                                     : tr("%1 images are to be made again.").arg(items.count()));
    m_ui->RemakeProgress->setMaximum(static_cast<int>(items.count()));
    m_ui->RemakeList->setHeaderLabels({tr("Image"), tr("Why"), tr("Result")});
    for (const Item& item : items) {
        auto* const row = new QTreeWidgetItem(
            m_ui->RemakeList, {QFileInfo(item.remake.files.image).fileName(), item.reason});
        row->setToolTip(ImageColumn,
                        QDir::toNativeSeparators(item.remake.files.image).toHtmlEscaped());
        row->setToolTip(ReasonColumn, item.reason.toHtmlEscaped());
    }
    QHeaderView* const header = m_ui->RemakeList->header();
    header->setSectionResizeMode(QHeaderView::Stretch);
    header->setSectionResizeMode(ImageColumn, QHeaderView::ResizeToContents);

    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &RemakeDialog::start);
    connect(m_ui->buttonBox, &QDialogButtonBox::rejected, this, &RemakeDialog::reject);
    connect(m_ui->CopyRemakeReportButton, &QPushButton::clicked, this, &RemakeDialog::copyReport);
    resizeToScreen(this, QSize(960, 360));
}

RemakeDialog::~RemakeDialog() = default;

void RemakeDialog::reject()
{
    m_isCancelled = true;
    if (!m_isRunning)
        QDialog::reject();
}

void RemakeDialog::start()
{
    m_isRunning = true;
    m_startButton->setEnabled(false);
    makeNext();
}

void RemakeDialog::makeNext()
{
    if (m_isCancelled || m_next == m_items.count()) {
        finish();
        return;
    }

    QTreeWidgetItem* const row = m_ui->RemakeList->topLevelItem(m_next);
    const Remake& remake = m_items.at(m_next).remake;
    try {
        const QStringList warnings = remake.run();
        const QString target = remake.version + ", " + remake.target.text();
        showResult(row, QStringList(tr("Made for %1").arg(target)) + warnings,
                   warnings.isEmpty() ? QStyle::SP_DialogApplyButton
                                      : QStyle::SP_MessageBoxWarning);
        m_made << remake;
    } catch (const HostError& error) {
        showResult(row, {error.text().replace('\n', "; ")}, QStyle::SP_MessageBoxCritical);
    }

    m_ui->RemakeProgress->setValue(++m_next);
    // The events in between paint the result, and let the user cancel.
    QTimer::singleShot(0, this, &RemakeDialog::makeNext);
}

void RemakeDialog::finish()
{
    m_isRunning = false;
    for (int row = m_next; row < m_items.count(); ++row)
        showResult(m_ui->RemakeList->topLevelItem(row), {tr("Not made: cancelled")},
                   QStyle::SP_MessageBoxInformation);

    const auto failed = m_next - m_made.count();
    m_ui->RemakeSummary->setText(tr("%1 of %2 images made again, %3 failed.")
                                     .arg(QString::number(m_made.count()),
                                          QString::number(m_items.count()),
                                          QString::number(failed)));
    m_ui->CopyRemakeReportButton->setEnabled(true);
    delete m_startButton;
    m_ui->buttonBox->setStandardButtons(QDialogButtonBox::Close);
    m_ui->buttonBox->button(QDialogButtonBox::Close)->setFocus();
}

void RemakeDialog::showResult(QTreeWidgetItem* row, const QStringList& lines,
                              QStyle::StandardPixmap symbol)
{
    const QString more = lines.count() == 2
                             ? tr("%1 (1 warning)").arg(lines.first())
                             : tr("%1 (%2 warnings)").arg(lines.first()).arg(lines.count() - 1);
    row->setText(ResultColumn, lines.count() == 1 ? lines.first() : more);
    row->setToolTip(ResultColumn, lines.join('\n').toHtmlEscaped().replace('\n', "<br>"));
    row->setData(ResultColumn, LinesRole, lines);
    row->setIcon(ResultColumn, style()->standardIcon(symbol));
    m_ui->RemakeList->scrollToItem(row);
}

void RemakeDialog::copyReport() const
{
    QStringList lines{m_ui->RemakeSummary->text()};
    for (int row = 0; row < m_items.count(); ++row) {
        const QTreeWidgetItem* const item = m_ui->RemakeList->topLevelItem(row);
        lines << QDir::toNativeSeparators(m_items.at(row).remake.files.image) + ": " +
                     item->data(ResultColumn, LinesRole).toStringList().join("\n  ");
    }
    QApplication::clipboard()->setText(lines.join('\n') + '\n');
}
