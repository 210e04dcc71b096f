#ifndef TOOL_FILEERROR_H
#define TOOL_FILEERROR_H

#include <QString>

/// What could not be done to which file.
struct FileError {
    QString path;
    QString reason;
    /// Whether the reason is that something stands where an output was to go.
    bool exists = false;
    /// Whether it was to be read.
    bool isInput = false;

    /// Takes the errno \p number for what happened to \p path. Returns whether it is none.
    bool take(int number, const QString& path);
};

#endif
