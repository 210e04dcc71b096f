#ifndef TOOL_CHECK_FCFFILE_H
#define TOOL_CHECK_FCFFILE_H

#include "tool/check/HeaderPage.h"
#include "tool/files/InputFile.h"
#include "tool/files/Region.h"

/// An image or a companion, and its header page.
struct FcfFile {
    InputFile file;
    HeaderPage page;

    /// What of the file is its payload. The region refers to this object.
    Region payload() const { return {&file, page.bytes, page.payloadBytes, nullptr}; }
};

#endif
