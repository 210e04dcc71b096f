#ifndef TESTS_SUPPORT_FOLDEROPENER_H
#define TESTS_SUPPORT_FOLDEROPENER_H

#include <QDesktopServices>
#include <QObject>
#include <QStringList>
#include <QUrl>

/// Replaces the desktop's file manager.
class FolderOpener : public QObject {
    Q_OBJECT

public:
    FolderOpener() { QDesktopServices::setUrlHandler("file", this, "open"); }
    ~FolderOpener() override { QDesktopServices::unsetUrlHandler("file"); }

    /// The paths that were to be shown.
    QStringList opened;

public slots:
    void open(const QUrl& url) { opened << url.toLocalFile(); }
};

#endif
