#ifndef TOOL_COMMANDS_OUTPUTS_H
#define TOOL_COMMANDS_OUTPUTS_H

#include "tool/files/Copy.h"
#include "tool/files/OutputFiles.h"

#include <QByteArray>
#include <QString>

#include <optional>

class InputFile;
struct Task;

/// Guards the outputs of a run: none is one of its inputs under any name or a folder, and none
/// exists unless it is to be replaced. What is refused becomes an error of \p task.
namespace OutputGuard {

void guard(const QString& path, bool isReplaced, Task* task);

/// Guards standard output: it may be no input, and if it gets binary data, no terminal.
void guardStandardOutput(bool getsBinary, Task* task);

/// Guards a file beside the outputs that is not written, on account of \p option: it must be no
/// input, and is worth a warning.
void guardUnwritten(const QString& path, const char* option, Task* task);

} // namespace OutputGuard

/// The names of the files of one image.
struct Outputs {
    /// Derives them from \p binary and, if that is given, \p output, and refuses what gives none.
    /// The name follows the window's rule: every ".bin" in it is replaced.
    static Result<Outputs> of(const InputFile& binary, const std::optional<QString>& output);

    /// Whether the image goes to standard output, alone.
    bool toStandardOutput() const;

    /// Paths; that of the image may be "-".
    QString image;
    QString companion;
    QString digest;
    /// What the header's own line for it says.
    QString imageName;
};

/// An image, its companion and its digest, as they are to be written. Owns none of the files.
struct ImageFiles {
    Outputs outputs;
    bool hasCompanion = true;
    bool hasDigest = false;
    /// The whole header page.
    QByteArray page;
    Region payload;
    /// 0xFF behind the payload.
    qint64 fillerBytes = 0;

    /// Writes all of them and puts them in place; an image for standard output goes to \p out. With
    /// \p digest, which may be null, it is given the image's own.
    Status write(OutputFiles::Existing existing, QIODevice* out, const CopyObserver& observe,
                 QByteArray* digest) const;

    /// The digest of the image if all of them are there already, and just so.
    std::optional<QByteArray> digestIfThere() const;
};

#endif
