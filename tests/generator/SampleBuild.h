#ifndef TESTS_GENERATOR_SAMPLEBUILD_H
#define TESTS_GENERATOR_SAMPLEBUILD_H

#include "fcf/FcfHeader.h"

/// A build whose numbers all differ, with a description of three lines and two functions.
FcfHeader sampleHeader();

#endif
