#ifndef FCF_FORMLIMITS_H
#define FCF_FORMLIMITS_H

/// What the generator window takes of a header page, whose format has no such limits.
namespace FormLimits {

/// UTF-16 units of a description. The window cuts off what a file has beyond them.
const int DescriptionLength = 1000;

} // namespace FormLimits

#endif
