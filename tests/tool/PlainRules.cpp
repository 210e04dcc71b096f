#include "PlainRules.h"

#include <array>
#include <cctype>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr std::int64_t PageBytes = 2112;
constexpr std::int64_t BlockPages = 64;
constexpr std::size_t FirstTextLine = 1;

/// Pages and blocks of \p bytes.
std::pair<std::int64_t, std::int64_t> pagesAndBlocks(std::int64_t bytes)
{
    const std::int64_t pages = (bytes + PageBytes - 1) / PageBytes;
    if (pages <= BlockPages)
        return {pages, 0};
    return {pages % BlockPages, pages / BlockPages};
}

bool hasRightSizes(const PlainFcf& image)
{
    const auto bytes = static_cast<std::int64_t>(image.payload.size());
    const auto [pages, blocks] = pagesAndBlocks(bytes);
    const auto [allPages, allBlocks] = pagesAndBlocks(bytes + PageBytes);
    const std::array<std::int64_t, 6> sizes{allPages, allBlocks, bytes + PageBytes,
                                            pages,    blocks,    bytes};
    for (std::size_t size = 0; size < sizes.size(); ++size) {
        if (image.numbers.at(size) != sizes.at(size))
            return false;
    }
    return bytes > 0;
}

bool isTarget(std::int32_t module, std::int32_t device)
{
    if (module == 1)
        return device == 1 || device == 2 || device == 4;
    return module == 2 && (device == 0 || device == 1 || device == 2 || device == 4 || device == 8);
}

bool isTimeOfDay(const std::string& time)
{
    if (time.size() != 8 || time[2] != ':' || time[5] != ':')
        return false;
    for (const std::size_t digit : {0u, 1u, 3u, 4u, 6u, 7u}) {
        if (time[digit] < '0' || time[digit] > '9')
            return false;
    }
    return time.substr(0, 2) <= "23" && time[3] <= '5' && time[6] <= '5';
}

/// Whether \p text, in UTF-8, has a character that no text may have.
bool hasForbiddenCharacter(const std::string& text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const auto next = static_cast<unsigned char>(at + 1 < text.size() ? text[at + 1] : ' ');
        const bool isControl = byte < 0x20 && byte != '\t' && byte != '\n';
        const bool isLateControl = byte == 0x7f || (byte == 0xc2 && next >= 0x80 && next <= 0x9f);
        const std::string three = text.substr(at, 3);
        if (isControl || isLateControl || three == "\xE2\x80\xA8" || three == "\xE2\x80\xA9")
            return true;
    }
    return false;
}

bool hasBlanksAround(const std::string& text)
{
    const auto isBlank = [](char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; };
    return !text.empty() && (isBlank(text.front()) || isBlank(text.back()));
}

/// Takes the lines of an image one after the other.
class Lines {
public:
    explicit Lines(const std::vector<std::string>& lines) : m_lines(lines), m_next(FirstTextLine) {}

    /// The text behind \p prefix, if the next line begins with that.
    std::optional<std::string> text(const std::string& prefix)
    {
        if (isAtEnd() || m_lines[m_next].compare(0, prefix.size(), prefix) != 0)
            return std::nullopt;
        return m_lines[m_next++].substr(prefix.size());
    }

    /// The same for a text of any number of lines, up to the line "---", which is passed.
    std::optional<std::string> description(const std::string& prefix)
    {
        std::optional<std::string> all = text(prefix);
        while (all && !isAtEnd() && m_lines[m_next] != "---")
            *all += '\n' + m_lines[m_next++];
        if (isAtEnd())
            return std::nullopt;

        ++m_next;
        return all;
    }

    bool isAtEnd() const { return m_next >= m_lines.size(); }
    bool isAtEndMark() const { return m_next + 1 == m_lines.size() && m_lines[m_next] == "----"; }

private:
    const std::vector<std::string>& m_lines;
    std::size_t m_next;
};

std::string brokenDescription(const std::optional<std::string>& description)
{
    if (!description)
        return "a line is missing";
    if (description->find("---") != std::string::npos)
        return "a mark in a description";
    if (hasBlanksAround(*description))
        return "blanks around a description";
    return {};
}

std::string brokenFunction(Lines* lines)
{
    const auto name = lines->text("Function name: ");
    const auto author = lines->text("Function author: ");
    const auto ciNumber = lines->text("Function CI No: ");
    if (!name || !author || !ciNumber)
        return "a line of a function is missing";
    if (name->find("----") != std::string::npos)
        return "a mark in a function's name";
    return brokenDescription(lines->description("Function description: "));
}

std::string brokenText(const PlainFcf& image)
{
    for (const std::string& line : image.lines) {
        if (hasForbiddenCharacter(line))
            return "a forbidden character";
    }

    Lines lines(image.lines);
    for (const char* const prefix : {"Filename: ", "CI No: ", "Author: ", "Date: "}) {
        if (!lines.text(prefix))
            return "a line is missing";
    }
    const auto time = lines.text("Time: ");
    if (!time || !isTimeOfDay(*time))
        return "no time of day";

    std::string broken = brokenDescription(lines.description("Description: "));
    while (broken.empty() && !lines.isAtEndMark())
        broken = brokenFunction(&lines);
    return broken;
}

} // namespace

std::string PlainRules::broken(const PlainFcf& image)
{
    if (!image.fault.empty())
        return image.fault;
    if (!hasRightSizes(image))
        return "sizes";
    if (!isTarget(image.numbers[6], image.numbers[7]))
        return "codes";
    if (image.numbers[8] < 1 || image.numbers[8] > 10)
        return "slot";
    if (image.numbers[9] < 0 || image.numbers[10] < 0)
        return "version";
    for (const std::uint32_t word : image.reserved) {
        if (word != 0xFFFFFFFF)
            return "a reserved word";
    }
    return brokenText(image);
}
