#ifndef HOST_APP_IMAGE_PAGEBYTESVIEW_H
#define HOST_APP_IMAGE_PAGEBYTESVIEW_H

#include <QTableView>

class PageBytesModel;

/// Shows the bytes of a header page. The keys Left and Right go through the bytes, from row to row.
class PageBytesView : public QTableView {
    Q_OBJECT

public:
    /// \p model is not owned.
    explicit PageBytesView(PageBytesModel* model, QWidget* parent = nullptr);

    /// The offset of the current byte, or -1.
    int currentOffset() const;
    void setCurrentOffset(int offset);

    /// Marks \p length bytes from \p offset on, and nothing else.
    void mark(int offset, int length);

    QSize sizeHint() const override;

signals:
    /// Another byte is current.
    void currentOffsetChanged(int offset);

protected:
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

private:
    /// Makes the cells as large as the characters need it.
    void resizeCells();

    PageBytesModel* m_model;
};

#endif
