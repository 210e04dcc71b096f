// Measures what is done with a header page in memory: compose it, read it both ways, and size a
// payload. Counts the allocations of each, with the device and the result that they need.

#include "fcf/FcfExactReader.h"
#include "fcf/FcfLayout.h"
#include "fcf/FcfReader.h"
#include "fcf/FcfWriter.h"
#include "fcf/PelkFcfGeneratorFileInfo.h"

#include <QBuffer>
#include <QTextCodec>

#include <benchmark/benchmark.h>

#include <cstddef>

namespace {

std::size_t allocations = 0;

} // namespace

// All allocations of the process come through here, those inside Qt included.
extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_realloc(void* memory, std::size_t bytes);

void* malloc(std::size_t bytes)
{
    ++allocations;
    return __libc_malloc(bytes);
}

void* realloc(void* memory, std::size_t bytes)
{
    ++allocations;
    return __libc_realloc(memory, bytes);
}
}

namespace {

/// A build of three functions, as engineers describe them: about half a page of text.
FcfHeader build()
{
    FcfHeader header;
    header.setSizes(PelkFcfGeneratorFileInfo().measure(16 * 1024 * 1024));
    header.moduleCode = 2;
    header.deviceCode = 2;
    header.configNumber = 3;
    header.versionMajor = 1;
    header.versionMinor = 12;
    header.fileName = "radar_front_end.fcf";
    header.ciNumber = "7010-GNRL-ELEC-FW-01";
    header.author = "R. Vos";
    header.date = "31/05/24";
    header.time = "13:45:00";
    header.description = "Release candidate for the second field trial.\nKnown limit: 40 MHz.";
    for (const char* const name : {"window", "fft", "detector"})
        header.functions << FcfFunction{name, "R. Vos", "7010-GNRL-ELEC-FW-02",
                                        "Works on blocks of 1024 samples.\nLatency: 12 cycles."};
    return header;
}

QTextCodec* codec() { return QTextCodec::codecForName("UTF-8"); }

QByteArray page()
{
    const FcfWriter writer(codec());
    const QByteArray text = writer.compose(build());
    return text + writer.fillerFor(text.size());
}

/// Runs \p work as often as the library wants, and reports the allocations of one run.
template <class Work>
void measure(benchmark::State& state, Work work)
{
    const std::size_t before = allocations;
    for (auto _ : state)
        work();
    state.counters["allocations"] =
        benchmark::Counter(double(allocations - before), benchmark::Counter::kAvgIterations);
}

void compose(benchmark::State& state)
{
    const FcfHeader header = build();
    const FcfWriter writer(codec());
    measure(state, [&] {
        const QByteArray text = writer.compose(header);
        benchmark::DoNotOptimize(text + writer.fillerFor(text.size()));
    });
}
BENCHMARK(compose);

template <class Read>
void readPage(benchmark::State& state, Read read)
{
    QByteArray bytes = page();
    QTextCodec* const utf8 = codec();
    measure(state, [&] {
        QBuffer device(&bytes);
        device.open(QIODevice::ReadOnly);
        benchmark::DoNotOptimize(read(&device, utf8));
    });
}

void parseForForm(benchmark::State& state) { readPage(state, FcfReader::read); }
BENCHMARK(parseForForm);

void parseExactly(benchmark::State& state) { readPage(state, FcfExactReader::read); }
BENCHMARK(parseExactly);

void size(benchmark::State& state)
{
    const PelkFcfGeneratorFileInfo sizes;
    qint64 bytes = 0;
    measure(state, [&] { benchmark::DoNotOptimize(sizes.measure(bytes++).totalPages); });
}
BENCHMARK(size);

} // namespace

BENCHMARK_MAIN();
