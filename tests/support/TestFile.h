#ifndef TESTS_SUPPORT_TESTFILE_H
#define TESTS_SUPPORT_TESTFILE_H

#include <QByteArray>
#include <QFile>
#include <QString>

/// Whole files of a test. What cannot be done ends the test program.
namespace TestFile {

/// Writes the file at \p path, in a folder that exists, and returns the path.
inline QString write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("cannot write %s: %s", qPrintable(path), qPrintable(file.errorString()));
    return path;
}

inline QByteArray read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s: %s", qPrintable(path), qPrintable(file.errorString()));
    return file.readAll();
}

/// As read(), but a file that cannot be read has no bytes.
inline QByteArray readIfPossible(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace TestFile

#endif
