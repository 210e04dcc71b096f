#ifndef HOST_APP_COMMON_HOSTERROR_H
#define HOST_APP_COMMON_HOSTERROR_H

#include <QString>

#include <stdexcept>

/// Why something was not done: a text for the user that names the place and the reason.
class HostError : public std::runtime_error {
public:
    explicit HostError(const QString& text) : std::runtime_error(text.toStdString()) {}

    QString text() const { return QString::fromUtf8(what()); }
};

#endif
