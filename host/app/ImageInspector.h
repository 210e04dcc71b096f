#ifndef HOST_APP_IMAGEINSPECTOR_H
#define HOST_APP_IMAGEINSPECTOR_H

#include <QList>
#include <QPair>
#include <QStringList>
#include <QWidget>

class QPushButton;
class QTextBrowser;
class QTimer;

/// What an image or a companion contains and what is wrong with it, in words.
struct ImageReport {
    /// Name and value, in the order to show them.
    QList<QPair<QString, QString>> rows;
    /// Empty for a file that is as a generator writes it.
    QStringList findings;
    /// Whether another program is just replacing files of the folder, so that the image may not
    /// belong to the digest beside it. Then there is nothing else; look again later.
    bool isBusy = false;

    /// Reads the file at \p path, which may be anything, whole. Waits for no other program.
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
    /// Looks again at a file whose folder was busy.
    QTimer* m_lookAgain;
    QTextBrowser* m_view;
    QPushButton* m_page;
    QPushButton* m_copy;
};

#endif
