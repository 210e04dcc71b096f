#include "support/PlainFcf.h"

#include <fstream>
#include <sstream>

namespace {

constexpr std::size_t TextStart = 64;
constexpr std::size_t PageBytes = 2112;
const std::string FillerUnit = "\xC3\xAF\xC2\xBF\xC2\xBD";

std::uint32_t wordAt(const std::string& bytes, std::size_t offset)
{
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i)
        word = (word << 8) | static_cast<unsigned char>(bytes[offset + i]);
    return word;
}

} // namespace

PlainFcf PlainFcf::fromBytes(const std::string& bytes)
{
    PlainFcf fcf;
    if (bytes.size() <= TextStart) {
        fcf.fault = "shorter than the preamble";
        return fcf;
    }
    for (std::size_t i = 0; i < fcf.numbers.size(); ++i)
        fcf.numbers[i] = static_cast<std::int32_t>(wordAt(bytes, 4 * i));
    for (std::size_t i = 0; i < fcf.reserved.size(); ++i)
        fcf.reserved[i] = wordAt(bytes, 4 * (fcf.numbers.size() + i));

    std::size_t position = TextStart;
    // A text can have the end mark as a line of its own; the last one is before filler or at
    // the end of the page.
    const auto ended = [&] {
        return !fcf.lines.empty() && fcf.lines.back() == "----" &&
               (position >= PageBytes ||
                bytes.compare(position, FillerUnit.size(), FillerUnit) == 0);
    };
    while (!ended()) {
        const std::size_t end = bytes.find('\n', position);
        if (end == std::string::npos) {
            fcf.fault = "no line \"----\"";
            return fcf;
        }
        fcf.lines.push_back(bytes.substr(position, end - position));
        position = end + 1;
    }
    for (; position < PageBytes; position += FillerUnit.size(), ++fcf.fillerUnits) {
        if (bytes.compare(position, FillerUnit.size(), FillerUnit) != 0) {
            fcf.fault = "no filler unit at byte " + std::to_string(position);
            return fcf;
        }
    }
    fcf.headerBytes = position;
    fcf.payload = bytes.substr(position);
    return fcf;
}

PlainFcf PlainFcf::fromFile(const std::string& path) { return fromBytes(bytesOfFile(path)); }

std::string PlainFcf::valueOf(const std::string& prefix) const
{
    for (const std::string& line : lines) {
        if (line.compare(0, prefix.size(), prefix) == 0)
            return line.substr(prefix.size());
    }
    return {};
}

std::string bytesOfFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}
