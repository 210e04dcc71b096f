#ifndef TOOL_CHECK_BITCONTAINER_H
#define TOOL_CHECK_BITCONTAINER_H

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

/// The header of the container that development tools write bitstreams in, .bit files.
struct BitContainer {
    QString design;
    QString part;
    QString date;
    QString time;
    qint64 headerBytes = 0;
    qint64 payloadBytes = 0;

    /// Whether a file that begins with \p start is such a container, whole or not.
    static bool isStartOf(const QByteArray& start);

    /// The container that \p start is the beginning of, or what is wrong with its header and what
    /// to do about it.
    static tl::expected<BitContainer, QString> read(const QByteArray& start);
};

#endif
