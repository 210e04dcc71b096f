#ifndef TOOL_FILECOMPARE_H
#define TOOL_FILECOMPARE_H

#include <QByteArray>
#include <QString>

class InputFile;
class Session;

/// Finds the first byte in which two files differ.
class FileCompare {
public:
    /// Compares \p file from \p start on with all of \p model. Neither becomes its own.
    FileCompare(InputFile* file, qint64 start, InputFile* model, Session* session);

    /// Compares as far as both go, and returns whether there is a difference. What cannot be read
    /// becomes an error, and is no difference.
    bool findDifference();

    /// Where it is in the file, and the two bytes.
    qint64 offset() const { return m_offset; }
    QString expected() const { return m_expected; }
    QString found() const { return m_found; }

    /// The first index at which the two differ; the end of the shorter one counts.
    static int firstDifference(const QByteArray& one, const QByteArray& other);

    /// The byte at \p index for messages, or that the bytes end there.
    static QString byteAt(const QByteArray& bytes, int index);

private:
    InputFile* m_file;
    qint64 m_start;
    InputFile* m_model;
    Session* m_session;
    qint64 m_offset = 0;
    QString m_expected;
    QString m_found;
};

#endif
