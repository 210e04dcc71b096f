#ifndef TESTS_TOOL_PLAINRULES_H
#define TESTS_TOOL_PLAINRULES_H

#include "support/PlainFcf.h"

#include <string>

/// The rules of docs/fcf-format.md for a valid image, written from that page alone: neither Qt nor
/// the product's tables and checks have a part in them, so that they can contradict them.
namespace PlainRules {

/// The first rule that \p image breaks, or an empty text. Whether its text can be decoded is not
/// checked.
std::string broken(const PlainFcf& image);

} // namespace PlainRules

#endif
