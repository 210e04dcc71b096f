#ifndef TESTS_SUPPORT_PLAINFCF_H
#define TESTS_SUPPORT_PLAINFCF_H

#include <array>
#include <cstdint>
#include <string>
#include <vector>

/// An image or a companion, taken apart by code of its own: neither Qt nor the product's tables and
/// codecs have a part in it, so that it can contradict them.
struct PlainFcf {
    /// From the total pages to the minor version.
    std::array<std::int32_t, 11> numbers{};
    /// The five reserved words.
    std::array<std::uint32_t, 5> reserved{};
    /// The text's lines without their line feeds, the empty one at byte 64 first and "----" last.
    std::vector<std::string> lines;
    /// Whole filler units of six bytes.
    std::size_t fillerUnits = 0;
    /// Bytes of the header page.
    std::size_t headerBytes = 0;
    std::string payload;
    /// Why the bytes are no such file, or empty.
    std::string fault;

    static PlainFcf fromBytes(const std::string& bytes);
    static PlainFcf fromFile(const std::string& path);

    /// What follows \p prefix on the first line that starts with it, or an empty text.
    std::string valueOf(const std::string& prefix) const;
};

/// The bytes of the file at \p path; empty for one that cannot be read.
std::string bytesOfFile(const std::string& path);

#endif
