#ifndef GENERATOR_FILEOPENING_H
#define GENERATOR_FILEOPENING_H

#include <QCoreApplication>
#include <QIODevice>
#include <QString>

class QFile;

/// Opens the files of a generator window, and never one that would block the host: to open a named
/// pipe waits for another program, and a device may be read without end.
class FileOpening {
    Q_DECLARE_TR_FUNCTIONS(FileOpening)

public:
    /// Opens \p file in \p mode. Returns false, with the reason in \p reason, when that fails, for
    /// a named pipe, and when something else than a file is to be read.
    static bool open(QFile* file, QIODevice::OpenMode mode, QString* reason);

private:
    static QString refusal(const QFile& file, QIODevice::OpenMode mode);
};

#endif
