#ifndef HOST_APP_IMAGE_PAGEVIEW_H
#define HOST_APP_IMAGE_PAGEVIEW_H

#include <QWidget>

class PageBytesModel;
class PageBytesView;
class QLabel;
class QSplitter;
class QTreeWidget;

/// Shows the header page of an image or a companion as bytes and as fields. The field of the
/// current byte is the current field, and its bytes are marked.
///
/// For drivers: "PageTitle", "PageBytes", "PageFields".
class PageView : public QWidget {
    Q_OBJECT

public:
    explicit PageView(QWidget* parent = nullptr);

    /// Reads the page of the file at \p path anew. The field that was current stays so.
    void inspect(const QString& path);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void build();
    void useFixedFont();
    void showFields();
    void showTitle(const QString& path);
    void markCurrentField();

    PageBytesModel* m_model;
    PageBytesView* m_bytes;
    QTreeWidget* m_fields;
    QLabel* m_title;
    QSplitter* m_splitter;
};

#endif
