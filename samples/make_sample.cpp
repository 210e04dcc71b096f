// Writes the sample binary. Usage: make-sample FILE

#include "samples/Bitstream.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

namespace {

/// Gives an image of several blocks, as real builds do.
constexpr std::uint32_t SampleFrames = 1500;

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::cerr << "usage: make-sample FILE\n";
        return 2;
    }
    const std::vector<std::uint8_t> bytes = Bitstream::make(SampleFrames);
    std::ofstream file(argv[1], std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        std::cerr << "make-sample: cannot write " << argv[1] << ": " << std::strerror(errno)
                  << '\n';
        return 3;
    }
    return 0;
}
