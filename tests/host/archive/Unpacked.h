#ifndef TESTS_HOST_ARCHIVE_UNPACKED_H
#define TESTS_HOST_ARCHIVE_UNPACKED_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

/// An archive, as tools see it that share no code with its writer: unzip and GNU tar, which unpack
/// it, and bsdtar, which lists its members in their order.
class Unpacked {
public:
    /// The kind of archive goes by the name's end, .zip or .tar.gz.
    explicit Unpacked(const QString& archive);

    /// What the tools complain of; empty for nothing.
    QString fault;
    /// In the archive's order; folders end in a slash.
    QStringList names;
    /// Contents by name; folders end in a slash and have none.
    QMap<QString, QByteArray> members;

private:
    QByteArray run(const QString& tool, const QStringList& arguments);
};

#endif
