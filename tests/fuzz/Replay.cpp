// Runs a fuzz target over files: its seeds and all findings so far. Usage: NAME-replay FOLDER...

#include "fuzz/FuzzTarget.h"

#include <QDirIterator>
#include <QFile>

int main(int argc, char** argv)
{
    int files = 0;
    for (int index = 1; index < argc; ++index) {
        QDirIterator folder(QString::fromLocal8Bit(argv[index]), QDir::Files);
        while (folder.hasNext()) {
            QFile file(folder.next());
            require(file.open(QIODevice::ReadOnly), "cannot read a file");
            const QByteArray bytes = file.readAll();
            // A crash shows which file it was.
            std::fprintf(stderr, "%s\n", qPrintable(file.fileName()));
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                                   static_cast<std::size_t>(bytes.size()));
            ++files;
        }
    }
    require(files > 0, "there are no files");
    std::printf("%d files\n", files);
    return 0;
}
