// Measures the window's Generate inside one process, beside a loop that does the reads and writes
// of cat in the same process. Both write an image that does not exist yet.
//
// Prints one line for each, as process-bench does: NAME, median and minimum in milliseconds.
// Usage: generate-bench FOLDER ROUNDS, with the binary FOLDER/in.bin and a header FOLDER/page

#include "generator/PelkFcfGenerator.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPushButton>
#include <QVector>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

/// What cat reads at a time.
constexpr std::size_t CatBytes = std::size_t(128) * 1024;

void require(bool condition, const char* what)
{
    if (!condition)
        qFatal("%s", what);
}

void copy(int from, int to, std::vector<char>* buffer)
{
    for (;;) {
        const ssize_t count = ::read(from, buffer->data(), CatBytes);
        require(count >= 0, "cannot read");
        if (count == 0)
            return;
        require(::write(to, buffer->data(), static_cast<std::size_t>(count)) == count,
                "cannot write");
    }
}

/// Joins \p inputs in a new file \p output.
void join(const QStringList& inputs, const QString& output)
{
    std::vector<char> buffer(CatBytes);
    const int to =
        ::open(QFile::encodeName(output), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    require(to >= 0, "cannot create");
    for (const QString& input : inputs) {
        const int from = ::open(QFile::encodeName(input), O_RDONLY | O_CLOEXEC);
        require(from >= 0, "cannot open");
        copy(from, to, &buffer);
        ::close(from);
    }
    ::close(to);
}

double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

void print(const char* name, QVector<double> times)
{
    std::sort(times.begin(), times.end());
    std::printf("%s\t%.3f\t%.3f\n", name, times[times.size() / 2], times.first());
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    const int rounds = arguments.value(2).toInt();
    require(rounds > 0, "usage: generate-bench FOLDER ROUNDS");
    const QDir folder(arguments.value(1));
    const QString binary = folder.filePath("in.bin");
    const QString image = folder.filePath("in.fcf");
    const QString companion = folder.filePath("in.txt");
    const QString page = folder.filePath("page");

    QVector<double> ours;
    QVector<double> loop;
    for (int round = 0; round <= rounds; ++round) {
        PelkFcfGenerator window;
        window.setBinFile(binary);
        window.setAuthor("R. Vos");
        window.setCINumber("CI-0042");
        auto* const generate = window.findChild<QPushButton*>("GenerateButton");
        QFile::remove(image);
        QFile::remove(companion);
        ours << milliseconds([generate] { generate->click(); });
        require(QFile(image).size() > QFile(binary).size(), "no image");

        QFile::remove(image);
        QFile::remove(companion);
        loop << milliseconds([&] {
            join({page, binary}, image);
            join({page}, companion);
        });
    }
    // The first round warms caches up and is not counted.
    ours.removeFirst();
    loop.removeFirst();
    print("Generate", ours);
    print("Generate peer", loop);
    return 0;
}
