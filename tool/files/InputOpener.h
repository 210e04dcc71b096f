#ifndef TOOL_FILES_INPUTOPENER_H
#define TOOL_FILES_INPUTOPENER_H

#include "tool/base/Result.h"
#include "tool/files/FileSystem.h"
#include "tool/files/InputFile.h"
#include "tool/files/Region.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

class QIODevice;

/// An input of a run, which no output may replace.
struct ProtectedInput {
    FileSystem::Identity identity;
    /// What messages call it.
    QString label;

    /// The reason for which it cannot be an output.
    QString refusal() const;
};

/// Opens the inputs of a run, and remembers which they are.
class InputOpener {
public:
    /// Returns what shows the progress of \p label, for an unknown number of bytes.
    using Observers = std::function<CopyObserver(const QString& label)>;

    /// \p standardInput is not owned.
    InputOpener(QIODevice* standardInput, Observers observers);

    enum Protection {
        /// No output may replace it.
        Protected,
        /// An output may replace it, as all that is needed of it was read by then.
        Replaceable
    };

    /// Opens the file at \p path, or standard input for "-", which can be read only once. A stream
    /// is read up to one byte past \p limit bytes. Errors are about \p field.
    Result<InputFile> open(const QString& path, qint64 limit, const QString& field,
                           Protection protection = Protected);

    /// The paths of all inputs that have one, in the order in which they were opened.
    const QStringList& paths() const { return m_paths; }

    /// The protected input with \p identity, or null.
    const ProtectedInput* find(const std::optional<FileSystem::Identity>& identity) const;

    /// The protected input that \p output, a file, would write into, or null.
    const ProtectedInput* behind(const QIODevice* output) const;

private:
    Result<InputFile> openStandardInput(InputFile file, qint64 limit, const QString& field);
    Result<InputFile> spool(QIODevice* stream, qint64 limit, const QString& field,
                            InputFile file) const;
    void protect(const QFile& file, const QString& label);

    /// Not owned; null once it was read.
    QIODevice* m_standardInput;
    Observers m_observers;
    QStringList m_paths;
    std::vector<ProtectedInput> m_protected;
};

#endif
