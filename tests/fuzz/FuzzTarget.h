#ifndef TESTS_FUZZ_FUZZTARGET_H
#define TESTS_FUZZ_FUZZTARGET_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// What a fuzz target implements. It returns 0, and aborts on a finding. libFuzzer calls it with
/// inputs that it makes up, Replay.cpp with seeds and earlier findings.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

/// Aborts, with \p what as the reason, unless \p condition is true.
inline void require(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "fuzz: %s\n", what);
    std::abort();
}

#endif
