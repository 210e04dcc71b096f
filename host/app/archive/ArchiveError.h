#ifndef HOST_APP_ARCHIVE_ARCHIVEERROR_H
#define HOST_APP_ARCHIVE_ARCHIVEERROR_H

#include <QString>

#include <stdexcept>

/// Why there is no archive: text for the user, which names the file and the reason.
class ArchiveError : public std::runtime_error {
public:
    explicit ArchiveError(const QString& text) : std::runtime_error(text.toStdString()) {}

    QString text() const { return QString::fromUtf8(what()); }
};

/// The user has cancelled the making of the archive.
class ArchiveCancelled : public std::exception {};

#endif
