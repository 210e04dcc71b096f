// The main function of every test program.

#include "support/TestProgram.h"

#include <cstdio>
#include <cstring>
#include <vector>

namespace {

struct Entry {
    const char* name;
    TestEntry::Run run;
};

/// In a function, so that it is there for the first entry.
std::vector<Entry>& entries()
{
    static std::vector<Entry> all;
    return all;
}

} // namespace

TestEntry::TestEntry(const char* name, Run run) { entries().push_back({name, run}); }

int main(int argc, char** argv)
{
    for (const Entry& entry : entries()) {
        if (argc < 2 || std::strcmp(argv[1], entry.name) != 0)
            continue;

        // Qt Test gets the arguments behind the name.
        argv[1] = argv[0];
        return entry.run(argc - 1, argv + 1);
    }

    std::fprintf(stderr, "Usage: %s TEST [ARGUMENT OF QT TEST...]\nThe tests are:\n", argv[0]);
    for (const Entry& entry : entries())
        std::fprintf(stderr, "    %s\n", entry.name);
    return 2;
}
