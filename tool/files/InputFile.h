#ifndef TOOL_FILES_INPUTFILE_H
#define TOOL_FILES_INPUTFILE_H

#include "tool/base/Result.h"
#include "tool/files/Copy.h"
#include "tool/files/FileSystem.h"

#include <QFile>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

/// A file to read from any place in it: one with a name, or standard input or a pipe, which is
/// then first spooled into a file without a name.
class InputFile {
public:
    /// What messages call the file at \p path.
    static QString labelOf(const QString& path);

    /// What messages call it.
    const QString& label() const { return m_label; }
    /// Where it is, or "-".
    const QString& path() const { return m_path; }
    bool isStandardInput() const;

    /// In bytes, when it was opened.
    qint64 size() const { return m_size; }

    /// Up to \p bytes bytes from \p offset on; fewer at the end.
    Result<QByteArray> bytesAt(qint64 offset, qint64 bytes) const;

    /// The open file, to be read from any position. It stays this object's.
    QFile* device() const { return m_file.get(); }

    /// An error if the file was written to or replaced since it was opened.
    Status checkUnchanged() const;

    /// The error that it cannot be read on account of \p reason.
    tl::unexpected<Finding> notRead(const QString& reason, const QString& field = {}) const;

private:
    friend class Inputs;

    QString m_path;
    QString m_label;
    std::unique_ptr<QFile> m_file;
    qint64 m_size = 0;
    /// Of a file with a name: what changes with it.
    std::optional<FileSystem::Version> m_version;
};

/// A file that a run reads, so that no output takes its place.
struct ReadFile {
    FileSystem::Identity identity;
    /// What messages call it.
    QString label;
};

/// Opens the files that a run reads, and keeps in mind which they are.
class Inputs {
public:
    /// Makes what is called while \p label goes on, for an unknown number of bytes.
    using Observers = std::function<CopyObserver(const QString& label)>;

    /// \p standardInput does not become its own.
    Inputs(QIODevice* standardInput, Observers observers);

    enum Use {
        Guarded,
        /// May be replaced by an output: nothing else of it is needed.
        Replaceable
    };

    /// Opens the file at \p path, or standard input for "-", of which there is only one. A stream
    /// is read up to one byte past \p limit bytes. Errors are about \p field.
    Result<InputFile> open(const QString& path, qint64 limit, const QString& field,
                           Use use = Guarded);

    /// The guarded input with \p identity, or null.
    const ReadFile* find(const std::optional<FileSystem::Identity>& identity) const;

    /// The input that \p out, a file, would write into, or null.
    const ReadFile* behind(const QIODevice* out) const;

private:
    void guard(const QFile& file, const InputFile& input);
    Result<InputFile> spool(QIODevice* stream, qint64 limit, const QString& field,
                            InputFile file) const;

    QIODevice* m_in;
    Observers m_observers;
    std::vector<ReadFile> m_files;
};

#endif
