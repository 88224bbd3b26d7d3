#pragma once

/// Which code points of a name a reader can see.
namespace text {

/// False for what would leave no picture where a name is shown, or tear it apart: control
/// characters, line and paragraph separators, bad bytes (`utf8::kBadByte`), the marks that turn the
/// reading direction of what stands around them, blanks without width. `before` and `behind` are
/// the neighbours, 0 at the ends of a text; a joiner is at work only between two signs of a word or
/// an emoji, or after a virama.
bool IsShown(char32_t before, char32_t point, char32_t behind);

}  // namespace text
