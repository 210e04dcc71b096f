#ifndef TOOL_INPUTFILE_H
#define TOOL_INPUTFILE_H

#include <QFile>
#include <QString>

#include <memory>
#include <optional>

class Session;

/// A file to read from any place in it: one with a name, or standard input or a pipe, which is
/// then first put aside into a file without a name.
class InputFile {
public:
    /// Opens the file at \p path, or standard input for "-", and adds it to the inputs of
    /// \p session. An error goes to its findings under \p field. A stream is taken up to one byte
    /// past \p limit bytes.
    bool open(const QString& path, qint64 limit, const QString& field, Session* session);

    /// What messages call the file at \p path.
    static QString labelOf(const QString& path);

    /// What messages call it.
    const QString& label() const { return m_label; }
    /// Where it is, or "-".
    const QString& path() const { return m_path; }
    bool isStandardInput() const;

    /// In bytes, when it was opened.
    qint64 size() const { return m_size; }

    /// Up to \p bytes bytes from \p offset on, or nothing, with an error, if it cannot be read.
    std::optional<QByteArray> bytesAt(qint64 offset, qint64 bytes, Session* session) const;

    /// Reads up to \p bytes bytes from \p offset on. Returns how many, 0 at the end, or -1 with the
    /// reason in errno.
    qint64 readAt(qint64 offset, char* data, qint64 bytes) const;

    /// Adds the error that it cannot be read on account of \p reason.
    bool refuse(const QString& reason, const QString& field, Session* session) const;

private:
    void keepFromOutputs(const QFile& file, Session* session) const;
    bool putAside(QIODevice* stream, qint64 limit, const QString& field, Session* session);

    QString m_path;
    QString m_label;
    std::unique_ptr<QFile> m_file;
    qint64 m_size = 0;
};

/// The bytes of a file from an offset on, in turn.
class InputSource : public QIODevice {
public:
    /// \p file does not become its own. The offset is in bytes.
    InputSource(const InputFile* file, qint64 offset);

    bool isSequential() const override { return true; }

    /// Why it could not be read, or an empty text. Whoever reads may take that for the end.
    const QString& failure() const { return m_failure; }

    /// Whether it could not be read, or is not as long any more as it was when it was opened.
    bool isAtFault() const;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char* data, qint64 maxSize) override;

private:
    const InputFile* m_file;
    qint64 m_offset;
    bool m_hasEnded = false;
    QString m_failure;
};

#endif
