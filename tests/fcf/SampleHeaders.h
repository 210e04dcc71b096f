#ifndef TESTS_FCF_SAMPLEHEADERS_H
#define TESTS_FCF_SAMPLEHEADERS_H

#include "fcf/FcfHeader.h"

/// The builds that the golden files hold.
FcfHeader headerWithoutFunctions();
FcfHeader headerInSeveralScripts();

#endif
