#ifndef TESTS_FCF_SAMPLEHEADERS_H
#define TESTS_FCF_SAMPLEHEADERS_H

#include "fcf/FcfHeader.h"

/// The builds in the golden files.
FcfHeader headerWithoutFunctions();
FcfHeader headerInSeveralScripts();

#endif
