#ifndef HOST_APP_IMAGE_REMAKEDIALOG_H
#define HOST_APP_IMAGE_REMAKEDIALOG_H

#include "host/app/image/Remake.h"

#include <QDialog>
#include <QStyle>

#include <memory>

class QPushButton;
class QTreeWidgetItem;

namespace Ui {
class RemakeDialog;
}

/// Makes several images again, one after the other, and shows what became of each.
///
/// For drivers: "RemakeList", "RemakeSummary", "RemakeProgress", "RemakeStartButton",
/// "CopyRemakeReportButton".
class RemakeDialog : public QDialog {
    Q_OBJECT

public:
    struct Item {
        Remake remake;
        /// Why the image is made again, or empty.
        QString reason;
    };

    RemakeDialog(const QList<Item>& items, QWidget* parent);
    ~RemakeDialog() override;

    /// The images that were made, in their order.
    QList<Remake> made() const { return m_made; }

    /// While images are made, stops behind the current one and stays open.
    void reject() override;

private:
    void start();
    void makeNext();
    void finish();
    /// Shows the first of \p lines. The tooltip and the report have the others, the warnings.
    void showResult(QTreeWidgetItem* row, const QStringList& lines, QStyle::StandardPixmap symbol);
    void copyReport() const;

    std::unique_ptr<Ui::RemakeDialog> m_ui;
    QPushButton* m_startButton;
    QList<Item> m_items;
    QList<Remake> m_made;
    int m_next = 0;
    bool m_isRunning = false;
    bool m_isCancelled = false;
};

#endif
