#ifndef TOOL_COMMANDS_BINARYOPTIONS_H
#define TOOL_COMMANDS_BINARYOPTIONS_H

#include "tool/check/WordSwap.h"
#include "tool/files/InputFile.h"
#include "tool/files/Region.h"

#include <optional>
#include <string>

struct Task;

namespace CLI {
class App;
}

/// The arguments about the binary that an image is made of: a file without the header of its
/// container, if it has one, and with its words swapped, if that was asked for, or the payload of
/// another image.
class BinaryOptions {
public:
    /// These declare it as an operand that must be given, or as the option --bin.
    void declareOperand(CLI::App* app);
    void declareOption(CLI::App* app);

    bool isGiven() const { return m_path.has_value(); }

    /// What messages call it.
    QString label() const;

    /// Opens it, and notes what is done to it. Returns nothing if it cannot be used.
    std::optional<InputFile> open(Task* task);

    /// What of \p file, which is open, is the payload.
    Region payload(const InputFile& file) const;

    /// Checks whether an image can be made of \p file, and whether it looks like a bitstream.
    void check(const InputFile& file, Task* task) const;

private:
    void declareSwap(CLI::App* app);
    std::optional<InputFile> openImage(const QString& path, Task* task);
    bool readContainer(const InputFile& file, const QByteArray& start, Task* task);
    void readSwap(Task* task);
    void checkWholeWords(const InputFile& file, Task* task) const;
    void checkKind(const Region& region, const QByteArray& start, Task* task) const;
    void note(const QString& text, Task* task) const;

    std::optional<std::string> m_path;
    const char* m_name = "BIN";
    std::optional<std::string> m_swap;
    bool m_relabel = false;
    /// Bytes in front of the payload and behind it.
    qint64 m_before = 0;
    qint64 m_behind = 0;
    WordSwap::Swaps m_swaps;
};

#endif
