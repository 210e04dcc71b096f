#ifndef HOST_APP_IMAGEINSPECTOR_H
#define HOST_APP_IMAGEINSPECTOR_H

#include <QList>
#include <QPair>
#include <QStringList>
#include <QWidget>

class QPushButton;
class QTextBrowser;

/// What an image or a companion contains and what is wrong with it, in words.
struct ImageReport {
    /// Name and value, in the order to show them.
    QList<QPair<QString, QString>> rows;
    /// Empty for a file that is as a generator writes it.
    QStringList findings;

    /// Reads the file at \p path, which may be anything, whole.
    static ImageReport of(const QString& path);

    /// Whether the file is valid, for the user.
    QString verdict() const;
    QString html() const;
    QString text() const;
};

/// Shows what an image or a companion contains, to be read and copied.
///
/// For drivers: "ImageReport", "ShowPageButton", "CopyReportButton".
class ImageInspector : public QWidget {
    Q_OBJECT

public:
    explicit ImageInspector(QWidget* parent = nullptr);

    /// Reads the file at \p path anew.
    void inspect(const QString& path);

signals:
    /// The user wants to see the header page as bytes and fields.
    void pageWanted();

private:
    QString m_text;
    QTextBrowser* m_view;
    QPushButton* m_page;
    QPushButton* m_copy;
};

#endif
