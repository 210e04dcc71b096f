#ifndef HOST_APP_IMAGEINSPECTOR_H
#define HOST_APP_IMAGEINSPECTOR_H

#include <QWidget>

class QPushButton;
class QTextBrowser;

/// Shows what an image or a companion contains, to be read and copied.
///
/// For drivers: "ImageReport", "CopyReportButton".
class ImageInspector : public QWidget {
    Q_OBJECT

public:
    explicit ImageInspector(QWidget* parent = nullptr);

    /// Reads the file at \p path anew.
    void inspect(const QString& path);

private:
    QString m_text;
    QTextBrowser* m_view;
    QPushButton* m_copy;
};

#endif
