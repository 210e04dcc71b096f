#ifndef TESTS_TOOL_CREATINGTEST_H
#define TESTS_TOOL_CREATINGTEST_H

#include "ToolFixture.h"

#include <QObject>

/// What the tests of create share.
class CreatingTest : public QObject {
protected:
    /// Makes "top.fcf" from a payload of 4000 bytes, with every option given that must be.
    Run create(ToolFixture* tool, const Arguments& more = {})
    {
        tool->write("top.bin", ToolFixture::payload(4000));
        return tool->run(Arguments{"create", tool->argument("top.bin")} + ToolFixture::described() +
                         more);
    }
};

#endif
