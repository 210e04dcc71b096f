#ifndef TOOL_COMMANDS_BINARYINPUT_H
#define TOOL_COMMANDS_BINARYINPUT_H

#include "tool/check/PayloadKind.h"
#include "tool/files/Copy.h"
#include "tool/files/InputFile.h"

#include <optional>
#include <string>

struct Task;

namespace CLI {
class App;
}

/// The binary that an image is made of: a file without the header of its container, if it has one,
/// and with its words swapped, if that was asked for.
class BinaryInput {
public:
    void declare(CLI::App* app);

    /// What messages call it.
    QString label() const;

    /// Opens it and checks what is in it; all that is done to it is noted. Returns nothing if it
    /// cannot be used.
    std::optional<InputFile> open(Task* task);

    /// What of \p file, which is open, becomes the payload.
    Region payload(const InputFile& file) const;

private:
    void readContainer(const InputFile& file, const QByteArray& start, Task* task);
    void readSwap(Task* task);
    void check(const InputFile& file, Task* task) const;
    void note(const QString& text, Task* task) const;

    std::string m_path;
    std::optional<std::string> m_swap;
    std::optional<PayloadKind::Container> m_container;
    PayloadKind::Swaps m_swaps;
};

#endif
