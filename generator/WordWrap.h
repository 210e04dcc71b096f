#ifndef GENERATOR_WORDWRAP_H
#define GENERATOR_WORDWRAP_H

#include <QTextOption>

class QString;

namespace WordWrap {

/// Returns how the lines of \p text are broken: between words, but anywhere in a text with an
/// endless word, as a damaged file has. The time to find that no break fits grows with the square
/// of its length.
QTextOption::WrapMode modeFor(const QString& text);

} // namespace WordWrap

#endif
