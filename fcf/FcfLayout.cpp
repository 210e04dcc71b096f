#include "fcf/FcfLayout.h"

namespace FcfLayout {

const char* const RecordEnd = "---";
const char* const TextEnd = "----";
const char* const FirstLineKeyword = "Filename";

const NumberField Numbers[NumberCount] = {
    {"totalPages", 0, &FcfHeader::totalPages, "pages",
     "header and payload: the pages left over after whole blocks"},
    {"totalBlocks", 4, &FcfHeader::totalBlocks, "blocks", "header and payload: the whole blocks"},
    {"totalSize", 8, &FcfHeader::totalSize, "bytes",
     "payload and one page for the header, whatever the header's real length"},
    {"binPages", 12, &FcfHeader::binPages, "pages",
     "payload: the pages left over after whole blocks"},
    {"binBlocks", 16, &FcfHeader::binBlocks, "blocks", "payload: the whole blocks"},
    {"binFileSize", 20, &FcfHeader::binFileSize, "bytes", "payload"},
    {"moduleCode", 24, &FcfHeader::moduleCode, "code", "the module, see the codes"},
    {"deviceCode", 28, &FcfHeader::deviceCode, "code",
     "the device of the module, one bit, see the codes"},
    {"configNumber", 32, &FcfHeader::configNumber, "slot", "flash slot, 1 to 10"},
    {"versionMajor", 36, &FcfHeader::versionMajor, "number", "major version of the build"},
    {"versionMinor", 40, &FcfHeader::versionMinor, "number", "minor version of the build"},
};

const TextField<FcfHeader> HeaderTexts[HeaderTextCount] = {
    {"fileName", "Filename: ", &FcfHeader::fileName, Untrimmed, false,
     "the image's file name, without its folder"},
    {"ciNumber", "CI No: ", &FcfHeader::ciNumber, Untrimmed, false,
     "configuration item number of the build"},
    {"author", "Author: ", &FcfHeader::author, Untrimmed, false, "who built it"},
    {"date", "Date: ", &FcfHeader::date, Untrimmed, false,
     "day of writing, in the short format of the writer's locale"},
    {"time", "Time: ", &FcfHeader::time, Untrimmed, false,
     "time of writing: hours, minutes and seconds"},
    {"description", "Description: ", &FcfHeader::description, Trimmed, true, "what the build is"},
};

const TextField<FcfFunction> FunctionTexts[FunctionTextCount] = {
    {"name", "Function name: ", &FcfFunction::name, Untrimmed, false, "name of the function"},
    {"author", "Function author: ", &FcfFunction::author, Untrimmed, false, "who wrote it"},
    {"ciNumber", "Function CI No: ", &FcfFunction::ciNumber, Untrimmed, false,
     "configuration item number of the function"},
    {"description", "Function description: ", &FcfFunction::description, Trimmed, true,
     "what the function does"},
};

} // namespace FcfLayout
