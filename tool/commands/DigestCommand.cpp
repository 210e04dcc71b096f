#include "tool/commands/Command.h"
#include "tool/files/Digest.h"

namespace {

/// Prints the digests of images, as sha256sum does.
class DigestCommand : public Command {
public:
    explicit DigestCommand(CLI::App* parent)
        : Command(parent, "digest", "Print the SHA-256 of images")
    {
        Arguments::addOperands(app, "FILE", &m_files, "images; - is standard input");
    }

    void run(Task* task) override
    {
        QJsonArray digests;
        for (const std::string& argument : m_files) {
            const auto fcf = task->openFcf(argument, Task::Whole);
            if (!fcf)
                continue;

            const InputFile& file = fcf->file;
            const auto digest = task->findings.valueOf(Digest::of(
                {&file, 0, file.size(), nullptr}, task->progress("digest", file.size())));
            if (!digest)
                continue;

            if (!task->report.json)
                task->report.printRaw(Digest::line(*digest, file.path()));
            digests.append(QJsonObject{{"file", file.label()},
                                       {"sha256", QString::fromLatin1(digest->toHex())}});
        }
        task->report.result["files"] = digests;
    }

private:
    std::vector<std::string> m_files;
};

} // namespace

CommandPointer digestCommand(CLI::App* app) { return std::make_unique<DigestCommand>(app); }
