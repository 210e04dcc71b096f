#ifndef TOOL_OUTPUTS_H
#define TOOL_OUTPUTS_H

#include <QString>

#include <optional>

class InputFile;
class Session;
struct FileError;
class StagedFiles;

/// Guards a path that a run is about to write: not one of its inputs under any name, not a folder,
/// nothing that exists unless \p force is given. What is refused goes to the findings.
void guardOutput(const QString& path, bool force, Session* session);

/// Guards standard output, where it is a file, as guardOutput() does.
void guardStandardOutput(Session* session);

/// Says what could not be written, or read on the way, on account of \p error.
void refuseUnwritten(const FileError& error, Session* session);

/// Warns of what \p files replaced but could not remove.
void warnOfLeftBehind(const StagedFiles& files, Session* session);

/// Where the files of one image go.
class Outputs {
public:
    /// Derives the paths from \p binary and, if that is given, \p output, and refuses what gives
    /// none. The name follows the window's rule: every ".bin" in it gives way.
    static std::optional<Outputs> of(const InputFile& binary, const std::optional<QString>& output,
                                     Session* session);

    /// Whether the image goes to standard output, alone.
    bool toStandardOutput() const;

    /// What stands on the header's own line for it.
    QString imageName() const;

    const QString& image() const { return m_image; }
    const QString& companion() const { return m_companion; }
    QString digest() const;

    bool hasCompanion = true;
    bool hasDigest = false;

    /// Guards all paths. What a killed run left of this image is no obstacle.
    void guard(bool force, Session* session);

private:
    void warnOfStale(const QString& path, const char* option, Session* session) const;

    QString m_image;
    QString m_companion;
    QString m_nameForStream;
};

#endif
