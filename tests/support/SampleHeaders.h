#ifndef TESTS_SUPPORT_SAMPLEHEADERS_H
#define TESTS_SUPPORT_SAMPLEHEADERS_H

#include "fcf/FcfHeader.h"

/// The builds in the golden files.
FcfHeader headerWithoutFunctions();
FcfHeader headerInSeveralScripts();

/// A build whose numbers all differ, with a description of three lines and two functions.
FcfHeader sampleHeader();

#endif
