// Measures how long an image takes, side by side with what else could make the same bytes: cat,
// which only joins a ready header and the binary, and a copy in blocks of 1 KiB with the filler
// appended unit by unit. Prints medians and ratios; nothing here passes or fails by time. Usage:
// image-bench [MEBIBYTES [ROUNDS]]

#include "fcf/FcfHeader.h"
#include "fcf/FcfWriter.h"
#include "generator/FcfOutput.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <QVector>

#include <algorithm>
#include <functional>

namespace {

FcfHeader sampleHeader()
{
    FcfHeader header;
    header.fileName = "image.fcf";
    header.author = "R. Vos";
    header.ciNumber = "CI-0042";
    header.description = "A build to be measured";
    return header;
}

QByteArray page()
{
    const FcfWriter writer;
    const QByteArray text = writer.compose(sampleHeader());
    return text + writer.fillerFor(text.size());
}

void require(bool condition, const char* what)
{
    if (!condition)
        qFatal("%s", what);
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "cannot write");
}

void generate(const QDir& folder)
{
    FcfOutput output(folder.filePath("image.fcf"), folder.filePath("image.bin"),
                     folder.filePath("image.txt"));
    const FcfWriter writer;
    const QByteArray header = writer.compose(sampleHeader());
    require(output.open(FcfOutput::EndAtFirstFailure) && output.writeImageHeader(header) &&
                output.writeCompanionHeader(header) && output.fillHeaders(writer) &&
                output.appendPayload(),
            "no image");
}

void joinWithCat(const QDir& folder)
{
    QProcess cat;
    cat.setStandardOutputFile(folder.filePath("cat.fcf"));
    cat.start("cat", {folder.filePath("page"), folder.filePath("image.bin")});
    require(cat.waitForFinished(-1) && cat.exitCode() == 0, "cat failed");
}

void copyInSmallBlocks(const QDir& folder)
{
    const FcfWriter writer;
    const QByteArray header = writer.compose(sampleHeader());
    const QString image = folder.filePath("small.fcf");
    const QString companion = folder.filePath("small.txt");
    writeFile(image, header);
    writeFile(companion, header);
    const QByteArray filler = writer.fillerFor(header.size());
    for (int offset = 0; offset < filler.size(); offset += 6) {
        for (const QString& path : {image, companion}) {
            QFile file(path);
            require(file.open(QIODevice::Append), "cannot append");
            file.write(filler.mid(offset, 6));
        }
    }
    QFile from(folder.filePath("image.bin"));
    QFile to(image);
    require(from.open(QIODevice::ReadOnly) && to.open(QIODevice::Append), "cannot copy");
    QByteArray block;
    do {
        block = from.read(1024);
        to.write(block);
    } while (block.size() == 1024);
}

double milliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e6;
}

double median(QVector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    const QStringList arguments(argv + 1, argv + argc);
    const int mebibytes = arguments.value(0, "64").toInt();
    const int rounds = arguments.value(1, "9").toInt();
    require(mebibytes > 0 && rounds > 0, "usage: image-bench [MEBIBYTES [ROUNDS]]");

    const QTemporaryDir temporary;
    const QDir folder(temporary.path());
    writeFile(folder.filePath("image.bin"), QByteArray(mebibytes * 1024 * 1024, '\x5a'));
    writeFile(folder.filePath("page"), page());

    QVector<double> ours;
    QVector<double> cat;
    QVector<double> small;
    // One after another in each round, so that all of them meet the same noise.
    for (int round = 0; round < rounds; ++round) {
        ours << milliseconds([&] { generate(folder); });
        cat << milliseconds([&] { joinWithCat(folder); });
        small << milliseconds([&] { copyInSmallBlocks(folder); });
    }

    QTextStream out(stdout);
    out.setRealNumberNotation(QTextStream::FixedNotation);
    out.setRealNumberPrecision(2);
    out << mebibytes << " MiB, median of " << rounds << " rounds\n"
        << "generator            " << median(ours) << " ms\n"
        << "cat                  " << median(cat) << " ms   generator/cat   "
        << median(ours) / median(cat) << '\n'
        << "blocks of 1 KiB      " << median(small) << " ms   generator/blocks "
        << median(ours) / median(small) << '\n';
    return 0;
}
