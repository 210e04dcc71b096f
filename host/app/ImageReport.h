#ifndef HOST_APP_IMAGEREPORT_H
#define HOST_APP_IMAGEREPORT_H

#include <QList>
#include <QPair>
#include <QString>
#include <QStringList>

/// What an image or a companion contains and what is wrong with it, in words.
struct ImageReport {
    /// Name and value, in the order to show them.
    QList<QPair<QString, QString>> rows;
    /// Empty for a file that is as a generator writes it.
    QStringList findings;

    /// Reads the file at \p path, which may be anything, whole.
    static ImageReport of(const QString& path);

    QString html() const;
    QString text() const;
};

#endif
